// The calls of the host that an operation is expected to make, each with the place that it is
// about, so that a test can say what is lost where one of them fails.
#pragma once

#include <OpenVornik/VFnAttribute.h>
#include <OpenVornik/VPlug.h>

#include <algorithm>
#include <cstddef>
#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

namespace FaultTests {

struct PlannedCall {
    std::string_view operation;
    // The child, element or array that the call gives, reads, writes, counts or marks.
    std::string place;
    // Inside an element of a builder: what is written there shows when the array is set.
    bool isInBuilder = false;
};

using PlannedCalls = std::vector<PlannedCall>;
using Operations = std::vector<std::string_view>;

inline bool isOneOf(std::string_view operation,
                    std::initializer_list<std::string_view> operations) {
    return std::find(operations.begin(), operations.end(), operation) != operations.end();
}

inline Operations operationsOf(const PlannedCalls& plan) {
    Operations operations;
    for (const PlannedCall& call : plan) operations.push_back(call.operation);
    return operations;
}

// Which of the calls of its operation a call of the plan is, counted from 1.
inline unsigned occurrenceOf(const PlannedCalls& plan, std::size_t index) {
    unsigned occurrence = 0;
    for (std::size_t i = 0; i <= index; ++i)
        occurrence += plan[i].operation == plan[index].operation ? 1 : 0;
    return occurrence;
}

// The children that cross the boundary, in their order: all but the objects, which stand last.
inline std::vector<VPlug> carriedChildren(const VPlug& compound) {
    std::vector<VPlug> children;
    for (unsigned i = 0; i < compound.numChildren(); ++i)
        if (VFnAttribute(compound.child(i).attribute()).kind() != VFnAttribute::kGeneric)
            children.push_back(compound.child(i));
    return children;
}

}  // namespace FaultTests
