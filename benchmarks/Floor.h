// The floor under reading and writing: straight-line programs that make the host calls that
// carrying a value takes and fill, or empty, plain standard containers. Nothing shared, nothing
// held, nothing of the product's.
#pragma once

#include <OpenVornik/VDataBlock.h>
#include <OpenVornik/VDataHandle.h>
#include <OpenVornik/VPlug.h>

#include <array>
#include <string>
#include <vector>

namespace Floor {

// Left uninitialised until it is read.
struct Matrix {
    Matrix() {}
    std::array<double, 16> values;
};

struct Transform {
    std::array<Matrix, 8> matrices;
};

struct NamedTransforms {
    std::vector<std::string> names;
    std::vector<Transform> transforms;
};

struct Pins {
    std::vector<std::string> names;
    std::vector<Matrix> matrices;
};

struct InputsJoints {
    std::vector<std::string> names;
    std::vector<Matrix> matrices;
    NamedTransforms namedTransforms;
};

struct InputsControls {
    std::vector<std::string> names;
    std::vector<Matrix> matrices;
    std::vector<double> weights;
    NamedTransforms namedTransforms;
};

struct Inputs {
    Pins pins;
    InputsJoints joints;
    InputsControls controls0;
    InputsControls controls1;
};

struct Outputs {
    std::string name;
    Pins pins;
    NamedTransforms namedTransforms0;
    NamedTransforms namedTransforms1;
    NamedTransforms namedTransforms2;
};

void read(VDataHandle handle, VPlug plug, Transform& transform);
void read(VDataHandle handle, VPlug plug, NamedTransforms& record);
void read(VDataHandle handle, VPlug plug, Pins& record);
void read(VDataHandle handle, VPlug plug, InputsJoints& record);
void read(VDataHandle handle, VPlug plug, InputsControls& record);
void read(VDataHandle handle, VPlug plug, Inputs& record);
void read(VDataHandle handle, VPlug plug, Outputs& record);

void write(const Transform& transform, VDataHandle handle, VPlug plug);
void write(const NamedTransforms& record, VDataHandle handle, VPlug plug);
void write(const Pins& record, VDataHandle handle, VPlug plug);
void write(const InputsJoints& record, VDataHandle handle, VPlug plug);
void write(const InputsControls& record, VDataHandle handle, VPlug plug);
void write(const Inputs& record, VDataHandle handle, VPlug plug);
void write(const Outputs& record, VDataHandle handle, VPlug plug);

// The arrays are replaced by new ones.
void read(VDataHandle handle, VPlug plug, std::vector<Transform>& records);
void read(VDataHandle handle, VPlug plug, std::vector<NamedTransforms>& records);
void read(VDataHandle handle, VPlug plug, std::vector<Pins>& records);
void read(VDataHandle handle, VPlug plug, std::vector<InputsJoints>& records);
void read(VDataHandle handle, VPlug plug, std::vector<InputsControls>& records);
void read(VDataHandle handle, VPlug plug, std::vector<Inputs>& records);
void read(VDataHandle handle, VPlug plug, std::vector<Outputs>& records);

void write(const std::vector<Transform>& records, VDataHandle handle, VPlug plug);
void write(const std::vector<NamedTransforms>& records, VDataHandle handle, VPlug plug);
void write(const std::vector<Pins>& records, VDataHandle handle, VPlug plug);
void write(const std::vector<InputsJoints>& records, VDataHandle handle, VPlug plug);
void write(const std::vector<InputsControls>& records, VDataHandle handle, VPlug plug);
void write(const std::vector<Inputs>& records, VDataHandle handle, VPlug plug);
void write(const std::vector<Outputs>& records, VDataHandle handle, VPlug plug);

// A whole port, with the calls that come before and after its value.
template <typename Value>
Value readPort(VDataBlock& block, VPlug plug) {
    Value value{};
    read(block.inputValue(plug), plug, value);
    return value;
}

template <typename Value>
void writePort(const Value& value, VDataBlock& block, VPlug plug) {
    write(value, block.outputValue(plug), plug);
    block.setClean(plug.attribute());
}

}  // namespace Floor
