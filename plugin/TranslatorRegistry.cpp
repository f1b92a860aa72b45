#include "plugin/TranslatorRegistry.h"

#include "convert/ReadArrays.h"
#include "convert/ReadRecords.h"
#include "convert/WriteArrays.h"
#include "convert/WriteFromAny.h"
#include "convert/WriteRecords.h"
#include "types/Records.h"

#include <Pelmor/Array.h>

namespace Rigging::Module {

using Pelmor::SharedArray;
using Pelmor::Internal::HeldIdentity;
using Pelmor::Internal::TypeInfo;

const TranslatorRegistry& TranslatorRegistry::instance() {
    static const TranslatorRegistry s_instance;
    return s_instance;
}

TranslatorRegistry::TranslatorRegistry() {
    registerTranslators<Transform, writeTransform, writeTransformArray>(
        "Core::Transform::Transform", readTransformValue, readTransformArrayValue);
    registerTranslators<NamedTransforms, writeNamedTransforms, writeNamedTransformsArray>(
        "Rigging::Module::NamedTransforms", readNamedTransformsValue,
        readNamedTransformsArrayValue);
    registerTranslators<Pins, writePins, writePinsArray>("Rigging::Module::Pins", readPinsValue,
                                                         readPinsArrayValue);
    registerTranslators<InputsJoints, writeInputsJoints, writeInputsJointsArray>(
        "Rigging::Module::InputsJoints", readInputsJointsValue, readInputsJointsArrayValue);
    registerTranslators<InputsControls, writeInputsControls, writeInputsControlsArray>(
        "Rigging::Module::InputsControls", readInputsControlsValue, readInputsControlsArrayValue);
    registerTranslators<Inputs, writeInputs, writeInputsArray>(
        "Rigging::Module::Inputs", readInputsValue, readInputsArrayValue);
    registerTranslators<Outputs, writeOutputs, writeOutputsArray>(
        "Rigging::Module::Outputs", readOutputsValue, readOutputsArrayValue);
}

template <typename Record, auto write, auto writeArray>
void TranslatorRegistry::registerTranslators(const char* typeName, HostReader read,
                                             HostReader readArray) {
    using Array = SharedArray<Record>;
    m_writers.insert_or_assign(&HeldIdentity<Record>::s_record, &writeFromAny<Record, write>);
    m_writers.insert_or_assign(&HeldIdentity<Array>::s_record, &writeFromAny<Array, writeArray>);
    m_readers.insert_or_assign(typeName, read);
    // The form in which the graph library reports the names of array types, to the character.
    m_readers.insert_or_assign(Pelmor::String("array<") + typeName + ">", readArray);
}

HostReader TranslatorRegistry::findReader(const Pelmor::String& typeName) const noexcept {
    const auto found = m_readers.find(typeName);
    return found == m_readers.end() ? nullptr : found->second;
}

HostWriter TranslatorRegistry::findWriter(const TypeInfo& identity) const noexcept {
    const auto found = m_writers.find(&identity);
    return found == m_writers.end() ? nullptr : found->second;
}

}  // namespace Rigging::Module
