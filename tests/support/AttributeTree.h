// Tells what an attribute of the host and everything below it is, as text to compare.
#pragma once

#include <OpenVornik/VFnCompoundAttribute.h>
#include <OpenVornik/VFnEnumAttribute.h>
#include <OpenVornik/VFnGenericAttribute.h>
#include <OpenVornik/VFnMatrixAttribute.h>
#include <OpenVornik/VFnNumericAttribute.h>
#include <OpenVornik/VFnTypedAttribute.h>

#include <string>
#include <vector>

namespace TestSupport {

using AttributeLines = std::vector<std::string>;

// One letter for each flag that is set, else "-": readable, writable, keyable, array, enforcing a
// unique name.
inline std::string flagsOf(const VFnAttribute& attribute) {
    std::string flags;
    flags += attribute.isReadable() ? 'r' : '-';
    flags += attribute.isWritable() ? 'w' : '-';
    flags += attribute.isKeyable() ? 'k' : '-';
    flags += attribute.isArray() ? 'a' : '-';
    flags += attribute.isEnforcingUniqueName() ? 'u' : '-';
    return flags;
}

// The kind with what is particular to it.
inline std::string kindOf(const VObject& attribute) {
    switch (VFnAttribute(attribute).kind()) {
        case VFnAttribute::kNumeric: {
            const VFnNumericAttribute numeric(attribute);
            return "numeric " + std::to_string(numeric.unitType()) + " of " +
                   std::to_string(numeric.defaultValue());
        }
        case VFnAttribute::kTyped:
            return "typed " + std::to_string(VFnTypedAttribute(attribute).attrType());
        case VFnAttribute::kMatrix:
            return "matrix " + std::to_string(VFnMatrixAttribute(attribute).matrixType());
        case VFnAttribute::kEnum:
            return "enum of " + std::to_string(VFnEnumAttribute(attribute).defaultValue());
        case VFnAttribute::kGeneric:
            return "generic " + std::to_string(VFnGenericAttribute(attribute).numAcceptedTypes());
        case VFnAttribute::kCompound:
            return "compound";
    }
    return "unknown";
}

inline void appendAttribute(AttributeLines& lines, const VObject& attribute,
                            const std::string& indent) {
    const VFnAttribute read(attribute);
    std::string names = read.name().asChar();
    if (read.shortName() != read.name()) names += std::string(" or ") + read.shortName().asChar();
    lines.push_back(indent + names + ": " + kindOf(attribute) + ' ' + flagsOf(read));
    if (read.kind() == VFnAttribute::kEnum) {
        const VFnEnumAttribute fields(attribute);
        for (unsigned i = 0; i < fields.numFields(); ++i)
            lines.push_back(indent + "  " + fields.fieldName(i).asChar() + " = " +
                            std::to_string(fields.fieldValue(i)));
    }
    if (read.kind() == VFnAttribute::kCompound) {
        const VFnCompoundAttribute compound(attribute);
        for (unsigned i = 0; i < compound.numChildren(); ++i)
            appendAttribute(lines, compound.child(i), indent + "  ");
    }
}

// One line per attribute, such as "  weights_A: numeric 14 of 0.000000 rw-a-", in the order of the
// children, indented by depth; an enum is followed by its fields, such as "  off = 0".
inline AttributeLines treeOf(const VObject& attribute) {
    AttributeLines lines;
    appendAttribute(lines, attribute, "");
    return lines;
}

}  // namespace TestSupport
