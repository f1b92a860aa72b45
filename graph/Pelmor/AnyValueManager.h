// The protocol between a holder and the manager of the type that it holds, and the managers
// themselves: one function per held type, instantiated where the type is known.
#pragma once

#include <Pelmor/TypeInfo.h>

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <new>
#include <type_traits>
#include <utility>

namespace Pelmor {

enum class AnyValueOp : std::uint32_t {
    Destroy = 0,
    Copy = 1,
    Move = 2,
    GetIfType = 3,
    Get = 4,
    QueryType = 5
};

// Operand 1 is the holder that is asked: for Copy and Move the source. The other operands are:
//
//   Copy, Move   2: the destination, whose words are overwritten without being read
//   GetIfType    2: the identity asked for; 3: result, the held value or null
//   Get          2: result, the held value
//   QueryType    2: result, the identity of the held type
//
// The caller sets a result word to null before the request.
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

using AnyValueManager = void (*)(AnyValueRequest* request);

namespace Internal {

struct HolderWords {
    alignas(void*) std::byte storage[3 * sizeof(void*)];
    AnyValueManager manager;
};

static_assert(sizeof(HolderWords) == 4 * sizeof(void*) && offsetof(HolderWords, manager) == 24);

// Sets the storage behind its first `used` bytes to zero.
inline void clearBehind(HolderWords& holder, std::size_t used) noexcept {
    std::memset(holder.storage + used, 0, sizeof(holder.storage) - used);
}

// For values that lie in the storage words themselves.
template <typename T>
struct InPlaceStorage {
    static T* held(HolderWords& holder) noexcept {
        return std::launder(reinterpret_cast<T*>(holder.storage));
    }
    template <typename... Arguments>
    static void construct(HolderWords& holder, Arguments&&... arguments) {
        new (holder.storage) T(std::forward<Arguments>(arguments)...);
        clearBehind(holder, sizeof(T));
    }
    static void destroy(HolderWords& holder) noexcept { held(holder)->~T(); }
    static void move(HolderWords& source, HolderWords& destination) noexcept {
        T value(std::move(*held(source)));
        destroy(source);
        // The words of an emptied holder are null. Not every move leaves nulls, and an optimising
        // compiler may drop those that it writes to an object that is destroyed next.
        std::memset(source.storage, 0, sizeof(T));
        construct(destination, std::move(value));
    }
};

// For values that lie on the heap: the first word points to the value.
template <typename T>
struct HeapStorage {
    static T*& held(HolderWords& holder) noexcept {
        return *std::launder(reinterpret_cast<T**>(holder.storage));
    }
    template <typename... Arguments>
    static void construct(HolderWords& holder, Arguments&&... arguments) {
        point(holder, new T(std::forward<Arguments>(arguments)...));
    }
    static void destroy(HolderWords& holder) noexcept { delete held(holder); }
    static void move(HolderWords& source, HolderWords& destination) noexcept {
        point(destination, std::exchange(held(source), nullptr));
    }

private:
    static void point(HolderWords& holder, T* value) noexcept {
        clearBehind(holder, sizeof(void*));
        new (holder.storage) T*(value);
    }
};

// A value is held in place if it fits the storage words in size and alignment and its move does not
// throw.
template <typename T>
constexpr bool kHeldInPlace =
    sizeof(T) <= sizeof(HolderWords::storage) &&
    alignof(HolderWords) % alignof(T) == 0 && std::is_nothrow_move_constructible_v<T>;

template <typename T>
using HolderStorage = std::conditional_t<kHeldInPlace<T>, InPlaceStorage<T>, HeapStorage<T>>;

// Tells the compiler that the condition mostly holds, so that this case needs no jump.
inline bool isExpected(bool condition) noexcept { return __builtin_expect(condition, true); }

// Destroying, copying and comparing names call other functions and need a stack frame. They are not
// inlined into the manager, so that its other requests run without one.
template <typename T>
[[gnu::noinline]] void destroyHeld(HolderWords& holder) {
    HolderStorage<T>::destroy(holder);
    holder.manager = nullptr;
}

template <typename T>
[[gnu::noinline]] void copyHeld(HolderWords& holder, HolderWords& destination) {
    destination = {};
    HolderStorage<T>::construct(destination, std::as_const(*HolderStorage<T>::held(holder)));
    destination.manager = holder.manager;
}

template <typename T>
void moveHeld(HolderWords& holder, HolderWords& destination) noexcept {
    const AnyValueManager manager = std::exchange(holder.manager, nullptr);
    HolderStorage<T>::move(holder, destination);
    destination.manager = manager;
}

template <typename T>
[[gnu::noinline]] void getHeldIfEqual(HolderWords& holder, AnyValueRequest& request) {
    const auto& wanted = *static_cast<const TypeInfo*>(request.operand2);
    if (typeInfoEquals(wanted, HeldIdentity<T>::s_record))
        request.operand3 = static_cast<T*>(HolderStorage<T>::held(holder));
}

// Decides without a call what is asked most: T's own record, or another type whose name has another
// length. The rest is compared in full.
template <typename T>
void getHeldIfType(HolderWords& holder, AnyValueRequest& request) {
    const auto& wanted = *static_cast<const TypeInfo*>(request.operand2);
    const TypeInfo& own = HeldIdentity<T>::s_record;
    if (isExpected(&wanted == &own)) {
        request.operand3 = static_cast<T*>(HolderStorage<T>::held(holder));
        return;
    }
    request.operand3 = nullptr;
    if (wanted.nameLength == own.nameLength || wanted.name == own.name)
        getHeldIfEqual<T>(holder, request);
}

// The manager of T. Looking into a holder and moving it, which every value that is carried takes,
// are tested first.
template <typename T>
void manageHeld(AnyValueRequest* request) {
    auto& holder = *static_cast<HolderWords*>(request->operand1);
    const AnyValueOp operation = request->operation;
    if (isExpected(operation == AnyValueOp::GetIfType)) return getHeldIfType<T>(holder, *request);
    if (isExpected(operation == AnyValueOp::Move))
        return moveHeld<T>(holder, *static_cast<HolderWords*>(request->operand2));
    if (operation == AnyValueOp::Destroy) return destroyHeld<T>(holder);
    if (operation == AnyValueOp::Copy)
        return copyHeld<T>(holder, *static_cast<HolderWords*>(request->operand2));
    if (operation == AnyValueOp::QueryType)
        request->operand2 = const_cast<TypeInfo*>(&HeldIdentity<T>::s_record);
    if (operation == AnyValueOp::Get)
        request->operand2 = static_cast<T*>(HolderStorage<T>::held(holder));
}

}  // namespace Internal
}  // namespace Pelmor
