#include "tests/faults/AttributeRules.h"

#include "tests/faults/Entries.h"

#include <algorithm>

namespace FaultTests {
namespace {

constexpr const char* kNotCreated = "Fail to create attribute port on node rig.";
constexpr const char* kNotAdded = "Fail to add attribute port on node rig.";
constexpr const char* kNotModified =
    "Fail to modify the DG while adding attribute port on node rig.";

enum Flag : std::size_t { kReadable, kWritable, kKeyable, kArray, kUnique, kFlags };

void setFlag(AttributeRow& row, Flag flag, char letter) {
    row.text[row.text.size() - kFlags + flag] = letter;
}

AttributeRow& rowAt(AttributeRows& rows, const std::string& place) {
    return *std::find_if(rows.begin(), rows.end(),
                         [&](const AttributeRow& row) { return row.place == place; });
}

void eraseRows(AttributeRows& rows, const std::string& place) {
    rows.erase(std::remove_if(rows.begin(), rows.end(),
                              [&](const AttributeRow& row) { return isAt(row.place, place); }),
               rows.end());
}

std::string parentOf(const std::string& place) { return place.substr(0, place.rfind('.')); }
std::string nameOf(const std::string& place) { return place.substr(place.rfind('.') + 1); }
bool isField(const AttributeRow& row) { return row.text.compare(0, 5, "field") == 0; }

// The walk over the children ends early: the child that it came to and those behind it go on
// enforcing unique names.
void keepUniqueFrom(AttributeRows& rows, const std::string& first) {
    bool isReached = false;
    for (AttributeRow& row : rows) {
        if (!isDirectlyIn(row, parentOf(first))) continue;
        isReached = isReached || row.place == first;
        if (isReached) setFlag(row, kUnique, 'u');
    }
}

// No unique name is enforced of the child from then on.
bool freesChild(const PlannedCall& call) {
    return isOneOf(call.operation,
                   {"VFnCompoundAttribute::numChildren", "VFnCompoundAttribute::child",
                    "VFnAttribute::VFnAttribute", "VFnAttribute::setEnforcingUniqueName"});
}

bool losesAttribute(const PlannedCall& call) {
    return isOneOf(call.operation, {"VFnCompoundAttribute::create", "VFnEnumAttribute::create",
                                    "VFnTypedAttribute::create", "VFnMatrixAttribute::create",
                                    "VFnNumericAttribute::create", "VFnGenericAttribute::create",
                                    "VFnCompoundAttribute::addChild"});
}

void applyLoss(AttributeRows& rows, const PlannedCall& failing) {
    const std::string_view operation = failing.operation;
    const std::string& place = failing.place;
    // The host's default for a new attribute stands.
    if (operation == "VFnAttribute::setReadable") setFlag(rowAt(rows, place), kReadable, 'r');
    if (operation == "VFnAttribute::setWritable") setFlag(rowAt(rows, place), kWritable, 'w');
    if (operation == "VFnAttribute::setKeyable") setFlag(rowAt(rows, place), kKeyable, '-');
    if (operation == "VFnAttribute::setArray") setFlag(rowAt(rows, place), kArray, '-');
    if (operation == "VFnCompoundAttribute::numChildren")
        keepUniqueFrom(rows, place);
    else if (freesChild(failing))
        setFlag(rowAt(rows, place), kUnique, 'u');
    // An attribute that the host did not make is handed on and refused; what would be in it goes
    // with it, what comes behind it does not.
    if (losesAttribute(failing) || operation == "VFnEnumAttribute::addField")
        eraseRows(rows, place);
}

// Children that are not there are not freed; everything else is done as if nothing had failed.
bool isStillCalled(const PlannedCalls& plan, std::size_t index, std::size_t failing) {
    const std::string& place = plan[index].place;
    const std::string& lost = plan[failing].place;
    if (!freesChild(plan[index])) return true;
    if (plan[failing].operation == "VFnCompoundAttribute::numChildren")
        return index <= failing || parentOf(place) != parentOf(lost);
    if (!losesAttribute(plan[failing])) return true;
    const bool isInLost = plan[failing].operation == "VFnCompoundAttribute::create" &&
                          parentOf(place) == lost && nameOf(place) != kNoChild;
    return place != lost && !isInLost;
}

Operations operationsDespite(const PlannedCalls& plan, std::size_t failing) {
    Operations operations;
    for (std::size_t i = 0; i < plan.size(); ++i)
        if (isStillCalled(plan, i, failing)) operations.push_back(plan[i].operation);
    return operations;
}

// The message is made and shown instead of `next`, and nothing else is done.
Operations refusedBefore(Operations operations, std::string_view next) {
    operations.erase(std::find(operations.begin(), operations.end(), next), operations.end());
    for (const char* operation :
         {"VFnDependencyNode::name", "VString::format", "VGlobal::displayError"})
        operations.push_back(operation);
    return operations;
}

// The node refuses a child that enforces a unique name where its name occurs elsewhere.
bool hasClash(const AttributeRows& rows) {
    for (std::size_t i = 1; i < rows.size(); ++i)
        for (std::size_t j = 0; j < rows.size(); ++j)
            if (i != j && !isField(rows[i]) && !isField(rows[j]) && rows[i].text.back() == 'u' &&
                nameOf(rows[i].place) == nameOf(rows[j].place))
                return true;
    return false;
}

}  // namespace

bool endsAddition(const PlannedCall& call) {
    return call.operation == "VDGModifier::addAttribute" || call.operation == "VDGModifier::doIt";
}

AdditionResult resultOfAdding(const PlannedCalls& plan, std::size_t failing,
                              const AttributeRows& rows) {
    const Operations operations = operationsDespite(plan, failing);
    const auto refused = [&](const char* message, std::string_view next) {
        return AdditionResult{message, {}, refusedBefore(operations, next)};
    };
    if (plan[failing].operation == "VDGModifier::addAttribute")
        return refused(kNotAdded, "VDGModifier::doIt");
    if (plan[failing].operation == "VDGModifier::doIt") return refused(kNotModified, "nothing");
    AttributeRows left = rows;
    applyLoss(left, plan[failing]);
    if (left.empty()) return refused(kNotCreated, "VDGModifier::addAttribute");
    if (hasClash(left)) return refused(kNotModified, "nothing");
    return {"", left, operations};
}

}  // namespace FaultTests
