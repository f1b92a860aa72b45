// What a failing call leaves of adding a port, by the operation that fails.
#pragma once

#include "tests/faults/AttributePlan.h"

#include <string>

namespace FaultTests {

struct AdditionResult {
    // Empty where the port was added.
    std::string message;
    // What the node has of the port then.
    AttributeRows left;
    Operations operations;
};

// Adding a port looks at the statuses of handing its attribute to the modifier and of the
// modifier's work.
bool endsAddition(const PlannedCall& call);

// Of adding "port" to "rig".
AdditionResult resultOfAdding(const PlannedCalls& plan, std::size_t failing,
                              const AttributeRows& rows);

}  // namespace FaultTests
