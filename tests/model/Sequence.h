// What one test does, step by step, to the product and to the model alike.
#pragma once

#include "tests/model/CallLog.h"
#include "tests/model/GraphValue.h"
#include "tests/model/HostData.h"

#include <cstddef>
#include <string>
#include <variant>
#include <vector>

namespace ModelTests {

constexpr std::size_t kHolders = 3;

// A translation from the host into a holder.
struct Read {
    std::string type;
    Model::Place place;
    std::size_t holder;
    std::vector<Model::Failure> failures;
};

// A translation of what a holder has to the host.
struct Write {
    std::size_t holder;
    Model::Place place;
    std::vector<Model::Failure> failures;
};

// A user of the host gives a port other data.
struct Fill {
    std::size_t port;
    Model::HostNode data;
};

// The graph gives a holder another value, or none.
struct Make {
    std::size_t holder;
    Model::Holder value;
};

struct Copy {
    std::size_t from;
    std::size_t to;
};

// Something on which the place depends changes.
struct Dirty {
    Model::Place place;
};

using Step = std::variant<Read, Write, Fill, Make, Copy, Dirty>;

struct PlannedPort {
    std::string type;
    bool isInput;
};

struct Sequence {
    std::vector<PlannedPort> ports;
    std::vector<Step> steps;
};

// What a step lets be seen at once. Only translations have anything of it.
struct Outcome {
    bool result = false;
    std::vector<std::string> messages;
    std::vector<Model::Call> calls;
};

}  // namespace ModelTests
