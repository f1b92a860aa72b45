// The host calls of reading a value from a port.
#pragma once

#include "tests/faults/Entries.h"
#include "tests/faults/PlannedCalls.h"

namespace FaultTests {

PlannedCalls planOfReading(const VPlug& port, const Entries& host);

}  // namespace FaultTests
