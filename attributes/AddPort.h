// Gives a host node the attribute of a new port.
#pragma once

#include <OpenVornik/VDGModifier.h>
#include <OpenVornik/VObject.h>
#include <Pelmor/String.h>
#include <Pelmor/Type.h>

namespace Tolvane {

// Builds the attribute and lets `modifier` add it to `node` at once. False where it did not, for a
// reason that was shown to the user; then `modifier` is left as it is. [edit thread]
bool addPort(const Pelmor::String& portName, bool isInput, const Pelmor::Type& type,
             const VObject& node, VDGModifier& modifier);

}  // namespace Tolvane
