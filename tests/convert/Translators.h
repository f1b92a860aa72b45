// The product's readers and writers, by the type that they are for, so that a test can be written
// once for all of them.
#pragma once

#include "convert/ReadArrays.h"
#include "convert/ReadRecords.h"
#include "convert/WriteArrays.h"
#include "convert/WriteFromAny.h"
#include "convert/WriteRecords.h"

#include <string>
#include <type_traits>

#include <gtest/gtest.h>

namespace TestSupport {

using namespace Rigging::Module;

// `readArray` and `writeArray` for each type of element; for a record also `read`, `write` and the
// functions that a holder goes through.
template <typename T>
struct Translators;

template <>
struct Translators<Pelmor::String> {
    static constexpr const char* name = "String";
    static constexpr auto readArray = &readStringArray;
    static constexpr auto writeArray = &writeStringArray;
};

template <>
struct Translators<Math::double4x4> {
    static constexpr const char* name = "Matrix";
    static constexpr auto readArray = &readMatrixArray;
    static constexpr auto writeArray = &writeMatrixArray;
};

template <>
struct Translators<double> {
    static constexpr const char* name = "Double";
    static constexpr auto readArray = &readDoubleArray;
    static constexpr auto writeArray = &writeDoubleArray;
};

template <>
struct Translators<Transform> {
    static constexpr const char* name = "Transform";
    static constexpr auto read = &readTransform;
    static constexpr auto readArray = &readTransformArray;
    static constexpr auto readValue = &readTransformValue;
    static constexpr auto readArrayValue = &readTransformArrayValue;
    static constexpr auto write = &writeTransform;
    static constexpr auto writeArray = &writeTransformArray;
    static constexpr auto writeValue = &writeFromAny<Transform, writeTransform>;
    static constexpr auto writeArrayValue =
        &writeFromAny<Pelmor::SharedArray<Transform>, writeTransformArray>;
};

template <>
struct Translators<NamedTransforms> {
    static constexpr const char* name = "NamedTransforms";
    static constexpr auto read = &readNamedTransforms;
    static constexpr auto readArray = &readNamedTransformsArray;
    static constexpr auto readValue = &readNamedTransformsValue;
    static constexpr auto readArrayValue = &readNamedTransformsArrayValue;
    static constexpr auto write = &writeNamedTransforms;
    static constexpr auto writeArray = &writeNamedTransformsArray;
    static constexpr auto writeValue = &writeFromAny<NamedTransforms, writeNamedTransforms>;
    static constexpr auto writeArrayValue =
        &writeFromAny<Pelmor::SharedArray<NamedTransforms>, writeNamedTransformsArray>;
};

template <>
struct Translators<Pins> {
    static constexpr const char* name = "Pins";
    static constexpr auto read = &readPins;
    static constexpr auto readArray = &readPinsArray;
    static constexpr auto readValue = &readPinsValue;
    static constexpr auto readArrayValue = &readPinsArrayValue;
    static constexpr auto write = &writePins;
    static constexpr auto writeArray = &writePinsArray;
    static constexpr auto writeValue = &writeFromAny<Pins, writePins>;
    static constexpr auto writeArrayValue =
        &writeFromAny<Pelmor::SharedArray<Pins>, writePinsArray>;
};

template <>
struct Translators<InputsJoints> {
    static constexpr const char* name = "InputsJoints";
    static constexpr auto read = &readInputsJoints;
    static constexpr auto readArray = &readInputsJointsArray;
    static constexpr auto readValue = &readInputsJointsValue;
    static constexpr auto readArrayValue = &readInputsJointsArrayValue;
    static constexpr auto write = &writeInputsJoints;
    static constexpr auto writeArray = &writeInputsJointsArray;
    static constexpr auto writeValue = &writeFromAny<InputsJoints, writeInputsJoints>;
    static constexpr auto writeArrayValue =
        &writeFromAny<Pelmor::SharedArray<InputsJoints>, writeInputsJointsArray>;
};

template <>
struct Translators<InputsControls> {
    static constexpr const char* name = "InputsControls";
    static constexpr auto read = &readInputsControls;
    static constexpr auto readArray = &readInputsControlsArray;
    static constexpr auto readValue = &readInputsControlsValue;
    static constexpr auto readArrayValue = &readInputsControlsArrayValue;
    static constexpr auto write = &writeInputsControls;
    static constexpr auto writeArray = &writeInputsControlsArray;
    static constexpr auto writeValue = &writeFromAny<InputsControls, writeInputsControls>;
    static constexpr auto writeArrayValue =
        &writeFromAny<Pelmor::SharedArray<InputsControls>, writeInputsControlsArray>;
};

template <>
struct Translators<Inputs> {
    static constexpr const char* name = "Inputs";
    static constexpr auto read = &readInputs;
    static constexpr auto readArray = &readInputsArray;
    static constexpr auto readValue = &readInputsValue;
    static constexpr auto readArrayValue = &readInputsArrayValue;
    static constexpr auto write = &writeInputs;
    static constexpr auto writeArray = &writeInputsArray;
    static constexpr auto writeValue = &writeFromAny<Inputs, writeInputs>;
    static constexpr auto writeArrayValue =
        &writeFromAny<Pelmor::SharedArray<Inputs>, writeInputsArray>;
};

template <>
struct Translators<Outputs> {
    static constexpr const char* name = "Outputs";
    static constexpr auto read = &readOutputs;
    static constexpr auto readArray = &readOutputsArray;
    static constexpr auto readValue = &readOutputsValue;
    static constexpr auto readArrayValue = &readOutputsArrayValue;
    static constexpr auto write = &writeOutputs;
    static constexpr auto writeArray = &writeOutputsArray;
    static constexpr auto writeValue = &writeFromAny<Outputs, writeOutputs>;
    static constexpr auto writeArrayValue =
        &writeFromAny<Pelmor::SharedArray<Outputs>, writeOutputsArray>;
};

using RecordTypes =
    testing::Types<Transform, NamedTransforms, Pins, InputsJoints, InputsControls, Inputs, Outputs>;
using ElementTypes =
    testing::Types<Pelmor::String, Math::double4x4, double, Transform, NamedTransforms, Pins,
                   InputsJoints, InputsControls, Inputs, Outputs>;

using RecordTypesWithArrays =
    testing::Types<NamedTransforms, Pins, InputsJoints, InputsControls, Inputs, Outputs>;
using TypesWithObjects = testing::Types<Inputs, Outputs>;

// Elements that are no records.
template <typename Element>
constexpr bool kIsPlain =
    std::is_same_v<Element, Pelmor::String> || std::is_same_v<Element, Math::double4x4> ||
    std::is_same_v<Element, double>;

// The same by what a holder holds: a record, or a shared array of records.
template <typename Record>
struct HeldTranslators {
    static constexpr bool isArray = false;
    using Element = Record;
    // Holds the same records in the other way.
    using Other = Pelmor::SharedArray<Record>;
    static constexpr auto read = Translators<Record>::readValue;
    static constexpr auto write = Translators<Record>::writeValue;
};

template <typename Record>
struct HeldTranslators<Pelmor::SharedArray<Record>> {
    static constexpr bool isArray = true;
    using Element = Record;
    using Other = Record;
    static constexpr auto read = Translators<Record>::readArrayValue;
    static constexpr auto write = Translators<Record>::writeArrayValue;
};

using HeldTypes =
    testing::Types<Transform, NamedTransforms, Pins, InputsJoints, InputsControls, Inputs, Outputs,
                   Pelmor::SharedArray<Transform>, Pelmor::SharedArray<NamedTransforms>,
                   Pelmor::SharedArray<Pins>, Pelmor::SharedArray<InputsJoints>,
                   Pelmor::SharedArray<InputsControls>, Pelmor::SharedArray<Inputs>,
                   Pelmor::SharedArray<Outputs>>;

struct NameOfType {
    template <typename T>
    static std::string GetName(int) {
        return Translators<T>::name;
    }
};

struct NameOfHeldType {
    template <typename Held>
    static std::string GetName(int) {
        using Of = HeldTranslators<Held>;
        return std::string(Of::isArray ? "ArrayOf" : "") + Translators<typename Of::Element>::name;
    }
};

}  // namespace TestSupport
