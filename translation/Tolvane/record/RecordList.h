// The records that one translation carries.
#pragma once

#include <Tolvane/record/Elements.h>
#include <Tolvane/record/Page.h>

namespace Tolvane {

template <typename... Records>
struct RecordList {
    static_assert((kIsRecord<Records> && ...), "each type of the list needs a Tolvane::Page");
};

}  // namespace Tolvane
