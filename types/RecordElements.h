// How the graph library constructs, copies, moves and destroys the records that an array holds: the
// element-operations entry of each record type.
#pragma once

#include <Pelmor/UntypedTypeRep.h>

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <iterator>
#include <memory>
#include <type_traits>

namespace Rigging::Module {

// The storage is zero-filled first, so that no element is ever read as garbage.
template <typename Record>
void defaultConstructElements(Record* destination, std::uint64_t count) {
    std::memset(static_cast<void*>(destination), 0, count * sizeof(Record));
    if constexpr (!std::is_trivially_copyable_v<Record>)
        std::uninitialized_value_construct_n(destination, count);
}

// What ElementOperation asks for, on `count` records. A trivially copyable record is all zeros by
// default.
template <typename Record>
void operateOnElements(Pelmor::Internal::ElementOperation operation, void* destinationElements,
                       void* sourceElements, std::uint64_t count) {
    using Operation = Pelmor::Internal::ElementOperation;
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

template <typename Record>
struct RecordElementTraits {
    static constexpr std::uint16_t kindCode = 8;
    static constexpr Pelmor::Internal::ElementOperations operations = &operateOnElements<Record>;
};

}  // namespace Rigging::Module
