// A value that came back other than it went in, or not at all.
#pragma once

#include <OpenVornik/VMatrix.h>

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <variant>
#include <vector>

namespace Tolvane::Tools {

// Nothing, a truth value, a whole number, a number, a text or a matrix.
using LeafValue = std::variant<std::monostate, bool, std::int64_t, double, std::string, VMatrix>;

// Both are counted from 0.
struct MatrixPlace {
    unsigned row;
    unsigned column;
};

struct Mismatch {
    std::string port;
    // The way from the port's attribute to what is wrong, such as "pins.names[3]", or
    // "[2].names[3]" in a port of an array. Empty if it is the port itself.
    std::string path;
    // The logical indices along the path, outermost first.
    std::vector<unsigned> indices;
    // What is wrong, such as "differs".
    std::string what;
    // What went in, what came back, and the second minus the first: one line each, for people;
    // empty where there is none.
    std::string expected;
    std::string actual;
    std::string difference;
    // The same two, whole. Of two matrices, the elements that differ first.
    LeafValue expectedValue = {};
    LeafValue actualValue = {};
    // In a matrix, the first element that differs, which the values are.
    std::optional<MatrixPlace> element = {};
};

using MismatchListener = std::function<void(const Mismatch&)>;

// The port and the path, such as "outFace.pins.names[3]".
std::string placeOf(const Mismatch& mismatch);

// All of it, such as "outFace.label: differs: "a" went in, "b" came back".
std::string inOneLine(const Mismatch& mismatch);

// A mismatch of a run.
struct FoundMismatch {
    std::string typeName;
    // The rig's frame in which it was found; nothing if no frame had been evaluated yet, or if it
    // is one of the run as a whole.
    std::optional<std::size_t> frame;
    Mismatch mismatch;
};

}  // namespace Tolvane::Tools
