#include <OpenVornik/VFnGenericAttribute.h>
#include <OpenVornik/VFnMatrixAttribute.h>
#include <OpenVornik/VFnNumericAttribute.h>
#include <OpenVornik/VFnTypedAttribute.h>
#include <Tolvane/attributes/LeafAttributes.h>

namespace Tolvane {

VObject createStringAttribute(const VString& name, bool isArray) {
    VFnTypedAttribute attribute;
    VObject object = attribute.create(name, name, VFnData::kString, VObject::kNullObj);
    attribute.setArray(isArray);
    return object;
}

VObject createMatrixAttribute(const VString& name, bool isArray) {
    VFnMatrixAttribute attribute;
    VObject object = attribute.create(name, name, VFnMatrixAttribute::kDouble);
    attribute.setArray(isArray);
    return object;
}

VObject createDoubleAttribute(const VString& name, bool isArray) {
    VFnNumericAttribute attribute;
    VObject object = attribute.create(name, name, VFnNumericData::kDouble, 0.0);
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
    return VFnNumericAttribute().create(name, name, VFnNumericData::kBoolean, 0.0);
}

VObject createIntAttribute(const VString& name) {
    return VFnNumericAttribute().create(name, name, VFnNumericData::kInt, 0.0);
}

}  // namespace Tolvane
