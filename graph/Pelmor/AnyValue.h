// The graph's value holder: three words of storage and the manager function of the held type, null
// when the holder is empty. Everything that depends on the held type is a request to that manager,
// so a holder can be copied and destroyed by code that has never heard of its type. A holder
// belongs to one thread at a time. [any thread]
#pragma once

#include <Pelmor/AnyValueManager.h>
#include <Pelmor/TypeInfo.h>

#include <type_traits>
#include <utility>

namespace Pelmor {

class AnyValue {
public:
    AnyValue() noexcept : m_words() {}
    // Holds a copy of `value`, or what was moved out of it, in place or on the heap as its type
    // demands.
    template <typename T>
    static AnyValue holding(T&& value) {
        using Held = std::decay_t<T>;
        AnyValue holder;
        Internal::HolderStorage<Held>::construct(holder.m_words, std::forward<T>(value));
        holder.m_words.manager = &Internal::manageHeld<Held>;
        return holder;
    }
    AnyValue(const AnyValue& other) { make(AnyValueOp::Copy, other); }
    // The source is left empty. A heap value stays where it is.
    AnyValue(AnyValue&& other) noexcept { make(AnyValueOp::Move, other); }
    AnyValue& operator=(const AnyValue& other) {
        AnyValue copy(other);
        moveAssign(copy);
        return *this;
    }
    AnyValue& operator=(AnyValue&& other) noexcept {
        if (this != &other) moveAssign(other);
        return *this;
    }
    ~AnyValue() { reset(); }

    bool hasValue() const noexcept { return m_words.manager != nullptr; }

    // TypeInfo::s_void for an empty holder.
    const Internal::TypeInfo& type() const noexcept {
        if (!hasValue()) return Internal::TypeInfo::s_void;
        return *static_cast<const Internal::TypeInfo*>(request(AnyValueOp::QueryType).operand2);
    }

    // The held value, or null where the holder holds no T. An in-place value lies in the holder, so
    // the pointer is good no longer than the holder is.
    template <typename T>
    T* getIf() noexcept {
        if (!hasValue()) return nullptr;
        const Internal::TypeInfo& wanted = Internal::HeldIdentity<T>::s_record;
        const auto answer =
            request(AnyValueOp::GetIfType, const_cast<Internal::TypeInfo*>(&wanted));
        return static_cast<T*>(answer.operand3);
    }
    template <typename T>
    const T* getIf() const noexcept {
        return const_cast<AnyValue*>(this)->getIf<T>();
    }

    // Destroys what this holder holds and takes over what `temporary` holds, which is left empty.
    void moveAssign(AnyValue& temporary) noexcept {
        reset();
        if (temporary.hasValue()) temporary.request(AnyValueOp::Move, &m_words);
    }

    void reset() noexcept {
        if (hasValue()) request(AnyValueOp::Destroy);
    }

    // For managers, and for who checks them.
    const Internal::HolderWords& words() const noexcept { return m_words; }

private:
    // The first words of this holder, all of which a manager sets.
    void make(AnyValueOp copyOrMove, const AnyValue& source) {
        if (source.hasValue())
            source.request(copyOrMove, &m_words);
        else
            m_words = {};
    }

    AnyValueRequest request(AnyValueOp operation, void* operand2 = nullptr) const {
        // Word by word, because braces would clear what lies between the words as well.
        AnyValueRequest asked;
        asked.operation = operation;
        asked.operand1 = const_cast<Internal::HolderWords*>(&m_words);
        asked.operand2 = operand2;
        asked.operand3 = nullptr;
        m_words.manager(&asked);
        return asked;
    }

    Internal::HolderWords m_words;
};

static_assert(sizeof(AnyValue) == 4 * sizeof(void*));

}  // namespace Pelmor
