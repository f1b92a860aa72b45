// Describes the elements of an array to the graph library: their size, alignment and kind, and the
// function that constructs, copies, moves and destroys them where the library does not do so
// itself. Arrays get and return their storage through it.
#pragma once

#include <Pelmor/Export.h>

#include <cstddef>
#include <cstdint>

namespace Pelmor::Internal {

// What an element-operations entry is asked to do with every element of a destination range.
enum class ElementOperation : std::uint32_t {
    DefaultConstruct = 0,  // zero-fill the storage, then default-construct
    ConstructCopies = 1,   // of the one source value
    CopyConstruct = 2,     // from the same position of the source range, as are the next three
    MoveConstruct = 3,
    CopyAssign = 4,
    MoveAssign = 5,
    Destroy = 6
};

// `source` is ignored by DefaultConstruct and Destroy, and changed by the moves alone. A code that
// is none of the above does nothing. Where constructing an element throws, those that the call has
// constructed are destroyed; moves and Destroy do not throw.
using ElementOperations = void (*)(ElementOperation operation, void* destination, void* source,
                                   std::uint64_t count);

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

// The kind code and the operations of one element type: two constants, `kindCode` and `operations`,
// which the owner of the type specialises, or of a family of types, by `Enable`.
template <typename T, typename Enable = void>
struct ElementTraits;

// Elements that the graph library handles by their own constructors, assignments and destructor. It
// tells them by the type of `operations`: not every compiler takes the comparison of a function's
// address with null for a constant.
template <std::uint16_t Kind>
struct PlainElementTraits {
    static constexpr std::uint16_t kindCode = Kind;
    static constexpr std::nullptr_t operations = nullptr;
};

template <>
struct ElementTraits<double> : PlainElementTraits<0> {};

template <typename T>
constexpr UntypedTypeRep elementRepOf() noexcept {
    static_assert(alignof(T) <= 8, "elements are aligned to eight bytes");
    return {sizeof(T), 8u | std::uint32_t{ElementTraits<T>::kindCode} << 16,
            ElementTraits<T>::operations};
}

}  // namespace Pelmor::Internal
