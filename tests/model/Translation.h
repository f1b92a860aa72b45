// What carrying a value between the host and the graph does, said a second time: reading and
// writing, on the model's data alone.
#pragma once

#include "tests/model/GraphValue.h"
#include "tests/model/Host.h"

#include <string>

namespace Model {

// Both give what the framework is answered.
bool translateFromHost(Host& host, const std::string& type, Holder& holder, const Place& place);
bool translateToHost(Host& host, const Holder& holder, const Place& place);

}  // namespace Model
