// What the owner of an element type says of it, for arrays and the graph library to handle such
// elements: whether it is plain or a record, and how it is constructed, copied, moved, destroyed.
#pragma once

#include <cstddef>
#include <cstdint>

namespace Pelmor {

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

// Specialised for an element type, ahead of the first array of it, or for a family of types, by
// `Enable`. It has two constants:
//
//     static constexpr std::uint16_t kindCode: 0 for numbers and matrices, 1 for String, 8 for
//     records;
//     static constexpr ElementOperations operations: the entry of a record, by which the library
//     handles elements of which it does not know the C++ type.
//
// Elements are at most aligned to eight bytes.
template <typename T, typename Enable = void>
struct ElementTraits;

// Base of the traits of elements that the graph library handles by their own constructors,
// assignments and destructor. It tells them by the type of `operations`: not every compiler takes
// the comparison of a function's address with null for a constant.
template <std::uint16_t Kind>
struct PlainElementTraits {
    static constexpr std::uint16_t kindCode = Kind;
    static constexpr std::nullptr_t operations = nullptr;
};

template <>
struct ElementTraits<double> : PlainElementTraits<0> {};

}  // namespace Pelmor
