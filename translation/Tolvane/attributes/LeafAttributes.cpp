#include <OpenVornik/VFnGenericAttribute.h>
#include <OpenVornik/VFnMatrixAttribute.h>
#include <OpenVornik/VFnNumericAttribute.h>
#include <OpenVornik/VFnTypedAttribute.h>
#include <Tolvane/attributes/LeafAttributes.h>

namespace Tolvane {
namespace {

// The host's codes, which are the same in all its versions, whatever they are called there.
constexpr auto kStringData = static_cast<VFnData::Type>(4);
constexpr auto kDoubleMatrix = static_cast<VFnMatrixAttribute::Type>(1);
constexpr auto kBoolean = static_cast<VFnNumericData::Type>(1);
constexpr auto kInteger = static_cast<VFnNumericData::Type>(7);
constexpr auto kDouble = static_cast<VFnNumericData::Type>(14);

}  // namespace

VObject createStringAttribute(const VString& name, bool isArray) {
    VFnTypedAttribute attribute;
    VObject object = attribute.create(name, name, kStringData, VObject::kNullObj);
    attribute.setArray(isArray);
    return object;
}

VObject createMatrixAttribute(const VString& name, bool isArray) {
    VFnMatrixAttribute attribute;
    VObject object = attribute.create(name, name, kDoubleMatrix);
    attribute.setArray(isArray);
    return object;
}

VObject createDoubleAttribute(const VString& name, bool isArray) {
    VFnNumericAttribute attribute;
    VObject object = attribute.create(name, name, kDouble, 0.0);
    attribute.setArray(isArray);
    return object;
}

VObject createObjectAttribute(const VString& name, bool isArray) {
    VFnGenericAttribute attribute;
    VObject object = attribute.create(name, name);
    attribute.setArray(isArray);
    return object;
}

VObject createBoolAttribute(const VString& name) {
    return VFnNumericAttribute().create(name, name, kBoolean, 0.0);
}

VObject createIntAttribute(const VString& name) {
    return VFnNumericAttribute().create(name, name, kInteger, 0.0);
}

}  // namespace Tolvane
