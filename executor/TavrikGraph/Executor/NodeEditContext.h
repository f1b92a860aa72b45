// What a translation gets of the host while the ports of a node are edited. The framework owns all
// of it and keeps it for the duration of the call.
#pragma once

#include <OpenVornik/VDGModifier.h>
#include <OpenVornik/VObject.h>

#include <cstddef>

namespace TavrikGraph::Executor {

struct NodeEditContext {
    const void* graph;      // the framework's own
    VObject node;           // the host node that the graph is placed in
    const void* edit;       // the framework's own
    VDGModifier* modifier;  // through which the node is changed
};

static_assert(offsetof(NodeEditContext, node) == 8 && offsetof(NodeEditContext, modifier) == 24);
static_assert(sizeof(NodeEditContext) == 32);

}  // namespace TavrikGraph::Executor
