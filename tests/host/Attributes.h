// Short ways to the attributes and nodes that the tests work on.
#pragma once

#include <OpenVornik/VDGModifier.h>
#include <OpenVornik/VFnCompoundAttribute.h>
#include <OpenVornik/VFnDependencyNode.h>
#include <OpenVornik/VFnMatrixAttribute.h>
#include <OpenVornik/VFnNumericAttribute.h>
#include <OpenVornik/VFnTypedAttribute.h>

#include <initializer_list>
#include <ostream>

inline std::ostream& operator<<(std::ostream& stream, const VString& text) {
    return stream << '"' << text.asChar() << '"';
}

inline std::ostream& operator<<(std::ostream& stream, const VStatus& status) {
    return stream << "status " << status.statusCode();
}

// Whether `call`, given a pointer to a status, gives nothing and that status.
template <typename Call>
bool fails(Call call, VStatus::Code expected = VStatus::kInvalidParameter) {
    VStatus status;
    return call(&status) && status == expected;
}

inline VObject makeNumber(const char* name, VFnNumericData::Type type, double defaultValue = 0.0) {
    return VFnNumericAttribute().create(name, name, type, defaultValue);
}

inline VObject makeDouble(const char* name, double defaultValue = 0.0) {
    return makeNumber(name, VFnNumericData::kDouble, defaultValue);
}

inline VObject makeText(const char* name) {
    return VFnTypedAttribute().create(name, name, VFnData::kString);
}

inline VObject makeMatrix(const char* name) { return VFnMatrixAttribute().create(name, name); }

// The children do not enforce unique names.
inline VObject makeCompound(const char* name, std::initializer_list<VObject> children) {
    VFnCompoundAttribute compound;
    compound.create(name, name);
    for (const VObject& child : children) {
        compound.addChild(child);
        VFnAttribute(child).setEnforcingUniqueName(false);
    }
    return compound.object();
}

inline VObject asArray(const VObject& attribute) {
    VFnAttribute(attribute).setArray(true);
    return attribute;
}

inline VObject asInput(const VObject& attribute) {
    VFnAttribute(attribute).setReadable(false);
    return attribute;
}

inline VObject asOutput(const VObject& attribute) {
    VFnAttribute(attribute).setWritable(false);
    return attribute;
}

inline VStatus addTo(const VObject& node, const VObject& attribute) {
    VDGModifier modifier;
    const VStatus status = modifier.addAttribute(node, attribute);
    return status.error() ? status : modifier.doIt();
}

inline VObject makeNode(const char* name, std::initializer_list<VObject> attributes = {}) {
    const VObject node = VFnDependencyNode().create(name);
    for (const VObject& attribute : attributes) addTo(node, attribute);
    return node;
}

inline VPlug plugOf(const VObject& node, const char* attribute) {
    return VFnDependencyNode(node).findPlug(attribute);
}

inline VDataBlock blockOf(const VObject& node) { return VFnDependencyNode(node).dataBlock(); }

// The data of the node's attribute as it stands.
inline VDataHandle dataOf(const VObject& node, const char* attribute) {
    return blockOf(node).outputValue(plugOf(node, attribute));
}

inline VStatus connect(VPlug source, VPlug destination) {
    VDGModifier modifier;
    const VStatus status = modifier.connect(source, destination);
    return status.error() ? status : modifier.doIt();
}
