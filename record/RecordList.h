// The records that one translation carries.
#pragma once

#include "record/Elements.h"
#include "record/Page.h"

namespace Tolvane {

template <typename... Records>
struct RecordList {
    static_assert((kIsRecord<Records> && ...), "each type of the list needs a Tolvane::Page");
};

}  // namespace Tolvane
