// How the graph library constructs, copies, moves and destroys the records that an array holds: the
// element-operations entry of every record that has a page, and the arrays that its members begin
// with.
#pragma once

#include <Pelmor/Array.h>
#include <Pelmor/ElementTraits.h>
#include <Tolvane/record/Page.h>

#include <algorithm>
#include <atomic>
#include <cstdint>
#include <cstring>
#include <memory>
#include <type_traits>

namespace Tolvane {

// As ElementOperation::DefaultConstruct says. The fence keeps the compiler from dropping the zeros
// as a store to storage in which no object lives yet.
template <typename Record>
void defaultConstructElements(Record* destination, std::uint64_t count) {
    std::memset(static_cast<void*>(destination), 0, count * sizeof(Record));
    std::atomic_signal_fence(std::memory_order_seq_cst);
    std::uninitialized_value_construct_n(destination, count);
}

// Does what `operation` says to `count` records. The pointers may be null if there are none.
template <typename Record>
void operateOnElements(Pelmor::ElementOperation operation, void* destinationElements,
                       void* sourceElements, std::uint64_t count) {
    using Operation = Pelmor::ElementOperation;
    if (count == 0) return;
    auto* destination = static_cast<Record*>(destinationElements);
    auto* source = static_cast<Record*>(sourceElements);
    switch (operation) {
        case Operation::DefaultConstruct:
            defaultConstructElements(destination, count);
            break;
        case Operation::ConstructCopies:
            std::uninitialized_fill_n(destination, count, *source);
            break;
        case Operation::CopyConstruct:
            std::uninitialized_copy_n(source, count, destination);
            break;
        case Operation::MoveConstruct:
            std::uninitialized_move_n(source, count, destination);
            break;
        case Operation::CopyAssign:
            std::copy_n(source, count, destination);
            break;
        case Operation::MoveAssign:
            std::move(source, source + count, destination);
            break;
        case Operation::Destroy:
            std::destroy_n(destination, count);
            break;
    }
}

// What a shared array member of a new record is: an empty array of its own.
inline constexpr struct NewArray {
    template <typename Element>
    operator Pelmor::SharedArray<Element>() const {
        return Pelmor::makePtr<Pelmor::Array<Element>>();
    }
} newArray;

}  // namespace Tolvane

template <typename Record>
struct Pelmor::ElementTraits<Record, std::enable_if_t<Tolvane::kIsRecord<Record>>> {
    static constexpr std::uint16_t kindCode = 8;
    static constexpr ElementOperations operations = &Tolvane::operateOnElements<Record>;
};
