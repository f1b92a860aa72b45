// Whether a port takes values into its graph or gives them out.
#pragma once

#include <cstdint>

namespace TavrikGraph::Executor {

enum class PortDirection : std::int32_t { Output = 0, Input = 1 };

}  // namespace TavrikGraph::Executor
