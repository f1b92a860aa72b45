// Array elements that write down what happens to them, and storage that does the same, in one list:
// what an array does and in which order is then there to be compared. An element that was moved
// from goes without a word.
#pragma once

#include <Pelmor/ElementTraits.h>

#include <stdexcept>
#include <string>
#include <vector>

namespace GraphTests {

using Events = std::vector<std::string>;

// Such as "copy 3" of an element, "allocate 4" of storage, "CopyConstruct 2" of a request for two
// elements.
Events& events();

// The events since the last call.
Events takeEvents();

struct CopyRefused : std::runtime_error {
    using std::runtime_error::runtime_error;
};

// An element whose own operations the array uses.
class PlainElement {
public:
    PlainElement();
    explicit PlainElement(int number);
    PlainElement(const PlainElement& other);
    PlainElement(PlainElement&& other) noexcept;
    PlainElement& operator=(const PlainElement& other) = delete;
    PlainElement& operator=(PlainElement&& other) = delete;
    ~PlainElement();

    int number() const noexcept { return m_number; }

    // How many there are, those that were moved from included.
    static inline int s_alive = 0;
    // Creating a copy or a default element of this number throws CopyRefused.
    static inline int s_refused = -1;
    // What a default element has; each gets one more than the one before.
    static inline int s_nextDefault = 0;

private:
    int m_number;
};

// An element that has an operations entry: what an array does to it without the entry is "own".
class EnteredElement {
public:
    EnteredElement() : m_number(0) { events().push_back("own default"); }
    explicit EnteredElement(int number) noexcept : m_number(number) {}
    EnteredElement(const EnteredElement& other) : m_number(other.m_number) {
        events().push_back("own copy");
    }
    EnteredElement(EnteredElement&& other) noexcept : m_number(other.m_number) {
        events().push_back("own move");
    }
    EnteredElement& operator=(const EnteredElement& other) = delete;
    EnteredElement& operator=(EnteredElement&& other) = delete;
    ~EnteredElement() = default;

    int number() const noexcept { return m_number; }

    static void operations(Pelmor::ElementOperation operation, void* destination, void* source,
                           std::uint64_t count);

private:
    int m_number;
};

}  // namespace GraphTests

template <>
struct Pelmor::ElementTraits<GraphTests::PlainElement> : PlainElementTraits<3> {};

template <>
struct Pelmor::ElementTraits<GraphTests::EnteredElement> {
    static constexpr std::uint16_t kindCode = 8;
    static constexpr ElementOperations operations = &GraphTests::EnteredElement::operations;
};
