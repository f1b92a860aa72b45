// What carrying a value between the host and the graph does, said a second time: reading and
// writing, on the model's data alone.
#pragma once

#include "tests/model/GraphValue.h"
#include "tests/model/Host.h"

#include <optional>
#include <string>
#include <vector>

namespace Model {

// What was done with one array, for those who ask what sequences get to.
struct Walk {
    enum Kind { Read, LeaveAsNull, WriteInPlace, Grow, Remove };

    Kind kind;
    const Shape* element;
    // How many elements were to be read, written or removed.
    std::size_t length = 0;
    bool isSparse = false;
    // The element, counted from 0, at which the host ended it.
    std::optional<std::size_t> failedAt = {};
};
using Walks = std::vector<Walk>;

// Both give what the framework is answered, and add to `walks`.
bool translateFromHost(Host& host, const std::string& type, Holder& holder, const Place& place,
                       Walks& walks);
bool translateToHost(Host& host, const Holder& holder, const Place& place, Walks& walks);

}  // namespace Model
