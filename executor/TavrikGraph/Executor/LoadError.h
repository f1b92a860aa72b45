// Why a translation library could not be loaded: one line that names the file and the cause.
#pragma once

#include <TavrikGraph/Executor/Export.h>

#include <stdexcept>

namespace TavrikGraph::Executor {

class TAVRIKGRAPH_API LoadError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

}  // namespace TavrikGraph::Executor
