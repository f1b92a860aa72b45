#include "convert/ReadRecords.h"

#include "convert/ReadMembers.h"
#include "convert/StoreValue.h"

namespace Rigging::Module {

void readTransform(VDataHandle& handle, const VPlug& plug, Transform& record) {
    readMembers(handle, plug, record);
}

void readNamedTransforms(VDataHandle& handle, const VPlug& plug, NamedTransforms& record) {
    readMembers(handle, plug, record);
}

void readPins(VDataHandle& handle, const VPlug& plug, Pins& record) {
    readMembers(handle, plug, record);
}

void readInputsJoints(VDataHandle& handle, const VPlug& plug, InputsJoints& record) {
    readMembers(handle, plug, record);
}

void readInputsControls(VDataHandle& handle, const VPlug& plug, InputsControls& record) {
    readMembers(handle, plug, record);
}

void readInputs(VDataHandle& handle, const VPlug& plug, Inputs& record) {
    readMembers(handle, plug, record);
}

void readOutputs(VDataHandle& handle, const VPlug& plug, Outputs& record) {
    readMembers(handle, plug, record);
}

void readTransformValue(Pelmor::AnyValue& value, VDataHandle& handle, const VPlug& plug) {
    readIntoHolder(value, handle, plug, &readTransform);
}

void readNamedTransformsValue(Pelmor::AnyValue& value, VDataHandle& handle, const VPlug& plug) {
    readIntoHolder(value, handle, plug, &readNamedTransforms);
}

void readPinsValue(Pelmor::AnyValue& value, VDataHandle& handle, const VPlug& plug) {
    readIntoHolder(value, handle, plug, &readPins);
}

void readInputsJointsValue(Pelmor::AnyValue& value, VDataHandle& handle, const VPlug& plug) {
    readIntoHolder(value, handle, plug, &readInputsJoints);
}

void readInputsControlsValue(Pelmor::AnyValue& value, VDataHandle& handle, const VPlug& plug) {
    readIntoHolder(value, handle, plug, &readInputsControls);
}

void readInputsValue(Pelmor::AnyValue& value, VDataHandle& handle, const VPlug& plug) {
    readIntoHolder(value, handle, plug, &readInputs);
}

void readOutputsValue(Pelmor::AnyValue& value, VDataHandle& handle, const VPlug& plug) {
    readIntoHolder(value, handle, plug, &readOutputs);
}

}  // namespace Rigging::Module
