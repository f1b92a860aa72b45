// The host calls, written short, that writing a record to the element at node.value[0] takes where
// all arrays in it are empty, on both sides.
#pragma once

#include "tests/convert/ShortCalls.h"
#include "types/Records.h"

namespace TestSupport {

using namespace Rigging::Module;

template <typename Record>
constexpr const char* kElementCalls = nullptr;

template <>
constexpr const char* kElementCalls<Transform> = kTransformElement;

template <>
constexpr const char* kElementCalls<NamedTransforms> = R"(
    child node.value[0] 0; data value[] node.value[0].names
    array value[].names; count value[].names; clean value[].names
    child node.value[0] 1; data value[] node.value[0].transforms
    array value[].transforms; count value[].transforms; clean value[].transforms
)";

template <>
constexpr const char* kElementCalls<Pins> = R"(
    child node.value[0] 0; data value[] node.value[0].names
    array value[].names; count value[].names; clean value[].names
    child node.value[0] 1; data value[] node.value[0].matrices
    array value[].matrices; count value[].matrices; clean value[].matrices
)";

template <>
constexpr const char* kElementCalls<InputsJoints> = R"(
    child node.value[0] 0; data value[] node.value[0].names
    array value[].names; count value[].names; clean value[].names
    child node.value[0] 1; data value[] node.value[0].matrices
    array value[].matrices; count value[].matrices; clean value[].matrices
    child node.value[0] 2; data value[] node.value[0].namedTransforms
      child node.value[0].namedTransforms 0
      data value[].namedTransforms node.value[0].namedTransforms.names
      array value[].namedTransforms.names
      count value[].namedTransforms.names
      clean value[].namedTransforms.names
      child node.value[0].namedTransforms 1
      data value[].namedTransforms node.value[0].namedTransforms.transforms
      array value[].namedTransforms.transforms
      count value[].namedTransforms.transforms
      clean value[].namedTransforms.transforms
)";

template <>
constexpr const char* kElementCalls<InputsControls> = R"(
    child node.value[0] 0; data value[] node.value[0].names
    array value[].names; count value[].names; clean value[].names
    child node.value[0] 1; data value[] node.value[0].matrices
    array value[].matrices; count value[].matrices; clean value[].matrices
    child node.value[0] 2; data value[] node.value[0].weights_A
    array value[].weights_A; count value[].weights_A; clean value[].weights_A
    child node.value[0] 3; data value[] node.value[0].namedTransforms
      child node.value[0].namedTransforms 0
      data value[].namedTransforms node.value[0].namedTransforms.names
      array value[].namedTransforms.names
      count value[].namedTransforms.names
      clean value[].namedTransforms.names
      child node.value[0].namedTransforms 1
      data value[].namedTransforms node.value[0].namedTransforms.transforms
      array value[].namedTransforms.transforms
      count value[].namedTransforms.transforms
      clean value[].namedTransforms.transforms
)";

