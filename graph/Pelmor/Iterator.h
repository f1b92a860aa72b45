// The iterators that views of types hand out. They are valid while the view lives, and compare
// only with iterators of the same view.
#pragma once

#include <cstddef>

namespace Pelmor {

// `Words` is the size of the iterator's state, in machine words.
template <typename Element, typename Container, unsigned Words>
class Iterator {
public:
    Iterator(Element* elements, std::size_t position) noexcept
        : m_elements(elements), m_position(position) {
        static_assert(sizeof(Iterator) == Words * sizeof(void*));
    }

    Element& operator*() noexcept { return m_elements[m_position]; }
    Element* operator->() noexcept { return m_elements + m_position; }

    friend bool operator==(const Iterator& a, const Iterator& b) noexcept {
        return a.m_position == b.m_position;
    }
    friend bool operator!=(const Iterator& a, const Iterator& b) noexcept { return !(a == b); }

protected:
    Element* m_elements;
    std::size_t m_position;
};

template <typename Element, typename Container, unsigned Words>
class ForwardIterator : public Iterator<Element, Container, Words> {
public:
    using Iterator<Element, Container, Words>::Iterator;

    ForwardIterator& operator++() noexcept {
        ++this->m_position;
        return *this;
    }
};

template <typename Element, typename Container, unsigned Words>
class BidirectionalIterator : public ForwardIterator<Element, Container, Words> {
public:
    using ForwardIterator<Element, Container, Words>::ForwardIterator;

    BidirectionalIterator& operator++() noexcept {
        ++this->m_position;
        return *this;
    }
    BidirectionalIterator& operator--() noexcept {
        --this->m_position;
        return *this;
    }
};

}  // namespace Pelmor
