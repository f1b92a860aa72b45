// Makes data for the host and values for the graph: arrays of lengths and at logical indices that
// are chosen, and leaves of which hardly any two are equal, so that one in a wrong place shows.
#pragma once

#include "tests/model/Choices.h"
#include "tests/model/GraphValue.h"
#include "tests/model/HostData.h"

#include <set>
#include <string>

namespace ModelTests {

class Content {
public:
    explicit Content(Choices& choices) : m_choices(choices) {}

    Model::GraphValue graphValue(const Model::Shape& shape);
    Model::HostNode hostNode(const Model::HostAttribute& attribute);

private:
    Model::HostNode hostElement(const Model::HostAttribute& attribute);
    Model::Array graphArray(const Model::Shape& element);
    std::set<unsigned> logicalIndices();
    unsigned length();

    Model::Number number();
    std::string text();
    Model::Matrix matrix();

    Choices& m_choices;
    // Grows with every leaf.
    unsigned m_leaves = 0;
    // How many more elements there may be in arrays, so that arrays in arrays stay small.
    unsigned m_elementsLeft = kMostElements;

    static constexpr unsigned kMostElements = 120;
};

}  // namespace ModelTests
