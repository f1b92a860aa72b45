// Writes the graph's arrays to the host's array data: the host array takes the length of the
// graph's and is marked clean. A null array changes nothing. They throw std::runtime_error, "Cannot
// get handle on array element !" or "Cannot remove element from array"; the host array is then
// marked clean by nobody, and not replaced where it was to change its length. [evaluation thread]
#pragma once

#include "types/Records.h"

#include <OpenVornik/VDataHandle.h>
#include <OpenVornik/VPlug.h>
#include <Pelmor/Array.h>

namespace Rigging::Module {

void writeStringArray(const Pelmor::SharedArray<Pelmor::String>& array, VDataHandle& handle,
                      const VPlug& plug);
void writeMatrixArray(const Pelmor::SharedArray<Math::double4x4>& array, VDataHandle& handle,
                      const VPlug& plug);
void writeDoubleArray(const Pelmor::SharedArray<double>& array, VDataHandle& handle,
                      const VPlug& plug);
void writeTransformArray(const Pelmor::SharedArray<Transform>& array, VDataHandle& handle,
                         const VPlug& plug);
void writeNamedTransformsArray(const Pelmor::SharedArray<NamedTransforms>& array,
                               VDataHandle& handle, const VPlug& plug);
void writePinsArray(const Pelmor::SharedArray<Pins>& array, VDataHandle& handle, const VPlug& plug);
void writeInputsJointsArray(const Pelmor::SharedArray<InputsJoints>& array, VDataHandle& handle,
                            const VPlug& plug);
void writeInputsControlsArray(const Pelmor::SharedArray<InputsControls>& array, VDataHandle& handle,
                              const VPlug& plug);
void writeInputsArray(const Pelmor::SharedArray<Inputs>& array, VDataHandle& handle,
                      const VPlug& plug);
void writeOutputsArray(const Pelmor::SharedArray<Outputs>& array, VDataHandle& handle,
                       const VPlug& plug);

}  // namespace Rigging::Module
