// The graph's growable array: five words, the last two of which describe the element. Storage comes
// from the description and is returned to it; elements that have an operations entry are
// constructed, copied, moved and destroyed through it, the others by their own operations.
// [any thread]
#pragma once

#include <Pelmor/ElementTraits.h>
#include <Pelmor/Ptr.h>
#include <Pelmor/String.h>
#include <Pelmor/UntypedTypeRep.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <new>
#include <type_traits>
#include <utility>

namespace Pelmor {

template <>
struct ElementTraits<String> : PlainElementTraits<1> {};

template <typename T>
class Array {
public:
    // Allocates nothing.
    Array() noexcept = default;
    // `size` value-initialised elements, in storage for exactly as many.
    explicit Array(std::uint64_t size) : Array() {
        if (size == 0) return;
        StorageOwner storage(m_elementRep, size);
        defaultConstruct(storage.elements, size);
        adopt(storage, size);
    }
    Array(const Array& other) : Array() {
        if (other.m_size == 0) return;
        StorageOwner storage(m_elementRep, other.m_size);
        copyConstruct(storage.elements, other.m_data, other.m_size);
        adopt(storage, other.m_size);
    }
    // The source is left empty, without storage.
    Array(Array&& other) noexcept : Array() { swap(other); }
    Array& operator=(Array other) noexcept {
        swap(other);
        return *this;
    }
    ~Array() {
        static_assert(offsetof(Array, m_data) == 0 && offsetof(Array, m_size) == 8);
        static_assert(offsetof(Array, m_capacity) == 16 && offsetof(Array, m_elementRep) == 24);
        clear();
        if (m_data) m_elementRep.deallocate(m_data, m_capacity);
    }

    std::uint64_t size() const noexcept { return m_size; }
    std::uint64_t capacity() const noexcept { return m_capacity; }
    bool empty() const noexcept { return m_size == 0; }
    const Internal::UntypedTypeRep& elementRep() const noexcept { return m_elementRep; }

    T* data() noexcept { return m_data; }
    const T* data() const noexcept { return m_data; }
    T& operator[](std::uint64_t index) noexcept { return m_data[index]; }
    const T& operator[](std::uint64_t index) const noexcept { return m_data[index]; }
    T* begin() noexcept { return m_data; }
    T* end() noexcept { return m_data + m_size; }
    const T* begin() const noexcept { return m_data; }
    const T* end() const noexcept { return m_data + m_size; }

    // Full storage grows from capacity to capacity + max(capacity, 1). An exception leaves the
    // array as it was.
    void append(T value) {
        static_assert(std::is_nothrow_move_constructible_v<T>, "elements move without fail");
        if (m_size == m_capacity) grow();
        ++m_size;
        moveConstruct(m_data + m_size - 1, &value);
    }

    // Destroys the elements, in order, and keeps the storage.
    void clear() noexcept {
        if (m_size > 0) destroy(m_data, m_size);
        m_size = 0;
    }

    // All five words; no element is touched.
    void swap(Array& other) noexcept {
        std::swap(m_data, other.m_data);
        std::swap(m_size, other.m_size);
        std::swap(m_capacity, other.m_capacity);
        std::swap(m_elementRep, other.m_elementRep);
    }

private:
    using Operation = ElementOperation;

    static constexpr bool kHasOperations =
        !std::is_same_v<decltype(ElementTraits<T>::operations), const std::nullptr_t>;

    // Storage without elements, returned unless an array adopts it.
    struct StorageOwner {
        StorageOwner(const Internal::UntypedTypeRep& rep, std::uint64_t count)
            : elementRep(rep), capacity(count), elements(static_cast<T*>(rep.allocate(count))) {}
        StorageOwner(const StorageOwner&) = delete;
        StorageOwner& operator=(const StorageOwner&) = delete;
        ~StorageOwner() {
            if (elements) elementRep.deallocate(elements, capacity);
        }

        const Internal::UntypedTypeRep& elementRep;
        std::uint64_t capacity;
        T* elements;
    };

    void adopt(StorageOwner& storage, std::uint64_t size) noexcept {
        m_data = std::exchange(storage.elements, nullptr);
        m_capacity = storage.capacity;
        m_size = size;
    }

    void grow() {
        const std::uint64_t size = m_size;
        StorageOwner storage(m_elementRep, m_capacity + std::max<std::uint64_t>(m_capacity, 1));
        copyConstruct(storage.elements, m_data, size);
        clear();
        if (m_data) m_elementRep.deallocate(m_data, m_capacity);
        adopt(storage, size);
    }

    void defaultConstruct(T* first, std::uint64_t count) {
        if constexpr (kHasOperations)
            m_elementRep.operations(Operation::DefaultConstruct, first, nullptr, count);
        else
            std::uninitialized_value_construct_n(first, count);
    }

    void copyConstruct(T* first, T* source, std::uint64_t count) {
        if constexpr (kHasOperations)
            m_elementRep.operations(Operation::CopyConstruct, first, source, count);
        else
            std::uninitialized_copy_n(source, count, first);
    }

    void moveConstruct(T* element, T* source) noexcept {
        if constexpr (kHasOperations)
            m_elementRep.operations(Operation::MoveConstruct, element, source, 1);
        else
            new (element) T(std::move(*source));
    }

    void destroy(T* first, std::uint64_t count) noexcept {
        if constexpr (kHasOperations)
            m_elementRep.operations(Operation::Destroy, first, nullptr, count);
        else
            std::destroy_n(first, count);
    }

    T* m_data = nullptr;
    std::uint64_t m_size = 0;
    std::uint64_t m_capacity = 0;
    Internal::UntypedTypeRep m_elementRep = Internal::elementRepOf<T>();
};

static_assert(sizeof(Array<double>) == 5 * sizeof(void*));

// An array that copies of the pointer share, as records hold it and ports carry it.
template <typename T>
using SharedArray = Ptr<Array<T>>;

}  // namespace Pelmor
