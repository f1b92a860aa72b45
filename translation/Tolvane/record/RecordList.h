// The records that one translation carries.
#pragma once

#include <Tolvane/record/CheckPage.h>
#include <Tolvane/record/Elements.h>
#include <Tolvane/record/Page.h>

#include <string_view>
#include <tuple>

namespace Tolvane {

template <typename... Records>
struct RecordList {
    static_assert((kIsRecord<Records> && ...), "each type of the list needs a Tolvane::Page");
    // Values are told apart by the C++ name of their type, which is its name in the graph.
    static_assert((isNameInCpp<Records>(Page<Records>::typeName) && ...),
                  "the typeName of a page is its struct's name in C++, as in the graph");
    static_assert(areDistinct(std::tuple{std::string_view(Page<Records>::typeName)...}),
                  "two records of the list have one typeName");
};

}  // namespace Tolvane
