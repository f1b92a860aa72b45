// What a failing call leaves of a write, by the operation that fails.
#pragma once

#include "tests/faults/Entries.h"
#include "tests/faults/PlannedCalls.h"

#include <set>
#include <string>

namespace FaultTests {

struct WriteResult {
    Entries left;
    // The arrays that the writer marks clean, as attributes: without logical indices. What is below
    // them is marked as well.
    std::set<std::string> marked;
};

// "rig.port[0].pins.names" stands in the attribute "rig.port.pins.names".
std::string attributeOf(const std::string& place);

// The write looks at the statuses of taking an element's handle in place and of removing an
// element.
bool endsWriting(const PlannedCall& call);

// The write of `graph` over `host` has ended with the failing call.
WriteResult resultOfEnding(const PlannedCalls& plan, std::size_t failing, const Entries& graph,
                           const Entries& host);
// The write has gone on with what the host gave it instead.
WriteResult resultOfGoingOn(const PlannedCalls& plan, std::size_t failing, const Entries& graph,
                            const Entries& host);

}  // namespace FaultTests