template <>
constexpr const char* kElementCalls<Inputs> = R"(
    child node.value[0] 0; data value[] node.value[0].pins
      child node.value[0].pins 0; data value[].pins node.value[0].pins.names
      array value[].pins.names; count value[].pins.names; clean value[].pins.names
      child node.value[0].pins 1; data value[].pins node.value[0].pins.matrices
      array value[].pins.matrices; count value[].pins.matrices; clean value[].pins.matrices
    child node.value[0] 1; data value[] node.value[0].joints
      child node.value[0].joints 0; data value[].joints node.value[0].joints.names
      array value[].joints.names; count value[].joints.names; clean value[].joints.names
      child node.value[0].joints 1; data value[].joints node.value[0].joints.matrices
      array value[].joints.matrices; count value[].joints.matrices; clean value[].joints.matrices
      child node.value[0].joints 2; data value[].joints node.value[0].joints.namedTransforms
        child node.value[0].joints.namedTransforms 0
        data value[].joints.namedTransforms node.value[0].joints.namedTransforms.names
        array value[].joints.namedTransforms.names
        count value[].joints.namedTransforms.names
        clean value[].joints.namedTransforms.names
        child node.value[0].joints.namedTransforms 1
        data value[].joints.namedTransforms node.value[0].joints.namedTransforms.transforms
        array value[].joints.namedTransforms.transforms
        count value[].joints.namedTransforms.transforms
        clean value[].joints.namedTransforms.transforms
    child node.value[0] 2; data value[] node.value[0].controls0
      child node.value[0].controls0 0; data value[].controls0 node.value[0].controls0.names
      array value[].controls0.names; count value[].controls0.names; clean value[].controls0.names
      child node.value[0].controls0 1; data value[].controls0 node.value[0].controls0.matrices
      array value[].controls0.matrices
      count value[].controls0.matrices
      clean value[].controls0.matrices
      child node.value[0].controls0 2; data value[].controls0 node.value[0].controls0.weights_A
      array value[].controls0.weights_A
      count value[].controls0.weights_A
      clean value[].controls0.weights_A
      child node.value[0].controls0 3
      data value[].controls0 node.value[0].controls0.namedTransforms
        child node.value[0].controls0.namedTransforms 0
        data value[].controls0.namedTransforms node.value[0].controls0.namedTransforms.names
        array value[].controls0.namedTransforms.names
        count value[].controls0.namedTransforms.names
        clean value[].controls0.namedTransforms.names
        child node.value[0].controls0.namedTransforms 1
        data value[].controls0.namedTransforms node.value[0].controls0.namedTransforms.transforms
        array value[].controls0.namedTransforms.transforms
        count value[].controls0.namedTransforms.transforms
        clean value[].controls0.namedTransforms.transforms
    child node.value[0] 3; data value[] node.value[0].controls1
      child node.value[0].controls1 0; data value[].controls1 node.value[0].controls1.names
      array value[].controls1.names; count value[].controls1.names; clean value[].controls1.names
      child node.value[0].controls1 1; data value[].controls1 node.value[0].controls1.matrices
      array value[].controls1.matrices
      count value[].controls1.matrices
      clean value[].controls1.matrices
      child node.value[0].controls1 2; data value[].controls1 node.value[0].controls1.weights_A
      array value[].controls1.weights_A
      count value[].controls1.weights_A
      clean value[].controls1.weights_A
      child node.value[0].controls1 3
      data value[].controls1 node.value[0].controls1.namedTransforms
        child node.value[0].controls1.namedTransforms 0
        data value[].controls1.namedTransforms node.value[0].controls1.namedTransforms.names
        array value[].controls1.namedTransforms.names
        count value[].controls1.namedTransforms.names
        clean value[].controls1.namedTransforms.names
        child node.value[0].controls1.namedTransforms 1
        data value[].controls1.namedTransforms node.value[0].controls1.namedTransforms.transforms
        array value[].controls1.namedTransforms.transforms
        count value[].controls1.namedTransforms.transforms
        clean value[].controls1.namedTransforms.transforms
)";

template <>
constexpr const char* kElementCalls<Outputs> = R"(
    child node.value[0] 0; data value[] node.value[0].name; setString value[].name
    child node.value[0] 1; data value[] node.value[0].pins
      child node.value[0].pins 0; data value[].pins node.value[0].pins.names
      array value[].pins.names; count value[].pins.names; clean value[].pins.names
      child node.value[0].pins 1; data value[].pins node.value[0].pins.matrices
      array value[].pins.matrices; count value[].pins.matrices; clean value[].pins.matrices
    child node.value[0] 2; data value[] node.value[0].namedTransforms0
      child node.value[0].namedTransforms0 0
      data value[].namedTransforms0 node.value[0].namedTransforms0.names
      array value[].namedTransforms0.names
      count value[].namedTransforms0.names
      clean value[].namedTransforms0.names
      child node.value[0].namedTransforms0 1
      data value[].namedTransforms0 node.value[0].namedTransforms0.transforms
      array value[].namedTransforms0.transforms
      count value[].namedTransforms0.transforms
      clean value[].namedTransforms0.transforms
    child node.value[0] 3; data value[] node.value[0].namedTransforms1
      child node.value[0].namedTransforms1 0
      data value[].namedTransforms1 node.value[0].namedTransforms1.names
      array value[].namedTransforms1.names
      count value[].namedTransforms1.names
      clean value[].namedTransforms1.names
      child node.value[0].namedTransforms1 1
      data value[].namedTransforms1 node.value[0].namedTransforms1.transforms
      array value[].namedTransforms1.transforms
      count value[].namedTransforms1.transforms
      clean value[].namedTransforms1.transforms
    child node.value[0] 4; data value[] node.value[0].namedTransforms2
      child node.value[0].namedTransforms2 0
      data value[].namedTransforms2 node.value[0].namedTransforms2.names
      array value[].namedTransforms2.names
      count value[].namedTransforms2.names
      clean value[].namedTransforms2.names
      child node.value[0].namedTransforms2 1
      data value[].namedTransforms2 node.value[0].namedTransforms2.transforms
      array value[].namedTransforms2.transforms
      count value[].namedTransforms2.transforms
      clean value[].namedTransforms2.transforms
)";

}  // namespace TestSupport
