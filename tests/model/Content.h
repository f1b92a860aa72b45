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
    // One of the arrays of `shape` has `length` elements, and all others none. There is one that
    // may be so long.
    Model::GraphValue longGraphValue(const Model::Shape& shape, unsigned length);

private:
    void begin();
    Model::GraphValue valueOf(const Model::Shape& shape);
    Model::HostNode nodeOf(const Model::HostAttribute& attribute);
    Model::HostNode elementOf(const Model::HostAttribute& attribute);
    Model::Array graphArray(const Model::Shape& element);
    std::set<unsigned> logicalIndices();
    unsigned length();

    Model::Number number();
    std::string text();
    Model::Matrix matrix();

    Choices& m_choices;
    // Grows with every leaf.
    unsigned m_leaves = 0;
    // How many more elements there may be in a value's arrays, so that arrays in arrays stay small.
    unsigned m_elementsLeft = 0;
    // Where arrays in arrays are empty, the calls of the outer walk are all that there are of it,
    // so that failures meet each of its elements.
    bool m_isShallow = false;
    unsigned m_depth = 0;
    // This many arrays that may be long come before the one that is.
    unsigned m_arraysBeforeLong = 0;
    unsigned m_longLength = 0;
};

// How many arrays of a type may have so many elements: those that lie in no other array and, if it
// is very many, whose elements are plain.
unsigned longArrays(const Model::Shape& shape, unsigned length);

}  // namespace ModelTests
