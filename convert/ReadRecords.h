// Reads the seven records from the host's compound data. Nothing is reported: data that the host
// cannot supply is taken as the host gives it. [evaluation thread]
#pragma once

#include "types/Records.h"

#include <OpenVornik/VDataHandle.h>
#include <OpenVornik/VPlug.h>
#include <Pelmor/AnyValue.h>
#include <Pelmor/Array.h>

namespace Rigging::Module {

// Each fills `record` from the children of its compound, found by index, and leaves the members
// that do not cross as they are.
void readTransform(VDataHandle& handle, const VPlug& plug, Transform& record);
void readNamedTransforms(VDataHandle& handle, const VPlug& plug, NamedTransforms& record);
void readPins(VDataHandle& handle, const VPlug& plug, Pins& record);
void readInputsJoints(VDataHandle& handle, const VPlug& plug, InputsJoints& record);
void readInputsControls(VDataHandle& handle, const VPlug& plug, InputsControls& record);
void readInputs(VDataHandle& handle, const VPlug& plug, Inputs& record);
void readOutputs(VDataHandle& handle, const VPlug& plug, Outputs& record);

// What the registry files for a record's type: each reads a new record and puts it into `value`,
// whose former content is destroyed first. They end the process where there is no memory for the
// record.
void readTransformValue(Pelmor::AnyValue& value, VDataHandle& handle, const VPlug& plug);
void readNamedTransformsValue(Pelmor::AnyValue& value, VDataHandle& handle, const VPlug& plug);
void readPinsValue(Pelmor::AnyValue& value, VDataHandle& handle, const VPlug& plug);
void readInputsJointsValue(Pelmor::AnyValue& value, VDataHandle& handle, const VPlug& plug);
void readInputsControlsValue(Pelmor::AnyValue& value, VDataHandle& handle, const VPlug& plug);
void readInputsValue(Pelmor::AnyValue& value, VDataHandle& handle, const VPlug& plug);
void readOutputsValue(Pelmor::AnyValue& value, VDataHandle& handle, const VPlug& plug);

}  // namespace Rigging::Module
