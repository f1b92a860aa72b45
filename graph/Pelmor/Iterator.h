// The iterators that views of types hand out. They are valid while the view lives, and compare
// only with iterators of the same view. Dereferencing is no const operation: a const iterator is
// copied first, as the standard algorithms do.
#pragma once

#include <cstddef>
#include <iterator>
#include <type_traits>

namespace Pelmor {

// `Words` is the size of the iterator's state, in machine words.
template <typename Element, typename Container, unsigned Words>
class Iterator {
public:
    using value_type = std::remove_cv_t<Element>;
    using difference_type = std::ptrdiff_t;
    using pointer = Element*;
    using reference = Element&;

    // Of no view: it is good for being assigned to.
    Iterator() noexcept = default;
    Iterator(Element* elements, std::size_t position) noexcept
        : m_elements(elements), m_position(position) {
        static_assert(sizeof(Iterator) == Words * sizeof(void*));
    }

    reference operator*() noexcept { return m_elements[m_position]; }
    pointer operator->() noexcept { return m_elements + m_position; }

    friend bool operator==(const Iterator& a, const Iterator& b) noexcept {
        return a.m_position == b.m_position;
    }
    friend bool operator!=(const Iterator& a, const Iterator& b) noexcept { return !(a == b); }

protected:
    Element* m_elements = nullptr;
    std::size_t m_position = 0;
};

template <typename Element, typename Container, unsigned Words>
class ForwardIterator : public Iterator<Element, Container, Words> {
public:
    using iterator_category = std::forward_iterator_tag;
    using Iterator<Element, Container, Words>::Iterator;

    ForwardIterator& operator++() noexcept {
        ++this->m_position;
        return *this;
    }
    ForwardIterator operator++(int) noexcept {
        ForwardIterator former = *this;
        ++*this;
        return former;
    }
};

template <typename Element, typename Container, unsigned Words>
class BidirectionalIterator : public ForwardIterator<Element, Container, Words> {
public:
    using iterator_category = std::bidirectional_iterator_tag;
    using ForwardIterator<Element, Container, Words>::ForwardIterator;

    BidirectionalIterator& operator++() noexcept {
        ++this->m_position;
        return *this;
    }
    BidirectionalIterator operator++(int) noexcept {
        BidirectionalIterator former = *this;
        ++*this;
        return former;
    }
    BidirectionalIterator& operator--() noexcept {
        --this->m_position;
        return *this;
    }
    BidirectionalIterator operator--(int) noexcept {
        BidirectionalIterator former = *this;
        --*this;
        return former;
    }
};

}  // namespace Pelmor
