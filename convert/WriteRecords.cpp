#include "convert/WriteRecords.h"

#include "convert/WriteMembers.h"

namespace Rigging::Module {

void writeTransform(const Transform& record, VDataHandle& handle, const VPlug& plug) {
    writeMembers(record, handle, plug);
}

void writeNamedTransforms(const NamedTransforms& record, VDataHandle& handle, const VPlug& plug) {
    writeMembers(record, handle, plug);
}

void writePins(const Pins& record, VDataHandle& handle, const VPlug& plug) {
    writeMembers(record, handle, plug);
}

void writeInputsJoints(const InputsJoints& record, VDataHandle& handle, const VPlug& plug) {
    writeMembers(record, handle, plug);
}

void writeInputsControls(const InputsControls& record, VDataHandle& handle, const VPlug& plug) {
    writeMembers(record, handle, plug);
}

void writeInputs(const Inputs& record, VDataHandle& handle, const VPlug& plug) {
    writeMembers(record, handle, plug);
}

void writeOutputs(const Outputs& record, VDataHandle& handle, const VPlug& plug) {
    writeMembers(record, handle, plug);
}

}  // namespace Rigging::Module
