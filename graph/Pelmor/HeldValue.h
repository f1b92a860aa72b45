// The managers of the values that `AnyValue::holding` holds: one function per held type,
// instantiated where the type is known.
#pragma once

#include <Pelmor/AnyValueManager.h>
#include <Pelmor/TypeInfo.h>

#include <cstddef>
#include <cstring>
#include <memory>
#include <new>
#include <type_traits>
#include <utility>

namespace Pelmor::Internal {

// Sets the storage behind its first `used` bytes to zero.
inline void clearBehind(AnyValueWords& holder, std::size_t used) noexcept {
    std::memset(holder.storage + used, 0, sizeof(holder.storage) - used);
}

// For values that lie in the storage words themselves.
template <typename T>
struct InPlaceStorage {
    static T* held(AnyValueWords& holder) noexcept { return std::addressof(holder.stored<T>()); }
    template <typename... Arguments>
    static void construct(AnyValueWords& holder, Arguments&&... arguments) {
        new (holder.storage) T(std::forward<Arguments>(arguments)...);
        clearBehind(holder, sizeof(T));
    }
    static void destroy(AnyValueWords& holder) noexcept { held(holder)->~T(); }
    static void move(AnyValueWords& source, AnyValueWords& destination) noexcept {
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
    static T*& held(AnyValueWords& holder) noexcept { return holder.stored<T*>(); }
    template <typename... Arguments>
    static void construct(AnyValueWords& holder, Arguments&&... arguments) {
        point(holder, new T(std::forward<Arguments>(arguments)...));
    }
    static void destroy(AnyValueWords& holder) noexcept { delete held(holder); }
    static void move(AnyValueWords& source, AnyValueWords& destination) noexcept {
        point(destination, std::exchange(held(source), nullptr));
    }

private:
    static void point(AnyValueWords& holder, T* value) noexcept {
        clearBehind(holder, sizeof(void*));
        new (holder.storage) T*(value);
    }
};

// A value is held in place if it fits the storage words in size and alignment and its move does not
// throw.
template <typename T>
constexpr bool kHeldInPlace =
    sizeof(T) <= sizeof(AnyValueWords::storage) &&
    alignof(AnyValueWords) % alignof(T) == 0 && std::is_nothrow_move_constructible_v<T>;

template <typename T>
using HolderStorage = std::conditional_t<kHeldInPlace<T>, InPlaceStorage<T>, HeapStorage<T>>;

// Tells the compiler that the condition mostly holds, so that this case needs no jump.
inline bool isExpected(bool condition) noexcept { return __builtin_expect(condition, true); }

// Destroying, copying and comparing names call other functions and need a stack frame. They are not
// inlined into the manager, so that its other requests run without one.
template <typename T>
[[gnu::noinline]] void destroyHeld(AnyValueWords& holder) {
    HolderStorage<T>::destroy(holder);
    holder.manager = nullptr;
}

template <typename T>
[[gnu::noinline]] void copyHeld(AnyValueWords& holder, AnyValueWords& destination) {
    destination = {};
    HolderStorage<T>::construct(destination, std::as_const(*HolderStorage<T>::held(holder)));
    destination.manager = holder.manager;
}

template <typename T>
void moveHeld(AnyValueWords& holder, AnyValueWords& destination) noexcept {
    const AnyValueManager manager = std::exchange(holder.manager, nullptr);
    HolderStorage<T>::move(holder, destination);
    destination.manager = manager;
}

template <typename T>
[[gnu::noinline]] void getHeldIfEqual(AnyValueWords& holder, AnyValueRequest& request) {
    const auto& wanted = *static_cast<const TypeInfo*>(request.operand2);
    if (typeInfoEquals(wanted, HeldIdentity<T>::s_record))
        request.operand3 = static_cast<T*>(HolderStorage<T>::held(holder));
}

// Decides without a call what is asked most: T's own record, or another type whose name has another
// length. The rest is compared in full.
template <typename T>
void getHeldIfType(AnyValueWords& holder, AnyValueRequest& request) {
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
    auto& holder = *static_cast<AnyValueWords*>(request->operand1);
    const AnyValueOp operation = request->operation;
    if (isExpected(operation == AnyValueOp::GetIfType)) return getHeldIfType<T>(holder, *request);
    if (isExpected(operation == AnyValueOp::Move))
        return moveHeld<T>(holder, *static_cast<AnyValueWords*>(request->operand2));
    if (operation == AnyValueOp::Destroy) return destroyHeld<T>(holder);
    if (operation == AnyValueOp::Copy)
        return copyHeld<T>(holder, *static_cast<AnyValueWords*>(request->operand2));
    if (operation == AnyValueOp::QueryType)
        request->operand2 = const_cast<TypeInfo*>(&HeldIdentity<T>::s_record);
    if (operation == AnyValueOp::Get)
        request->operand2 = static_cast<T*>(HolderStorage<T>::held(holder));
}

}  // namespace Pelmor::Internal
