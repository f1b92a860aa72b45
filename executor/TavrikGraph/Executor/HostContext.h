// What a translation gets of the host while one port of a node is evaluated. The framework owns all
// of it and keeps it for the duration of the call.
#pragma once

#include <OpenVornik/VDataBlock.h>
#include <OpenVornik/VPlug.h>

#include <cstddef>

namespace TavrikGraph::Executor {

struct HostContext {
    const void* evaluation;  // the framework's own
    VPlug* plug;             // of the port
    VDataBlock* dataBlock;   // of the port's node
};

static_assert(offsetof(HostContext, plug) == 8 && offsetof(HostContext, dataBlock) == 16);
static_assert(sizeof(HostContext) == 24);

}  // namespace TavrikGraph::Executor
