// What is told of a sequence in which product and model disagree.
#pragma once

#include "tests/model/Choices.h"

#include <string>

namespace ModelTests {

// Shrinks the choices first, which takes some seconds. Names the difference, the steps, and the
// command that carries them out again.
std::string report(const Bytes& choices);

// The command that carries out the sequence of a seed again.
std::string commandFor(std::uint64_t seed);

// As the command takes them: two digits for each byte. Throws std::invalid_argument where `text` is
// something else.
std::string hexOf(const Bytes& choices);
Bytes bytesOf(const std::string& text);

}  // namespace ModelTests
