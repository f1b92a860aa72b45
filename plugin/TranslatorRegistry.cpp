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

// What carries one record type, and what carries the arrays of it.
struct TranslatorRow {
    const char* typeName;
    HostReader read;
    HostReader readArray;
    const TypeInfo* identity;
    HostWriter write;
    const TypeInfo* arrayIdentity;
    HostWriter writeArray;
};

namespace {

template <typename Record, auto write, auto writeArray>
constexpr TranslatorRow rowOf(const char* typeName, HostReader read, HostReader readArray) {
    using Array = SharedArray<Record>;
    return {typeName,
            read,
            readArray,
            &HeldIdentity<Record>::s_record,
            &writeFromAny<Record, write>,
            &HeldIdentity<Array>::s_record,
            &writeFromAny<Array, writeArray>};
}

constexpr TranslatorRow kRows[] = {
    rowOf<Transform, writeTransform, writeTransformArray>(
        "Core::Transform::Transform", readTransformValue, readTransformArrayValue),
    rowOf<NamedTransforms, writeNamedTransforms, writeNamedTransformsArray>(
        "Rigging::Module::NamedTransforms", readNamedTransformsValue,
        readNamedTransformsArrayValue),
    rowOf<Pins, writePins, writePinsArray>("Rigging::Module::Pins", readPinsValue,
                                           readPinsArrayValue),
    rowOf<InputsJoints, writeInputsJoints, writeInputsJointsArray>(
        "Rigging::Module::InputsJoints", readInputsJointsValue, readInputsJointsArrayValue),
    rowOf<InputsControls, writeInputsControls, writeInputsControlsArray>(
        "Rigging::Module::InputsControls", readInputsControlsValue, readInputsControlsArrayValue),
    rowOf<Inputs, writeInputs, writeInputsArray>("Rigging::Module::Inputs", readInputsValue,
                                                 readInputsArrayValue),
    rowOf<Outputs, writeOutputs, writeOutputsArray>("Rigging::Module::Outputs", readOutputsValue,
                                                    readOutputsArrayValue),
};

}  // namespace

const TranslatorRegistry& TranslatorRegistry::instance() {
    static const TranslatorRegistry s_instance;
    return s_instance;
}

TranslatorRegistry::TranslatorRegistry() {
    for (const TranslatorRow& row : kRows) registerTranslators(row);
}

void TranslatorRegistry::registerTranslators(const TranslatorRow& row) {
    m_writers.insert_or_assign(row.identity, row.write);
    m_writers.insert_or_assign(row.arrayIdentity, row.writeArray);
    m_readers.insert_or_assign(row.typeName, row.read);
    // The form in which the graph library reports the names of array types, to the character.
    m_readers.insert_or_assign(Pelmor::String("array<") + row.typeName + ">", row.readArray);
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
