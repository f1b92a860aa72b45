#include "benchmarks/Floor.h"

#include <OpenVornik/VArrayDataHandle.h>

#include <algorithm>
#include <cstring>

namespace Floor {
namespace {

// Prefetches the places of elements that are filled next, in arrays larger than the caches.
template <typename Element>
void fetchAhead(const std::vector<Element>& elements, unsigned count) {
    constexpr std::size_t kAhead = std::max<std::size_t>(2, 2048 / sizeof(Element));
    if (count * sizeof(Element) < std::size_t{1} << 20 || elements.size() + kAhead >= count) return;
    const auto* coming = reinterpret_cast<const char*>(elements.data() + elements.size() + kAhead);
    for (std::size_t i = 0; i < sizeof(Element); i += 64) __builtin_prefetch(coming + i, 1);
}

template <typename Element, typename ReadElement>
void readArray(VDataHandle& handle, std::vector<Element>& array, ReadElement readElement) {
    VArrayDataHandle source(handle);
    const unsigned count = source.elementCount();
    std::vector<Element> elements;
    elements.reserve(count);
    for (unsigned k = 0; k < count; ++k) {
        fetchAhead(elements, count);
        readElement(source.inputValue(), k, elements);
        if (source.next().error()) break;
    }
    array = std::move(elements);
}

void readTexts(VDataHandle handle, std::vector<std::string>& texts) {
    readArray(handle, texts, [](const VDataHandle& element, unsigned, auto& elements) {
        elements.emplace_back(element.asString().asChar());
    });
}

void readMatrices(VDataHandle handle, std::vector<Matrix>& matrices) {
    readArray(handle, matrices, [](const VDataHandle& element, unsigned, auto& elements) {
        std::memcpy(elements.emplace_back().values.data(), element.asMatrix().matrix,
                    sizeof(Matrix));
    });
}

void readNumbers(VDataHandle handle, std::vector<double>& numbers) {
    readArray(handle, numbers, [](const VDataHandle& element, unsigned, auto& elements) {
        elements.push_back(element.asDouble());
    });
}

template <typename Record>
void readRecords(VDataHandle& handle, VPlug plug, std::vector<Record>& records) {
    readArray(handle, records, [&plug](const VDataHandle& element, unsigned k, auto& elements) {
        read(element, plug.elementByLogicalIndex(k), elements.emplace_back());
    });
}

}  // namespace

void read(VDataHandle handle, VPlug plug, Transform& transform) {
    for (unsigned i = 0; i < 8; ++i)
        std::memcpy(transform.matrices[i].values.data(),
                    handle.child(plug.child(i)).asMatrix().matrix, sizeof(Matrix));
}

void read(VDataHandle handle, VPlug plug, NamedTransforms& record) {
    readTexts(handle.child(plug.child(0)), record.names);
    VPlug transforms = plug.child(1);
    read(handle.child(transforms), transforms, record.transforms);
}

void read(VDataHandle handle, VPlug plug, Pins& record) {
    readTexts(handle.child(plug.child(0)), record.names);
    readMatrices(handle.child(plug.child(1)), record.matrices);
}

void read(VDataHandle handle, VPlug plug, InputsJoints& record) {
    readTexts(handle.child(plug.child(0)), record.names);
    readMatrices(handle.child(plug.child(1)), record.matrices);
    VPlug namedTransforms = plug.child(2);
    read(handle.child(namedTransforms), namedTransforms, record.namedTransforms);
}

void read(VDataHandle handle, VPlug plug, InputsControls& record) {
    readTexts(handle.child(plug.child(0)), record.names);
    readMatrices(handle.child(plug.child(1)), record.matrices);
    readNumbers(handle.child(plug.child(2)), record.weights);
    VPlug namedTransforms = plug.child(3);
    read(handle.child(namedTransforms), namedTransforms, record.namedTransforms);
}

void read(VDataHandle handle, VPlug plug, Inputs& record) {
    VPlug pins = plug.child(0);
    read(handle.child(pins), pins, record.pins);
    VPlug joints = plug.child(1);
    read(handle.child(joints), joints, record.joints);
    VPlug controls0 = plug.child(2);
    read(handle.child(controls0), controls0, record.controls0);
    VPlug controls1 = plug.child(3);
    read(handle.child(controls1), controls1, record.controls1);
}

void read(VDataHandle handle, VPlug plug, Outputs& record) {
    record.name = handle.child(plug.child(0)).asString().asChar();
    VPlug pins = plug.child(1);
    read(handle.child(pins), pins, record.pins);
    VPlug namedTransforms0 = plug.child(2);
    read(handle.child(namedTransforms0), namedTransforms0, record.namedTransforms0);
    VPlug namedTransforms1 = plug.child(3);
    read(handle.child(namedTransforms1), namedTransforms1, record.namedTransforms1);
    VPlug namedTransforms2 = plug.child(4);
    read(handle.child(namedTransforms2), namedTransforms2, record.namedTransforms2);
}

void read(VDataHandle handle, VPlug plug, std::vector<Transform>& records) {
    readRecords(handle, plug, records);
}

void read(VDataHandle handle, VPlug plug, std::vector<NamedTransforms>& records) {
    readRecords(handle, plug, records);
}

void read(VDataHandle handle, VPlug plug, std::vector<Pins>& records) {
    readRecords(handle, plug, records);
}

void read(VDataHandle handle, VPlug plug, std::vector<InputsJoints>& records) {
    readRecords(handle, plug, records);
}

void read(VDataHandle handle, VPlug plug, std::vector<InputsControls>& records) {
    readRecords(handle, plug, records);
}

void read(VDataHandle handle, VPlug plug, std::vector<Inputs>& records) {
    readRecords(handle, plug, records);
}

void read(VDataHandle handle, VPlug plug, std::vector<Outputs>& records) {
    readRecords(handle, plug, records);
}

}  // namespace Floor
