#include <OpenVornik/VFnDependencyNode.h>
#include <OpenVornik/VGlobal.h>
#include <OpenVornik/VString.h>
#include <Tolvane/attributes/AddPort.h>
#include <Tolvane/attributes/PortAttribute.h>
#include <Tolvane/attributes/UnwrapArrayType.h>

namespace Tolvane {
namespace {

void showError(const char* message, const VString& argument1, const VString& argument2) {
    const VString& none = VString::argUnused;
    VString text("");
    text.format(VString(message), argument1, argument2, none, none, none, none, none, none, none,
                none);
    VGlobal::displayError(text);
}

}  // namespace

bool addPort(const Pelmor::String& portName, bool isInput, const Pelmor::Type& type,
             const VObject& node, VDGModifier& modifier) {
    const auto [innermost, arrayLevels] = unwrapArrayType(type);
    if (arrayLevels > 1) {
        showError("Multi dimension array of type ^1s is not supported.",
                  VString(innermost.getFullyQualifiedName().asChar()), VString::argUnused);
        return false;
    }

    const VString name(portName.asChar());
    VFnDependencyNode hostNode(node);
    const auto refuse = [&](const char* message) {
        showError(message, name, hostNode.name());
        return false;
    };
    if (hostNode.attribute(name) != VObject::kNullObj)
        return refuse("A port with the name ^1s already exists on the node ^2s.");

    const VObject attribute = createPortAttribute(type, name, isInput);
    if (attribute == VObject::kNullObj) return refuse("Fail to create attribute ^1s on node ^2s.");
    if (modifier.addAttribute(node, attribute).error())
        return refuse("Fail to add attribute ^1s on node ^2s.");
    if (modifier.doIt().error())
        return refuse("Fail to modify the DG while adding attribute ^1s on node ^2s.");
    return true;
}

}  // namespace Tolvane
