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
    static_assert((isGraphName(Page<Records>::typeName) && ...),
                  "the typeName of a page is the graph's: identifiers, joined by \"::\"");
    static_assert(areDistinct(std::tuple{std::string_view(Page<Records>::typeName)...}),
                  "two records of the list have one typeName");
};

}  // namespace Tolvane
