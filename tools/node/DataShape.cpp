#include "tools/node/DataShape.h"

#include <OpenVornik/VFnAttribute.h>
#include <OpenVornik/VFnEnumAttribute.h>
#include <OpenVornik/VFnNumericAttribute.h>
#include <OpenVornik/VFnTypedAttribute.h>

#include <numeric>

namespace Tolvane::Tools {
namespace {

using Kind = DataShape::Kind;

Kind kindOfNumber(const VObject& attribute) {
    switch (VFnNumericAttribute(attribute).unitType()) {
        case VFnNumericData::kBoolean:
            return Kind::Bool;
        case VFnNumericData::kInt:
            return Kind::Int;
        case VFnNumericData::kDouble:
            return Kind::Double;
        case VFnNumericData::kInvalid:
            break;
    }
    return Kind::Unknown;
}

Kind kindOfTyped(const VObject& attribute) {
    switch (VFnTypedAttribute(attribute).attrType()) {
        case VFnData::kString:
            return Kind::String;
        case VFnData::kInvalid:
            break;
    }
    return Kind::Unknown;
}

Kind kindOf(const VObject& attribute) {
    switch (VFnAttribute(attribute).kind()) {
        case VFnAttribute::kCompound:
            return Kind::Compound;
        case VFnAttribute::kMatrix:
            return Kind::Matrix;
        case VFnAttribute::kNumeric:
            return kindOfNumber(attribute);
        case VFnAttribute::kTyped:
            return kindOfTyped(attribute);
        case VFnAttribute::kEnum:
            return Kind::Enum;
        case VFnAttribute::kGeneric:
            return Kind::Empty;
    }
    return Kind::Unknown;
}

std::vector<short> choicesOf(const VObject& attribute) {
    const VFnEnumAttribute functions(attribute);
    std::vector<short> choices;
    for (unsigned i = 0; i < functions.numFields(); ++i) choices.push_back(functions.fieldValue(i));
    return choices;
}

}  // namespace

DataShape shapeOf(VPlug plug) {
    const VObject attribute = plug.attribute();
    DataShape shape{
        plug, VFnAttribute(attribute).name().asChar(), kindOf(attribute), plug.isArray(), {}};
    if (shape.kind == Kind::Enum) shape.choices = choicesOf(attribute);
    if (shape.kind != Kind::Compound) return shape;
    VPlug compound = shape.isArray ? plug.elementByLogicalIndex(0) : plug;
    for (unsigned i = 0; i < compound.numChildren(); ++i)
        shape.children.push_back(shapeOf(compound.child(i)));
    return shape;
}

std::size_t attributeCount(const DataShape& shape) {
    return std::accumulate(
        shape.children.begin(), shape.children.end(), std::size_t{1},
        [](std::size_t sum, const DataShape& child) { return sum + attributeCount(child); });
}

}  // namespace Tolvane::Tools
