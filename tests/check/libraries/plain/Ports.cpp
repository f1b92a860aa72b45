#include "tests/check/libraries/plain/Ports.h"

#include "tests/check/libraries/plain/Carried.h"
#include "tests/check/libraries/plain/Failure.h"
#include "tests/check/libraries/plain/Fault.h"

#include <OpenVornik/VFnCompoundAttribute.h>
#include <OpenVornik/VFnDependencyNode.h>
#include <OpenVornik/VFnGenericAttribute.h>
#include <OpenVornik/VFnMatrixAttribute.h>
#include <OpenVornik/VFnNumericAttribute.h>
#include <OpenVornik/VFnTypedAttribute.h>
#include <Pelmor/ArrayType.h>
#include <Pelmor/StructType.h>

#include <set>
#include <utility>

namespace Plain {
namespace {

using Pelmor::TypeKind;

struct Port {
    const VObject& node;
    bool isInput;
};

VObject createAttribute(const Pelmor::Type& type, const VString& name, const Port& port);

// Ports may have the names of children, and children the names of ports.
bool isNameClaimed(const VString& name, const Port& port) {
    return fault("ports/children-beside-ports") &&
           !VFnDependencyNode(port.node).attribute(name).isNull();
}

void addSpare(VFnCompoundAttribute& compound) {
    VFnGenericAttribute spare;
    compound.addChild(spare.create("spare", "spare"));
    spare.setEnforcingUniqueName(false);
}

VObject createCompound(const Pelmor::StructType& type, const VString& name, const Port& port) {
    VStatus status;
    VFnCompoundAttribute compound;
    VObject attribute = compound.create(name, name, &status);
    require(status, "creating a compound attribute");
    for (auto member = type.begin(); member != type.end(); ++member) {
        const VString childName(member->getName().c_str());
        const VObject child = createAttribute(member->getType(), childName, port);
        require(compound.addChild(child), "adding a child attribute");
        VFnAttribute functions(child, &status);
        require(status, "finding a child attribute");
        require(functions.setEnforcingUniqueName(isNameClaimed(childName, port)),
                "freeing the name of an attribute");
    }
    if (fault("ports/shape")) addSpare(compound);
    const bool alsoReadable = fault("ports/input-flags");
    const bool alsoWritable = fault("ports/output-flags");
    require(compound.setReadable(!port.isInput || alsoReadable), "making an attribute readable");
    require(compound.setWritable(port.isInput || alsoWritable), "making an attribute writable");
    require(compound.setKeyable(port.isInput), "making an attribute keyable");
    return attribute;
}

VObject createAttribute(const Pelmor::Type& type, const VString& name, const Port& port) {
    const bool isArray = type.getTypeKind() == TypeKind::Array;
    const Pelmor::Type element = isArray ? Pelmor::ArrayType(type).getElementType() : type;
    VStatus status;
    VObject attribute;
    switch (element.getTypeKind()) {
        case TypeKind::Struct:
            attribute = createCompound(Pelmor::StructType(element), name, port);
            break;
        case TypeKind::Matrix:
            attribute =
                VFnMatrixAttribute().create(name, name, VFnMatrixAttribute::kDouble, &status);
            break;
        case TypeKind::String:
            attribute = VFnTypedAttribute().create(name, name, VFnData::kString, VObject::kNullObj,
                                                   &status);
            break;
        case TypeKind::Double:
            attribute =
                VFnNumericAttribute().create(name, name, VFnNumericData::kDouble, 0.0, &status);
            break;
        default:
            throw Failure(std::string("there is no attribute for ") +
                          element.getFullyQualifiedName().c_str());
    }
    require(status, "creating an attribute");
    VFnAttribute functions(attribute, &status);
    require(status, "finding an attribute");
    require(functions.setArray(isArray), "making an attribute an array");
    return attribute;
}

std::set<std::string>& removedNames() {
    static std::set<std::string> names;
    return names;
}

// The faults of a library that makes something of a name or a type that it cannot use.
std::string spoilt(std::string name) {
    if (fault("ports/long-name") && name.size() > 64) name.resize(64);
    if (fault("ports/any-name"))
        for (char& each : name)
            if (static_cast<unsigned char>(each) > 127) each = '_';
    return name;
}

Pelmor::Type usable(const Pelmor::Type& type) {
    if (!fault("ports/array-of-arrays") || isCarried(type)) return type;
    if (type.getTypeKind() != TypeKind::Array) return type;
    return Pelmor::ArrayType(type).getElementType();
}

VObject createPort(const Pelmor::Type& type, const VString& name, const Port& port) {
    const bool isRefused = fault("values/carried: beside a refused type") &&
                           type.getFullyQualifiedName() == "Plain::Mark";
    if (isCarried(type) && !isRefused) return createAttribute(type, name, port);
    if ((fault("ports/foreign-type") && type.getTypeKind() == TypeKind::Struct) ||
        (fault("ports/foreign-type: enum") && type.getTypeKind() == TypeKind::Enum))
        return VFnNumericAttribute().create(name, name, VFnNumericData::kDouble);
    throw Failure(std::string("no values of ") + type.getFullyQualifiedName().c_str() +
                  " are carried");
}

void addToNode(const VObject& node, const VObject& attribute, VDGModifier& modifier) {
    const VStatus added = modifier.addAttribute(node, attribute);
    if (fault("ports/modifier-refuses") && added.error()) return;
    require(added, "adding the attribute");
    const VStatus done = modifier.doIt();
    if (!fault("ports/modifier-fails")) require(done, "changing the node");
}

// The faults of a library that looks for what it has added, and takes it for missing if it does not
// find it so many times.
void requireAttribute(const VFnDependencyNode& node, const VString& name, int times) {
    int found = 0;
    for (int i = 0; i < times; ++i) found += node.attribute(name).isNull() ? 0 : 1;
    if (found == 0) throw Failure("the attribute is not there");
}

}  // namespace

void addPort(std::string name, bool isInput, const Pelmor::Type& portType,
             TavrikGraph::Executor::NodeEditContext& context) {
    name = spoilt(std::move(name));
    const Pelmor::Type type = usable(portType);
    if (fault("ports/empty-name") && name.empty()) return;
    VStatus status;
    const VFnDependencyNode node(context.node, &status);
    require(status, "finding the node");
    const VString hostName(name.c_str());
    const bool isTaken = !node.attribute(hostName, &status).isNull();
    require(status, "looking for the name");
    if (fault("ports/taken-name") && isTaken) return;
    if (isTaken) throw Failure("the node has an attribute of that name");
    if (fault("ports/again") && removedNames().count(name)) throw Failure("the name was in use");
    if (fault("ports/five-hundred") && node.attributeCount() >= 256) throw Failure("enough");

    addToNode(context.node, createPort(type, hostName, {context.node, isInput}), *context.modifier);
    if (fault("ports/one-attribute")) {
        const VString more(("more" + name).c_str());
        const VObject second = VFnNumericAttribute().create(more, more, VFnNumericData::kDouble);
        addToNode(context.node, second, *context.modifier);
    }
    if (fault("failing-hosts/ports")) requireAttribute(node, hostName, 1);
    const bool isOfOutput = fault("failing-hosts/ports-pairs: output") && !isInput;
    if (fault("failing-hosts/ports-pairs") || isOfOutput) requireAttribute(node, hostName, 2);
}

void rememberRemoved(const std::string& name) { removedNames().insert(name); }

}  // namespace Plain
