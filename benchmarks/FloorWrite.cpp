#include "benchmarks/Floor.h"

#include <OpenVornik/VArrayDataBuilder.h>
#include <OpenVornik/VArrayDataHandle.h>
#include <OpenVornik/VString.h>

#include <cstring>
#include <stdexcept>

namespace Floor {
namespace {

template <typename Element, typename WriteElement>
void writeArray(const std::vector<Element>& array, VDataHandle& handle, WriteElement write) {
    VArrayDataHandle destination(handle);
    const auto size = static_cast<unsigned>(array.size());
    if (size == destination.elementCount()) {
        VStatus status;
        for (unsigned k = 0; k < size; ++k) {
            VDataHandle element = destination.outputValue(&status);
            if (status.error()) throw std::runtime_error("an element is missing");
            write(array[k], element, k);
            destination.next();
        }
    } else {
        VArrayDataBuilder builder = destination.builder();
        for (unsigned k = 0; k < size; ++k) {
            VDataHandle element = builder.addElement(k);
            write(array[k], element, k);
        }
        const unsigned count = builder.elementCount();
        for (unsigned k = size; k < count; ++k)
            if (builder.removeElement(k).error()) throw std::runtime_error("an element stays");
        destination.set(builder);
    }
    destination.setAllClean();
}

void writeTexts(const std::vector<std::string>& texts, VDataHandle handle) {
    writeArray(texts, handle, [](const std::string& text, VDataHandle& element, unsigned) {
        element.setString(VString(text.c_str()));
    });
}

void writeMatrices(const std::vector<Matrix>& matrices, VDataHandle handle) {
    writeArray(matrices, handle, [](const Matrix& matrix, VDataHandle& element, unsigned) {
        std::memcpy(element.asMatrix().matrix, matrix.values.data(), sizeof(Matrix));
    });
}

void writeNumbers(const std::vector<double>& numbers, VDataHandle handle) {
    writeArray(numbers, handle, [](const double& number, VDataHandle& element, unsigned) {
        element.setDouble(number);
    });
}

template <typename Record>
void writeRecords(const std::vector<Record>& records, VDataHandle& handle, VPlug plug) {
    writeArray(records, handle, [&plug](const Record& record, VDataHandle& element, unsigned k) {
        write(record, element, plug.elementByLogicalIndex(k));
    });
}

}  // namespace

void write(const Transform& transform, VDataHandle handle, VPlug plug) {
    for (unsigned i = 0; i < 8; ++i)
        std::memcpy(handle.child(plug.child(i)).asMatrix().matrix,
                    transform.matrices[i].values.data(), sizeof(Matrix));
}

void write(const NamedTransforms& record, VDataHandle handle, VPlug plug) {
    writeTexts(record.names, handle.child(plug.child(0)));
    VPlug transforms = plug.child(1);
    write(record.transforms, handle.child(transforms), transforms);
}

void write(const Pins& record, VDataHandle handle, VPlug plug) {
    writeTexts(record.names, handle.child(plug.child(0)));
    writeMatrices(record.matrices, handle.child(plug.child(1)));
}

void write(const InputsJoints& record, VDataHandle handle, VPlug plug) {
    writeTexts(record.names, handle.child(plug.child(0)));
    writeMatrices(record.matrices, handle.child(plug.child(1)));
    VPlug namedTransforms = plug.child(2);
    write(record.namedTransforms, handle.child(namedTransforms), namedTransforms);
}

void write(const InputsControls& record, VDataHandle handle, VPlug plug) {
    writeTexts(record.names, handle.child(plug.child(0)));
    writeMatrices(record.matrices, handle.child(plug.child(1)));
    writeNumbers(record.weights, handle.child(plug.child(2)));
    VPlug namedTransforms = plug.child(3);
    write(record.namedTransforms, handle.child(namedTransforms), namedTransforms);
}

void write(const Inputs& record, VDataHandle handle, VPlug plug) {
    VPlug pins = plug.child(0);
    write(record.pins, handle.child(pins), pins);
    VPlug joints = plug.child(1);
    write(record.joints, handle.child(joints), joints);
    VPlug controls0 = plug.child(2);
    write(record.controls0, handle.child(controls0), controls0);
    VPlug controls1 = plug.child(3);
    write(record.controls1, handle.child(controls1), controls1);
}

void write(const Outputs& record, VDataHandle handle, VPlug plug) {
    handle.child(plug.child(0)).setString(VString(record.name.c_str()));
    VPlug pins = plug.child(1);
    write(record.pins, handle.child(pins), pins);
    VPlug namedTransforms0 = plug.child(2);
    write(record.namedTransforms0, handle.child(namedTransforms0), namedTransforms0);
    VPlug namedTransforms1 = plug.child(3);
    write(record.namedTransforms1, handle.child(namedTransforms1), namedTransforms1);
    VPlug namedTransforms2 = plug.child(4);
    write(record.namedTransforms2, handle.child(namedTransforms2), namedTransforms2);
}

void write(const std::vector<Transform>& records, VDataHandle handle, VPlug plug) {
    writeRecords(records, handle, plug);
}

void write(const std::vector<NamedTransforms>& records, VDataHandle handle, VPlug plug) {
    writeRecords(records, handle, plug);
}

void write(const std::vector<Pins>& records, VDataHandle handle, VPlug plug) {
    writeRecords(records, handle, plug);
}

void write(const std::vector<InputsJoints>& records, VDataHandle handle, VPlug plug) {
    writeRecords(records, handle, plug);
}

void write(const std::vector<InputsControls>& records, VDataHandle handle, VPlug plug) {
    writeRecords(records, handle, plug);
}

void write(const std::vector<Inputs>& records, VDataHandle handle, VPlug plug) {
    writeRecords(records, handle, plug);
}

void write(const std::vector<Outputs>& records, VDataHandle handle, VPlug plug) {
    writeRecords(records, handle, plug);
}

}  // namespace Floor
