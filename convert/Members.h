// Which members of each record cross the boundary between graph and host, and in which order:
// member i of the list is child i of the record's compound attribute. The object members are not
// listed; they stand behind the others and stay in the graph.
#pragma once

#include "types/Records.h"

#include <tuple>
#include <type_traits>

namespace Rigging::Module {

// Specialised for records alone: `list` holds the pointers to the members that cross, in order.
template <typename Record>
struct Members;

template <typename T, typename = void>
inline constexpr bool kIsRecord = false;
template <typename T>
inline constexpr bool kIsRecord<T, std::void_t<decltype(Members<T>::list)>> = true;

template <>
struct Members<Transform> {
    static constexpr auto list = std::make_tuple(
        &Transform::matrix0, &Transform::matrix1, &Transform::matrix2, &Transform::matrix3,
        &Transform::matrix4, &Transform::matrix5, &Transform::matrix6, &Transform::matrix7);
};

template <>
struct Members<NamedTransforms> {
    static constexpr auto list =
        std::make_tuple(&NamedTransforms::names, &NamedTransforms::transforms);
};

template <>
struct Members<Pins> {
    static constexpr auto list = std::make_tuple(&Pins::names, &Pins::matrices);
};

template <>
struct Members<InputsJoints> {
    static constexpr auto list = std::make_tuple(&InputsJoints::names, &InputsJoints::matrices,
                                                 &InputsJoints::namedTransforms);
};

template <>
struct Members<InputsControls> {
    static constexpr auto list =
        std::make_tuple(&InputsControls::names, &InputsControls::matrices, &InputsControls::weights,
                        &InputsControls::namedTransforms);
};

template <>
struct Members<Inputs> {
    static constexpr auto list =
        std::make_tuple(&Inputs::pins, &Inputs::joints, &Inputs::controls0, &Inputs::controls1);
};

template <>
struct Members<Outputs> {
    static constexpr auto list =
        std::make_tuple(&Outputs::name, &Outputs::pins, &Outputs::namedTransforms0,
                        &Outputs::namedTransforms1, &Outputs::namedTransforms2);
};

}  // namespace Rigging::Module
