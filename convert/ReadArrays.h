// Reads the host's array data: the arrays that records hold and the arrays of records. Nothing is
// reported: where the host's walk ends early, the remaining elements have their defaults.
// [evaluation thread]
#pragma once

#include "types/Records.h"

#include <OpenVornik/VDataHandle.h>
#include <OpenVornik/VPlug.h>
#include <Pelmor/AnyValue.h>
#include <Pelmor/Array.h>

namespace Rigging::Module {

// Each replaces `array` by a new array of the host's elements, dense and in the host's order, once
// all of them are read.
void readStringArray(VDataHandle& handle, const VPlug& plug,
                     Pelmor::SharedArray<Pelmor::String>& array);
void readMatrixArray(VDataHandle& handle, const VPlug& plug,
                     Pelmor::SharedArray<Math::double4x4>& array);
void readDoubleArray(VDataHandle& handle, const VPlug& plug, Pelmor::SharedArray<double>& array);
void readTransformArray(VDataHandle& handle, const VPlug& plug,
                        Pelmor::SharedArray<Transform>& array);
void readNamedTransformsArray(VDataHandle& handle, const VPlug& plug,
                              Pelmor::SharedArray<NamedTransforms>& array);
void readPinsArray(VDataHandle& handle, const VPlug& plug, Pelmor::SharedArray<Pins>& array);
void readInputsJointsArray(VDataHandle& handle, const VPlug& plug,
                           Pelmor::SharedArray<InputsJoints>& array);
void readInputsControlsArray(VDataHandle& handle, const VPlug& plug,
                             Pelmor::SharedArray<InputsControls>& array);
void readInputsArray(VDataHandle& handle, const VPlug& plug, Pelmor::SharedArray<Inputs>& array);
void readOutputsArray(VDataHandle& handle, const VPlug& plug, Pelmor::SharedArray<Outputs>& array);

// What the registry files for the type of an array of records: each reads a new shared array and
// puts it into `value`, whose former content is destroyed first.
void readTransformArrayValue(Pelmor::AnyValue& value, VDataHandle& handle, const VPlug& plug);
void readNamedTransformsArrayValue(Pelmor::AnyValue& value, VDataHandle& handle, const VPlug& plug);
void readPinsArrayValue(Pelmor::AnyValue& value, VDataHandle& handle, const VPlug& plug);
void readInputsJointsArrayValue(Pelmor::AnyValue& value, VDataHandle& handle, const VPlug& plug);
void readInputsControlsArrayValue(Pelmor::AnyValue& value, VDataHandle& handle, const VPlug& plug);
void readInputsArrayValue(Pelmor::AnyValue& value, VDataHandle& handle, const VPlug& plug);
void readOutputsArrayValue(Pelmor::AnyValue& value, VDataHandle& handle, const VPlug& plug);

}  // namespace Rigging::Module
