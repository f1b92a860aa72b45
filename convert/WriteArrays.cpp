#include "convert/WriteArrays.h"

#include "convert/WriteMembers.h"

namespace Rigging::Module {

void writeStringArray(const Pelmor::SharedArray<Pelmor::String>& array, VDataHandle& handle,
                      const VPlug& plug) {
    writeArray(array, handle, plug);
}

void writeMatrixArray(const Pelmor::SharedArray<Math::double4x4>& array, VDataHandle& handle,
                      const VPlug& plug) {
    writeArray(array, handle, plug);
}

void writeDoubleArray(const Pelmor::SharedArray<double>& array, VDataHandle& handle,
                      const VPlug& plug) {
    writeArray(array, handle, plug);
}

void writeTransformArray(const Pelmor::SharedArray<Transform>& array, VDataHandle& handle,
                         const VPlug& plug) {
    writeArray(array, handle, plug);
}

void writeNamedTransformsArray(const Pelmor::SharedArray<NamedTransforms>& array,
                               VDataHandle& handle, const VPlug& plug) {
    writeArray(array, handle, plug);
}

void writePinsArray(const Pelmor::SharedArray<Pins>& array, VDataHandle& handle,
                    const VPlug& plug) {
    writeArray(array, handle, plug);
}

void writeInputsJointsArray(const Pelmor::SharedArray<InputsJoints>& array, VDataHandle& handle,
                            const VPlug& plug) {
    writeArray(array, handle, plug);
}

void writeInputsControlsArray(const Pelmor::SharedArray<InputsControls>& array, VDataHandle& handle,
                              const VPlug& plug) {
    writeArray(array, handle, plug);
}

void writeInputsArray(const Pelmor::SharedArray<Inputs>& array, VDataHandle& handle,
                      const VPlug& plug) {
    writeArray(array, handle, plug);
}

void writeOutputsArray(const Pelmor::SharedArray<Outputs>& array, VDataHandle& handle,
                       const VPlug& plug) {
    writeArray(array, handle, plug);
}

}  // namespace Rigging::Module
