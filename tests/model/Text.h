// Tells people what a sequence does.
#pragma once

#include "tests/model/GraphValue.h"
#include "tests/model/Sequence.h"

#include <string>

namespace ModelTests {

std::string textOf(Model::Number number);
std::string textOf(const std::string& text);
std::string textOf(const Model::Matrix& matrix);

// One line for each port and each step.
std::string textOf(const Sequence& sequence);

}  // namespace ModelTests
