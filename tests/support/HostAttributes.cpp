#include "tests/support/HostAttributes.h"

#include <OpenVornik/VFnCompoundAttribute.h>
#include <OpenVornik/VFnGenericAttribute.h>
#include <OpenVornik/VFnMatrixAttribute.h>
#include <OpenVornik/VFnNumericAttribute.h>
#include <OpenVornik/VFnTypedAttribute.h>

namespace TestSupport {

// A name may occur in several compounds of one node.
VObject compoundAttribute(const char* name, const std::vector<VObject>& children, bool isArray) {
    VFnCompoundAttribute compound;
    const VObject object = compound.create(name, name);
    compound.setArray(isArray);
    for (const VObject& child : children) {
        VFnAttribute(child).setEnforcingUniqueName(false);
        compound.addChild(child);
    }
    return object;
}

VObject textAttribute(const char* name, bool isArray) {
    VFnTypedAttribute attribute;
    const VObject object = attribute.create(name, name, VFnData::kString);
    attribute.setArray(isArray);
    return object;
}

VObject matrixAttribute(const char* name, bool isArray) {
    VFnMatrixAttribute attribute;
    const VObject object = attribute.create(name, name);
    attribute.setArray(isArray);
    return object;
}

VObject doubleAttribute(const char* name, bool isArray) {
    VFnNumericAttribute attribute;
    const VObject object = attribute.create(name, name, VFnNumericData::kDouble);
    attribute.setArray(isArray);
    return object;
}

VObject objectAttribute(const char* name) { return VFnGenericAttribute().create(name, name); }

}  // namespace TestSupport
