#include "tests/convert/HostAttributes.h"

#include "types/Records.h"

#include <OpenVornik/VFnCompoundAttribute.h>
#include <OpenVornik/VFnGenericAttribute.h>
#include <OpenVornik/VFnMatrixAttribute.h>
#include <OpenVornik/VFnNumericAttribute.h>
#include <OpenVornik/VFnTypedAttribute.h>
#include <Pelmor/String.h>

namespace TestSupport {

using namespace Rigging::Module;

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

template <>
VObject attributeFor<Pelmor::String>(const char* name, bool isArray) {
    return textAttribute(name, isArray);
}

template <>
VObject attributeFor<Math::double4x4>(const char* name, bool isArray) {
    return matrixAttribute(name, isArray);
}

template <>
VObject attributeFor<double>(const char* name, bool isArray) {
    return doubleAttribute(name, isArray);
}

template <>
VObject attributeFor<Transform>(const char* name, bool isArray) {
    return compoundAttribute(
        name,
        {matrixAttribute("matrix0"), matrixAttribute("matrix1"), matrixAttribute("matrix2"),
         matrixAttribute("matrix3"), matrixAttribute("matrix4"), matrixAttribute("matrix5"),
         matrixAttribute("matrix6"), matrixAttribute("matrix7")},
        isArray);
}

template <>
VObject attributeFor<NamedTransforms>(const char* name, bool isArray) {
    return compoundAttribute(
        name, {textAttribute("names", true), attributeFor<Transform>("transforms", true)}, isArray);
}

template <>
VObject attributeFor<Pins>(const char* name, bool isArray) {
    return compoundAttribute(
        name, {textAttribute("names", true), matrixAttribute("matrices", true)}, isArray);
}

template <>
VObject attributeFor<InputsJoints>(const char* name, bool isArray) {
    return compoundAttribute(name,
                             {textAttribute("names", true), matrixAttribute("matrices", true),
                              attributeFor<NamedTransforms>("namedTransforms")},
                             isArray);
}

template <>
VObject attributeFor<InputsControls>(const char* name, bool isArray) {
    return compoundAttribute(
        name,
        {textAttribute("names", true), matrixAttribute("matrices", true),
         doubleAttribute("weights_A", true), attributeFor<NamedTransforms>("namedTransforms")},
        isArray);
}

template <>
VObject attributeFor<Inputs>(const char* name, bool isArray) {
    return compoundAttribute(
        name,
        {attributeFor<Pins>("pins"), attributeFor<InputsJoints>("joints"),
         attributeFor<InputsControls>("controls0"), attributeFor<InputsControls>("controls1"),
         objectAttribute("object0"), objectAttribute("object1")},
        isArray);
}

template <>
VObject attributeFor<Outputs>(const char* name, bool isArray) {
    return compoundAttribute(name,
                             {textAttribute("name"), attributeFor<Pins>("pins"),
                              attributeFor<NamedTransforms>("namedTransforms0"),
                              attributeFor<NamedTransforms>("namedTransforms1"),
                              attributeFor<NamedTransforms>("namedTransforms2"),
                              objectAttribute("object0"), objectAttribute("object1")},
                             isArray);
}

template <>
VObject attributeWithTextsForObjects<Inputs>(const char* name) {
    return compoundAttribute(name,
                             {attributeFor<Pins>("a"), attributeFor<InputsJoints>("b"),
                              attributeFor<InputsControls>("c"), attributeFor<InputsControls>("d"),
                              textAttribute("first object"), textAttribute("second object")});
}

template <>
VObject attributeWithTextsForObjects<Outputs>(const char* name) {
    return compoundAttribute(
        name, {textAttribute("a"), attributeFor<Pins>("b"), attributeFor<NamedTransforms>("c"),
               attributeFor<NamedTransforms>("d"), attributeFor<NamedTransforms>("e"),
               textAttribute("first object"), textAttribute("second object")});
}

}  // namespace TestSupport
