// The host calls of writing a value to a port.
#pragma once

#include "tests/faults/Entries.h"
#include "tests/faults/PlannedCalls.h"

namespace FaultTests {

// For the value with the entries `graph`, where the host has `host`.
PlannedCalls planOfWriting(const VPlug& port, const Entries& graph, const Entries& host);

}  // namespace FaultTests
