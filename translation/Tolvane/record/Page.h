// What has to be said of a record type, once: its name in the graph, and which of its members cross
// the boundary between graph and host. All that carries the record follows from this page.
#pragma once

#include <type_traits>

namespace Tolvane {

// Specialised for each record, right behind the struct, with
//
//     static constexpr const char* typeName: the fully qualified name of the graph's type;
//     static constexpr std::tuple members: pointers to the members that cross, in their order.
//
// Member i of the list is child i of the record's compound attribute. Members that stay in the
// graph are not listed, and come after those that are.
template <typename Record>
struct Page;

template <typename T, typename = void>
inline constexpr bool kIsRecord = false;
template <typename T>
inline constexpr bool kIsRecord<T, std::void_t<decltype(Page<T>::members)>> = true;

}  // namespace Tolvane
