// Describes the elements of an array to the graph library: their size, alignment and kind, and the
// function that constructs, copies, moves and destroys them where the library does not do so
// itself. Arrays get and return their storage through it.
#pragma once

#include <Pelmor/ElementTraits.h>
#include <Pelmor/Export.h>

#include <cstddef>
#include <cstdint>

namespace Pelmor::Internal {

struct PELMOR_API UntypedTypeRep {
    std::uint32_t elementSize;       // in bytes
    std::uint32_t alignmentAndKind;  // alignment in the low 16 bits, kind code in the high 16
    ElementOperations operations;    // null for elements that the library handles itself

    std::uint32_t alignment() const noexcept { return alignmentAndKind & 0xffffu; }
    std::uint32_t kindCode() const noexcept { return alignmentAndKind >> 16; }

    // Raw storage for `count` elements, which is returned with `deallocate` and the same count.
    // Throws std::bad_alloc, also if the bytes are too many to count. [any thread]
    void* allocate(std::uint64_t count) const;
    void deallocate(void* buffer, std::uint64_t count) const noexcept;
};

static_assert(sizeof(UntypedTypeRep) == 16);
static_assert(offsetof(UntypedTypeRep, elementSize) == 0);
static_assert(offsetof(UntypedTypeRep, alignmentAndKind) == 4);
static_assert(offsetof(UntypedTypeRep, operations) == 8);

template <typename T>
constexpr UntypedTypeRep elementRepOf() noexcept {
    static_assert(alignof(T) <= 8, "elements are aligned to eight bytes");
    return {sizeof(T), 8u | std::uint32_t{ElementTraits<T>::kindCode} << 16,
            ElementTraits<T>::operations};
}

}  // namespace Pelmor::Internal
