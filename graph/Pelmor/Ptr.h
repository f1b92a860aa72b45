// The graph's shared pointer: two words, the pointee and a control block that counts the pointers
// to it. Counts change only by atomic operations, so pointers to one pointee can be copied and
// dropped on several threads at once. [any thread]
#pragma once

#include <atomic>
#include <cstddef>
#include <cstdint>
#include <new>
#include <type_traits>
#include <utility>

namespace Pelmor {

struct ControlBlock;

// The virtual operations of a control block, in slot order.
struct ControlBlockOperations {
    // Slot 0. Destroys the pointee alone.
    void (*destroyPointee)(ControlBlock* block) noexcept;
    // Slot 1. Destroys the pointee and frees it and the block; called by whoever drops the last
    // pointer.
    void (*dispose)(ControlBlock* block) noexcept;
};

struct ControlBlock {
    const ControlBlockOperations* operations;
    std::atomic<std::uint64_t> useCount;
};

static_assert(offsetof(ControlBlockOperations, dispose) == 1 * sizeof(void*));
static_assert(offsetof(ControlBlock, operations) == 0);
static_assert(offsetof(ControlBlock, useCount) == 8 && sizeof(ControlBlock) == 16);

template <typename T>
class Ptr {
public:
    Ptr() noexcept = default;
    Ptr(std::nullptr_t) noexcept {}
    // Takes over one use of `control`.
    Ptr(T* object, ControlBlock* control) noexcept : m_object(object), m_control(control) {}

    Ptr(const Ptr& other) noexcept : m_object(other.m_object), m_control(other.m_control) {
        if (m_control) m_control->useCount.fetch_add(1);
    }
    // The source is left null.
    Ptr(Ptr&& other) noexcept
        : m_object(std::exchange(other.m_object, nullptr)),
          m_control(std::exchange(other.m_control, nullptr)) {}

    // From a pointer to anything whose plain pointer converts to a T*.
    template <typename Derived, typename = std::enable_if_t<std::is_convertible_v<Derived*, T*>>>
    Ptr(const Ptr<Derived>& other) noexcept : Ptr(Ptr<Derived>(other)) {}
    template <typename Derived, typename = std::enable_if_t<std::is_convertible_v<Derived*, T*>>>
    Ptr(Ptr<Derived>&& other) noexcept
        : m_object(std::exchange(other.m_object, nullptr)),
          m_control(std::exchange(other.m_control, nullptr)) {}

    ~Ptr() {
        static_assert(offsetof(Ptr, m_object) == 0 && offsetof(Ptr, m_control) == 8);
        drop(m_control);
    }

    // Does nothing where both already point at the same object, even if each has a control block of
    // its own. Otherwise the former pointee goes last, when this pointer has its new one already.
    Ptr& operator=(const Ptr& other) noexcept {
        if (m_object == other.m_object) return *this;
        operator=(Ptr(other));
        return *this;
    }
    // The source is left null. The former pointee goes last, as above.
    Ptr& operator=(Ptr&& other) noexcept {
        if (this == &other) return *this;
        ControlBlock* previous = m_control;
        m_object = std::exchange(other.m_object, nullptr);
        m_control = std::exchange(other.m_control, nullptr);
        drop(previous);
        return *this;
    }

    T* get() const noexcept { return m_object; }
    T& operator*() const noexcept { return *m_object; }
    T* operator->() const noexcept { return m_object; }
    explicit operator bool() const noexcept { return m_object != nullptr; }

    // How many pointers share the pointee; 0 for a null pointer. Another thread may change it at
    // any time.
    std::uint64_t useCount() const noexcept { return m_control ? m_control->useCount.load() : 0; }

    friend bool operator==(const Ptr& a, const Ptr& b) noexcept { return a.m_object == b.m_object; }
    friend bool operator!=(const Ptr& a, const Ptr& b) noexcept { return a.m_object != b.m_object; }

private:
    template <typename Other>
    friend class Ptr;

    static void drop(ControlBlock* control) noexcept {
        if (control && control->useCount.fetch_sub(1) == 1) control->operations->dispose(control);
    }

    T* m_object = nullptr;
    ControlBlock* m_control = nullptr;
};

static_assert(sizeof(Ptr<int>) == 2 * sizeof(void*));

namespace Internal {

// A control block with its pointee behind it, in one allocation.
template <typename T>
struct OwningControlBlock : ControlBlock {
    template <typename... Arguments>
    explicit OwningControlBlock(Arguments&&... arguments) : ControlBlock{&s_operations, {1}} {
        new (storage) T(std::forward<Arguments>(arguments)...);
    }

    T* pointee() noexcept { return std::launder(reinterpret_cast<T*>(storage)); }

    static void destroyPointee(ControlBlock* block) noexcept {
        static_cast<OwningControlBlock*>(block)->pointee()->~T();
    }
    static void dispose(ControlBlock* block) noexcept {
        destroyPointee(block);
        delete static_cast<OwningControlBlock*>(block);
    }

    static constexpr ControlBlockOperations s_operations{&destroyPointee, &dispose};

    alignas(T) std::byte storage[sizeof(T)];
};

}  // namespace Internal

// A new T, made from `arguments`, with a control block of its own whose use count is 1.
template <typename T, typename... Arguments>
Ptr<T> makePtr(Arguments&&... arguments) {
    auto* block = new Internal::OwningControlBlock<T>(std::forward<Arguments>(arguments)...);
    return Ptr<T>(block->pointee(), block);
}

}  // namespace Pelmor
