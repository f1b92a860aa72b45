// The types that the library carries, and what it does with the values of each.
#pragma once

#include <OpenVornik/VDataHandle.h>
#include <OpenVornik/VPlug.h>
#include <Pelmor/AnyValue.h>
#include <Pelmor/Type.h>

#include <array>

namespace Plain {

struct CarriedType {
    const char* name;
    // Of a port of this type; the value is replaced once the new one is whole. Throws Failure.
    void (*read)(const VDataHandle& place, VPlug& plug, Pelmor::AnyValue& value);
    bool (*isHeldIn)(const Pelmor::AnyValue& value);
    // What `isHeldIn` is true of. Throws Failure; if the port is of another type, nothing was
    // written.
    void (*write)(const Pelmor::AnyValue& value, VDataHandle& place, VPlug& plug);
};

extern const std::array<CarriedType, 4> kCarriedTypes;

// Null if the library does not carry the type.
const CarriedType* findCarried(const Pelmor::Type& type);
inline bool isCarried(const Pelmor::Type& type) { return findCarried(type) != nullptr; }

}  // namespace Plain
