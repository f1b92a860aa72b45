// The identity of what a holder holds. Libraries that know the same type each have a record of
// their own for it, so identities are compared by content; only two canonical ones by address.
#pragma once

#include <Pelmor/Array.h>
#include <Pelmor/Export.h>
#include <Pelmor/Ptr.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <typeinfo>

namespace Pelmor::Internal {

struct TypeInfo {
    // `typeName` is not owned, and outlives the record.
    TypeInfo(const char* typeName, std::uint32_t depth) noexcept
        : name(typeName), nameLength(std::strlen(typeName)), arrayDepth(depth) {}

    // The run-time type name of a pointer to the type; an array of T has the name of T.
    const char* name;
    std::uint64_t nameLength;
    // If it is set in both of two records, they are equal only if they are the same record.
    std::uint8_t isCanonical = 0;
    std::uint8_t qualifier = 0;
    std::uint32_t arrayDepth;  // 0 for the type itself, 1 for a shared array of it

    // The identity of an empty holder.
    PELMOR_API static const TypeInfo s_void;
};

static_assert(offsetof(TypeInfo, name) == 0 && offsetof(TypeInfo, nameLength) == 8);
static_assert(offsetof(TypeInfo, isCanonical) == 16 && offsetof(TypeInfo, qualifier) == 17);
static_assert(offsetof(TypeInfo, arrayDepth) == 20 && sizeof(TypeInfo) == 24);

inline bool typeInfoEquals(const TypeInfo& a, const TypeInfo& b) noexcept {
    if (a.isCanonical && b.isCanonical) return &a == &b;
    if (a.qualifier != b.qualifier || a.arrayDepth != b.arrayDepth) return false;
    if (a.name == b.name) return true;
    if (a.nameLength != b.nameLength) return false;
    return std::memcmp(a.name, b.name, a.nameLength) == 0;
}

// A strict weak order: every array depth before the next one, and within it by qualifier, then by
// name, whose characters count as signed.
inline bool typeInfoLess(const TypeInfo& a, const TypeInfo& b) noexcept {
    if (a.arrayDepth != b.arrayDepth) return a.arrayDepth < b.arrayDepth;
    if (a.qualifier != b.qualifier) return a.qualifier < b.qualifier;
    if (a.name == b.name) return false;
    const auto* aCharacters = reinterpret_cast<const signed char*>(a.name);
    const auto* bCharacters = reinterpret_cast<const signed char*>(b.name);
    return std::lexicographical_compare(aCharacters, aCharacters + a.nameLength, bCharacters,
                                        bCharacters + b.nameLength);
}

// The one record that a library has for T (depth 0) or for arrays of T (depth 1).
template <typename T, std::uint32_t ArrayDepth>
struct Identity {
    static const TypeInfo s_record;
};

template <typename T, std::uint32_t ArrayDepth>
const TypeInfo Identity<T, ArrayDepth>::s_record{typeid(T*).name(), ArrayDepth};

// The identity under which a holder holds a `Held`. A shared array is held under the identity of
// an array of its elements.
template <typename Held>
struct HeldIdentity : Identity<Held, 0> {};

template <typename T>
struct HeldIdentity<Ptr<Array<T>>> : Identity<T, 1> {};

}  // namespace Pelmor::Internal
