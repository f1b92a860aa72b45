// Makes, copies and destroys the data of an attribute, which lies untyped in a block. A slot is
// what the attribute takes in the block of the compound above it: the whole array, if it is one. A
// value is what a slot holds otherwise, and what an element of an array holds.
#pragma once

#include <cstddef>
#include <new>

namespace OpenVornik::Internal {

class Attribute;

void constructSlot(const Attribute& attribute, std::byte* slot) noexcept;
void destroySlot(const Attribute& attribute, std::byte* slot) noexcept;
// The copies overwrite what was constructed. `from` may be another attribute's of the same shape.
void copySlot(const Attribute& attribute, std::byte* to, std::byte* from);

void constructValue(const Attribute& attribute, std::byte* storage) noexcept;
void destroyValue(const Attribute& attribute, std::byte* storage) noexcept;
void copyValue(const Attribute& attribute, std::byte* to, std::byte* from);

// The T that was constructed at `storage`.
template <typename T>
T& stored(std::byte* storage) noexcept {
    return *std::launder(reinterpret_cast<T*>(storage));
}

}  // namespace OpenVornik::Internal
