// Writes the seven records to the host's compound data. They throw what the writers of their arrays
// throw; what was written before stays. [evaluation thread]
#pragma once

#include "types/Records.h"

#include <OpenVornik/VDataHandle.h>
#include <OpenVornik/VPlug.h>

namespace Rigging::Module {

// Each writes the members of `record` to the children of its compound, found by index. The members
// that do not cross never reach the host.
void writeTransform(const Transform& record, VDataHandle& handle, const VPlug& plug);
void writeNamedTransforms(const NamedTransforms& record, VDataHandle& handle, const VPlug& plug);
void writePins(const Pins& record, VDataHandle& handle, const VPlug& plug);
void writeInputsJoints(const InputsJoints& record, VDataHandle& handle, const VPlug& plug);
void writeInputsControls(const InputsControls& record, VDataHandle& handle, const VPlug& plug);
void writeInputs(const Inputs& record, VDataHandle& handle, const VPlug& plug);
void writeOutputs(const Outputs& record, VDataHandle& handle, const VPlug& plug);

}  // namespace Rigging::Module
