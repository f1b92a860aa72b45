// Gives a host node the attribute of a new port.
#pragma once

#include <OpenVornik/VDGModifier.h>
#include <OpenVornik/VObject.h>
#include <Pelmor/String.h>
#include <Pelmor/Type.h>

namespace Tolvane {

// Builds the attribute and lets `modifier` add it to `node` at once. False, with the
// reason shown to the user, where that failed; nothing in `modifier` is undone then. [edit thread]
bool addPort(const Pelmor::String& portName, bool isInput, const Pelmor::Type& type,
             const VObject& node, VDGModifier& modifier);

}  // namespace Tolvane
