#include "convert/ReadArrays.h"

#include "convert/ReadMembers.h"
#include "convert/StoreValue.h"

namespace Rigging::Module {

void readStringArray(VDataHandle& handle, const VPlug& plug,
                     Pelmor::SharedArray<Pelmor::String>& array) {
    readArray(handle, plug, array);
}

void readMatrixArray(VDataHandle& handle, const VPlug& plug,
                     Pelmor::SharedArray<Math::double4x4>& array) {
    readArray(handle, plug, array);
}

void readDoubleArray(VDataHandle& handle, const VPlug& plug, Pelmor::SharedArray<double>& array) {
    readArray(handle, plug, array);
}

void readTransformArray(VDataHandle& handle, const VPlug& plug,
                        Pelmor::SharedArray<Transform>& array) {
    readArray(handle, plug, array);
}

void readNamedTransformsArray(VDataHandle& handle, const VPlug& plug,
                              Pelmor::SharedArray<NamedTransforms>& array) {
    readArray(handle, plug, array);
}

void readPinsArray(VDataHandle& handle, const VPlug& plug, Pelmor::SharedArray<Pins>& array) {
    readArray(handle, plug, array);
}

void readInputsJointsArray(VDataHandle& handle, const VPlug& plug,
                           Pelmor::SharedArray<InputsJoints>& array) {
    readArray(handle, plug, array);
}

void readInputsControlsArray(VDataHandle& handle, const VPlug& plug,
                             Pelmor::SharedArray<InputsControls>& array) {
    readArray(handle, plug, array);
}

void readInputsArray(VDataHandle& handle, const VPlug& plug, Pelmor::SharedArray<Inputs>& array) {
    readArray(handle, plug, array);
}

void readOutputsArray(VDataHandle& handle, const VPlug& plug, Pelmor::SharedArray<Outputs>& array) {
    readArray(handle, plug, array);
}

void readTransformArrayValue(Pelmor::AnyValue& value, VDataHandle& handle, const VPlug& plug) {
    readIntoHolder(value, handle, plug, &readTransformArray);
}

void readNamedTransformsArrayValue(Pelmor::AnyValue& value, VDataHandle& handle,
                                   const VPlug& plug) {
    readIntoHolder(value, handle, plug, &readNamedTransformsArray);
}

void readPinsArrayValue(Pelmor::AnyValue& value, VDataHandle& handle, const VPlug& plug) {
    readIntoHolder(value, handle, plug, &readPinsArray);
}

void readInputsJointsArrayValue(Pelmor::AnyValue& value, VDataHandle& handle, const VPlug& plug) {
    readIntoHolder(value, handle, plug, &readInputsJointsArray);
}

void readInputsControlsArrayValue(Pelmor::AnyValue& value, VDataHandle& handle, const VPlug& plug) {
    readIntoHolder(value, handle, plug, &readInputsControlsArray);
}

void readInputsArrayValue(Pelmor::AnyValue& value, VDataHandle& handle, const VPlug& plug) {
    readIntoHolder(value, handle, plug, &readInputsArray);
}

void readOutputsArrayValue(Pelmor::AnyValue& value, VDataHandle& handle, const VPlug& plug) {
    readIntoHolder(value, handle, plug, &readOutputsArray);
}

}  // namespace Rigging::Module
