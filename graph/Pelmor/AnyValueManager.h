// The protocol between a holder and the manager of what it holds. Every C++ type has a manager
// already, which `AnyValue::holding` takes. Whoever keeps values in another way writes a manager by
// what is said here, and makes holders with `AnyValue::adopting`.
#pragma once

#include <cstddef>
#include <cstdint>
#include <new>

namespace Pelmor {

// What a manager is asked. It is never asked about an empty holder; it ignores codes that are none
// of these, and throws only while copying.
enum class AnyValueOp : std::uint32_t {
    // Destroys the held value, frees it if it is on the heap, and sets the manager to null. The
    // storage words stay as they are.
    Destroy = 0,
    // Fills operand 2 with a copy of the held value, zeros behind it, and the manager. The source
    // stays as it is. Where copying throws, all words of operand 2 are zero.
    Copy = 1,
    // Fills operand 2 with the held value itself, zeros behind it, and the manager, and sets all
    // words of the source to zero. Allocates nothing; a value on the heap stays where it is.
    Move = 2,
    // Sets operand 3 to the address of the held value if operand 2 is an equal identity
    // (`typeInfoEquals`), else to null.
    GetIfType = 3,
    // Sets operand 2 to the address of the held value, whatever its type.
    Get = 4,
    // Sets operand 2 to the identity of the held type, which outlives every holder of it.
    QueryType = 5
};

// Operand 1 is the holder that is asked: for Copy and Move the source. The other operands are:
//
//   Copy, Move   2: the destination, whose words are overwritten without being read
//   GetIfType    2: the identity asked for; 3: result, the held value or null
//   Get          2: result, the held value
//   QueryType    2: result, the identity of the held type
//
// Holders are given as their AnyValueWords, identities as Internal::TypeInfo. The caller sets a
// result word to null before the request.
struct AnyValueRequest {
    AnyValueOp operation;
    void* operand1;
    void* operand2;
    void* operand3;
};

static_assert(offsetof(AnyValueRequest, operation) == 0 &&
              offsetof(AnyValueRequest, operand1) == 8);
static_assert(offsetof(AnyValueRequest, operand2) == 16 &&
              offsetof(AnyValueRequest, operand3) == 24);
static_assert(sizeof(AnyValueRequest) == 32);

// Called on whichever thread uses the holder.
using AnyValueManager = void (*)(AnyValueRequest* request);

// The four words of a holder, which are its binary contract.
struct AnyValueWords {
    // From the first byte on the value itself or, for a value on the heap, the pointer to it; zeros
    // behind that. Only a value that moves without fail lies here.
    alignas(void*) std::byte storage[3 * sizeof(void*)];
    // Null if the holder is empty; the storage then means nothing.
    AnyValueManager manager;

    // What was constructed at the start of the storage: the value, or the pointer to it.
    template <typename T>
    T& stored() noexcept {
        static_assert(sizeof(T[1]) <= sizeof(AnyValueWords::storage), "it has three words");
        static_assert(alignof(AnyValueWords) % alignof(T) == 0, "words are aligned to eight bytes");
        return *std::launder(reinterpret_cast<T*>(storage));
    }
};

static_assert(sizeof(AnyValueWords) == 4 * sizeof(void*) && offsetof(AnyValueWords, manager) == 24);

}  // namespace Pelmor
