// The records that the plugin carries, and their readers and writers by name: references to the
// walks themselves, compiled once, in Records.cpp.
#pragma once

#include <Rigging/Inputs.h>
#include <Rigging/InputsControls.h>
#include <Rigging/InputsJoints.h>
#include <Rigging/NamedTransforms.h>
#include <Rigging/Outputs.h>
#include <Rigging/Pins.h>
#include <Rigging/Transform.h>
#include <Tolvane/convert/Translators.h>
#include <Tolvane/record/RecordList.h>

namespace Rigging::Module {

using Core::Transform::Transform;

using Records = Tolvane::RecordList<Transform, NamedTransforms, Pins, InputsJoints, InputsControls,
                                    Inputs, Outputs>;

}  // namespace Rigging::Module

extern template struct Tolvane::Translators<Rigging::Module::Transform>;
extern template struct Tolvane::Translators<Rigging::Module::NamedTransforms>;
extern template struct Tolvane::Translators<Rigging::Module::Pins>;
extern template struct Tolvane::Translators<Rigging::Module::InputsJoints>;
extern template struct Tolvane::Translators<Rigging::Module::InputsControls>;
extern template struct Tolvane::Translators<Rigging::Module::Inputs>;
extern template struct Tolvane::Translators<Rigging::Module::Outputs>;

namespace Rigging::Module {

inline constexpr auto& readTransform = Tolvane::Translators<Transform>::read;
inline constexpr auto& readTransformArray = Tolvane::Translators<Transform>::readArray;
inline constexpr auto& readTransformValue = Tolvane::Translators<Transform>::readValue;
inline constexpr auto& readTransformArrayValue = Tolvane::Translators<Transform>::readArrayValue;
inline constexpr auto& writeTransform = Tolvane::Translators<Transform>::write;
inline constexpr auto& writeTransformArray = Tolvane::Translators<Transform>::writeArray;

inline constexpr auto& readNamedTransforms = Tolvane::Translators<NamedTransforms>::read;
inline constexpr auto& readNamedTransformsArray = Tolvane::Translators<NamedTransforms>::readArray;
inline constexpr auto& readNamedTransformsValue = Tolvane::Translators<NamedTransforms>::readValue;
inline constexpr auto& readNamedTransformsArrayValue =
    Tolvane::Translators<NamedTransforms>::readArrayValue;
inline constexpr auto& writeNamedTransforms = Tolvane::Translators<NamedTransforms>::write;
inline constexpr auto& writeNamedTransformsArray =
    Tolvane::Translators<NamedTransforms>::writeArray;

inline constexpr auto& readPins = Tolvane::Translators<Pins>::read;
inline constexpr auto& readPinsArray = Tolvane::Translators<Pins>::readArray;
inline constexpr auto& readPinsValue = Tolvane::Translators<Pins>::readValue;
inline constexpr auto& readPinsArrayValue = Tolvane::Translators<Pins>::readArrayValue;
inline constexpr auto& writePins = Tolvane::Translators<Pins>::write;
inline constexpr auto& writePinsArray = Tolvane::Translators<Pins>::writeArray;

inline constexpr auto& readInputsJoints = Tolvane::Translators<InputsJoints>::read;
inline constexpr auto& readInputsJointsArray = Tolvane::Translators<InputsJoints>::readArray;
inline constexpr auto& readInputsJointsValue = Tolvane::Translators<InputsJoints>::readValue;
inline constexpr auto& readInputsJointsArrayValue =
    Tolvane::Translators<InputsJoints>::readArrayValue;
inline constexpr auto& writeInputsJoints = Tolvane::Translators<InputsJoints>::write;
inline constexpr auto& writeInputsJointsArray = Tolvane::Translators<InputsJoints>::writeArray;

inline constexpr auto& readInputsControls = Tolvane::Translators<InputsControls>::read;
inline constexpr auto& readInputsControlsArray = Tolvane::Translators<InputsControls>::readArray;
inline constexpr auto& readInputsControlsValue = Tolvane::Translators<InputsControls>::readValue;
inline constexpr auto& readInputsControlsArrayValue =
    Tolvane::Translators<InputsControls>::readArrayValue;
inline constexpr auto& writeInputsControls = Tolvane::Translators<InputsControls>::write;
inline constexpr auto& writeInputsControlsArray = Tolvane::Translators<InputsControls>::writeArray;

inline constexpr auto& readInputs = Tolvane::Translators<Inputs>::read;
inline constexpr auto& readInputsArray = Tolvane::Translators<Inputs>::readArray;
inline constexpr auto& readInputsValue = Tolvane::Translators<Inputs>::readValue;
inline constexpr auto& readInputsArrayValue = Tolvane::Translators<Inputs>::readArrayValue;
inline constexpr auto& writeInputs = Tolvane::Translators<Inputs>::write;
inline constexpr auto& writeInputsArray = Tolvane::Translators<Inputs>::writeArray;

inline constexpr auto& readOutputs = Tolvane::Translators<Outputs>::read;
inline constexpr auto& readOutputsArray = Tolvane::Translators<Outputs>::readArray;
inline constexpr auto& readOutputsValue = Tolvane::Translators<Outputs>::readValue;
inline constexpr auto& readOutputsArrayValue = Tolvane::Translators<Outputs>::readArrayValue;
inline constexpr auto& writeOutputs = Tolvane::Translators<Outputs>::write;
inline constexpr auto& writeOutputsArray = Tolvane::Translators<Outputs>::writeArray;

}  // namespace Rigging::Module
