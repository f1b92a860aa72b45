// Makes the arrays that are read from the host: allocated once, at their final size.
#pragma once

#include <Pelmor/Array.h>
#include <Pelmor/UntypedTypeRep.h>
#include <Tolvane/record/Elements.h>
#include <Tolvane/record/Page.h>

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <memory>
#include <tuple>
#include <type_traits>
#include <utility>

namespace Tolvane {

// Whether reading a value sets every byte of it. Such an element needs no default first: it would
// never be seen, and would cost a pass over the array.
template <typename T, typename = void>
inline constexpr bool kIsSetWhole = std::is_trivially_copyable_v<T>;

template <typename MemberList>
inline constexpr std::size_t kBytesSet = 0;
template <typename Record, typename... Values>
inline constexpr std::size_t kBytesSet<const std::tuple<Values Record::*...>> =
    ((kIsSetWhole<Values> ? sizeof(Values) : 0) + ...);

template <typename Record>
inline constexpr bool kIsSetWhole<Record, std::enable_if_t<kIsRecord<Record>>> =
    kBytesSet<decltype(Page<Record>::members)> == sizeof(Record);

// The five words of the graph's array, which are its binary contract. The operations of the array
// give every element a default; through its words, those that reading sets whole get none.
template <typename Element>
struct ArrayWords {
    Element* data;
    std::uint64_t size;
    std::uint64_t capacity;
    Pelmor::Internal::UntypedTypeRep elementRep;
};

template <typename Element>
void defaultConstruct(const ArrayWords<Element>& words) {
    if constexpr (kIsRecord<Element>)
        defaultConstructElements(words.data, words.size);
    else
        std::uninitialized_value_construct_n(words.data, words.size);
}

// `count` elements, default unless reading sets them whole. Ends the process where there is no
// memory for them.
template <typename Element>
Pelmor::SharedArray<Element> makeElements(std::uint64_t count) noexcept {
    Pelmor::Array<Element> array;
    if (count > 0) {
        const Pelmor::Internal::UntypedTypeRep rep = array.elementRep();
        auto* data = static_cast<Element*>(rep.allocate(count));
        const ArrayWords<Element> words{data, count, count, rep};
        if constexpr (!kIsSetWhole<Element>) defaultConstruct(words);
        static_assert(sizeof words == sizeof array);
        std::memcpy(static_cast<void*>(&array), &words, sizeof words);
    }
    return Pelmor::makePtr<Pelmor::Array<Element>>(std::move(array));
}

}  // namespace Tolvane
