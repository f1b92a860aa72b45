#include "tests/faults/AttributePlan.h"

#include "tests/support/AttributeTree.h"

#include <string_view>

namespace FaultTests {
namespace {

bool startsWith(const std::string& text, std::string_view start) {
    return text.compare(0, start.size(), start) == 0;
}

void appendRows(AttributeRows& rows, const VObject& attribute, const std::string& place) {
    const VFnAttribute read(attribute);
    rows.push_back({place, TestSupport::kindOf(attribute) + ' ' + TestSupport::flagsOf(read)});
    if (read.kind() == VFnAttribute::kEnum) {
        const VFnEnumAttribute fields(attribute);
        for (unsigned i = 0; i < fields.numFields(); ++i)
            rows.push_back({place + '.' + fields.fieldName(i).asChar(),
                            "field " + std::to_string(fields.fieldValue(i))});
    }
    if (read.kind() != VFnAttribute::kCompound) return;
    const VFnCompoundAttribute compound(attribute);
    for (unsigned i = 0; i < compound.numChildren(); ++i) {
        const VObject child = compound.child(i);
        appendRows(rows, child, place + '.' + VFnAttribute(child).name().asChar());
    }
}

std::string_view creationOf(const AttributeRow& row) {
    if (startsWith(row.text, "compound")) return "VFnCompoundAttribute::create";
    if (startsWith(row.text, "enum")) return "VFnEnumAttribute::create";
    if (startsWith(row.text, "typed")) return "VFnTypedAttribute::create";
    if (startsWith(row.text, "matrix")) return "VFnMatrixAttribute::create";
    if (startsWith(row.text, "generic")) return "VFnGenericAttribute::create";
    return "VFnNumericAttribute::create";
}

class Adding {
public:
    explicit Adding(const AttributeRows& rows) : m_rows(rows) {}

    void addPort() {
        const AttributeRow& port = m_rows.front();
        add("VFnDependencyNode::VFnDependencyNode", port.place);
        add("VFnDependencyNode::attribute", port.place);
        addAttribute(port);
        add("VDGModifier::addAttribute", port.place);
        add("VDGModifier::doIt", port.place);
    }

    PlannedCalls calls;

private:
    void addAttribute(const AttributeRow& row) {
        add(creationOf(row), row.place);
        const bool isCompound = startsWith(row.text, "compound");
        const bool isEnum = startsWith(row.text, "enum");
        if (isCompound || isEnum)
            for (const char* flag : {"VFnAttribute::setReadable", "VFnAttribute::setWritable",
                                     "VFnAttribute::setKeyable"})
                add(flag, row.place);
        const bool isNeverArray =
            startsWith(row.text, "numeric 1 ") || startsWith(row.text, "numeric 7 ");
        if (!isNeverArray) add("VFnAttribute::setArray", row.place);
        if (isEnum)
            for (const AttributeRow& field : rowsIn(row.place))
                add("VFnEnumAttribute::addField", field.place);
        if (isCompound) addChildren(row);
    }

    void addChildren(const AttributeRow& compound) {
        const AttributeRows children = rowsIn(compound.place);
        for (const AttributeRow& child : children) {
            addAttribute(child);
            add("VFnCompoundAttribute::addChild", child.place);
        }
        for (const AttributeRow& child : children)
            for (const char* step :
                 {"VFnCompoundAttribute::numChildren", "VFnCompoundAttribute::child",
                  "VFnAttribute::VFnAttribute", "VFnAttribute::setEnforcingUniqueName"})
                add(step, child.place);
        // It ends the walk, as the failing call would.
        add("VFnCompoundAttribute::numChildren", compound.place + '.' + kNoChild);
    }

    AttributeRows rowsIn(const std::string& place) const {
        AttributeRows rows;
        for (const AttributeRow& row : m_rows)
            if (isDirectlyIn(row, place)) rows.push_back(row);
        return rows;
    }

    void add(std::string_view operation, const std::string& place) {
        calls.push_back({operation, place});
    }

    const AttributeRows& m_rows;
};

}  // namespace

AttributeRows rowsOf(const VObject& attribute) {
    AttributeRows rows;
    appendRows(rows, attribute, VFnAttribute(attribute).name().asChar());
    return rows;
}

bool isDirectlyIn(const AttributeRow& row, const std::string& place) {
    const std::size_t dot = row.place.rfind('.');
    return dot != std::string::npos && row.place.substr(0, dot) == place;
}

PlannedCalls planOfAdding(const AttributeRows& rows) {
    Adding adding(rows);
    adding.addPort();
    return adding.calls;
}

}  // namespace FaultTests
