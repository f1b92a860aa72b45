// The graph's value holder: three words of storage and the manager function of the held type, null
// when the holder is empty. Everything that depends on the held type is a request to that manager,
// so a holder can be copied and destroyed by code that does not know its type. [any thread]
#pragma once

#include <Pelmor/AnyValueManager.h>
#include <Pelmor/HeldValue.h>
#include <Pelmor/TypeInfo.h>

#include <type_traits>
#include <utility>

namespace Pelmor {

class AnyValue {
public:
    AnyValue() noexcept : m_words() {}
    // A holder of a copy of `value`, or of what is moved out of it.
    template <typename T>
    static AnyValue holding(T&& value) {
        return AnyValue(std::in_place_type<std::decay_t<T>>, std::forward<T>(value));
    }
    // A holder of the value that `words` hold by a manager of one's own. The value now belongs to
    // the holder; without a manager the holder is empty.
    static AnyValue adopting(const AnyValueWords& words) noexcept { return AnyValue(words); }
    AnyValue(const AnyValue& other) { become(other, AnyValueOp::Copy); }
    // The source is left empty. A heap value stays where it is.
    AnyValue(AnyValue&& other) noexcept { become(other, AnyValueOp::Move); }
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
        AnyValueRequest query = about(AnyValueOp::QueryType);
        query.operand2 = nullptr;
        m_words.manager(&query);
        return *static_cast<const Internal::TypeInfo*>(query.operand2);
    }

    // The held value, or null if the holder holds no T. Valid until the holder is changed, moved
    // from or destroyed.
    template <typename T>
    T* getIf() noexcept {
        return static_cast<T*>(getIf(Internal::HeldIdentity<T>::s_record));
    }
    template <typename T>
    const T* getIf() const noexcept {
        return const_cast<AnyValue*>(this)->getIf<T>();
    }
    // The same by an identity of one's own.
    void* getIf(const Internal::TypeInfo& identity) noexcept {
        if (!hasValue()) return nullptr;
        AnyValueRequest query = about(AnyValueOp::GetIfType);
        query.operand2 = const_cast<Internal::TypeInfo*>(&identity);
        query.operand3 = nullptr;
        m_words.manager(&query);
        return query.operand3;
    }
    const void* getIf(const Internal::TypeInfo& identity) const noexcept {
        return const_cast<AnyValue*>(this)->getIf(identity);
    }

    // Destroys what this holder holds and takes over what `temporary` holds, which is left empty.
    void moveAssign(AnyValue& temporary) noexcept {
        reset();
        if (temporary.hasValue()) temporary.give(AnyValueOp::Move, m_words);
    }

    void reset() noexcept {
        if (!hasValue()) return;
        AnyValueRequest request = about(AnyValueOp::Destroy);
        m_words.manager(&request);
    }

    // The bare words, as managers see them.
    const AnyValueWords& words() const noexcept { return m_words; }

private:
    explicit AnyValue(const AnyValueWords& words) noexcept : m_words(words) {}

    template <typename Held, typename T>
    AnyValue(std::in_place_type_t<Held>, T&& value) {
        Internal::HolderStorage<Held>::construct(m_words, std::forward<T>(value));
        m_words.manager = &Internal::manageHeld<Held>;
    }

    // Sets all words of this new holder, which are uninitialised before.
    void become(const AnyValue& source, AnyValueOp copyOrMove) {
        if (source.hasValue())
            source.give(copyOrMove, m_words);
        else
            m_words = {};
    }

    void give(AnyValueOp copyOrMove, AnyValueWords& destination) const {
        AnyValueRequest request = about(copyOrMove);
        request.operand2 = &destination;
        m_words.manager(&request);
    }

    // A request with the one operand that every operation has. The others stay uninitialised:
    // initialising words that the operation does not use would take time.
    AnyValueRequest about(AnyValueOp operation) const noexcept {
        AnyValueRequest request;
        request.operation = operation;
        request.operand1 = const_cast<AnyValueWords*>(&m_words);
        return request;
    }

    AnyValueWords m_words;
};

static_assert(sizeof(AnyValue) == 4 * sizeof(void*));

}  // namespace Pelmor
