// A host node with an input and an output port of one type, as a library makes them.
#pragma once

#include "tools/node/DataShape.h"

#include <OpenVornik/VDataBlock.h>
#include <OpenVornik/VObject.h>
#include <Pelmor/AnyValue.h>
#include <Pelmor/Type.h>
#include <TavrikGraph/Executor/TypeTranslation.h>

#include <optional>
#include <string>
#include <vector>

namespace Tolvane::Tools {

class TypedNode {
public:
    struct Port {
        // Nothing if the port got no attribute.
        std::optional<DataShape> shape;
        // What the user was shown meanwhile.
        std::vector<std::string> messages;
    };

    // `translation` must outlive the node.
    TypedNode(const TavrikGraph::Executor::TypeTranslation& translation, const Pelmor::Type& type);
    // Gets its ports from `ports` and its values carried by `values`: the same translation, of
    // which the one may be watched and the other not.
    TypedNode(const TavrikGraph::Executor::TypeTranslation& ports,
              const TavrikGraph::Executor::TypeTranslation& values, const Pelmor::Type& type);

    const Pelmor::Type& type() const noexcept { return m_type; }
    const VObject& hostNode() const noexcept { return m_node; }
    VDataBlock& data() noexcept { return m_data; }
    // They are called "in" and "out".
    const Port& input() const noexcept { return m_input; }
    const Port& output() const noexcept { return m_output; }
    // Throws Error, which names the library, unless both have an attribute.
    void requirePorts(const std::string& library) const;

    // The data of a port that has an attribute.
    DataPlace inputPlace() { return place(*m_input.shape); }
    DataPlace outputPlace() { return place(*m_output.shape); }

    // Each has one value carried, as an evaluation does, and returns whether it was.
    bool read(Pelmor::AnyValue& value);
    bool write(const Pelmor::AnyValue& value);

private:
    Port addPort(const TavrikGraph::Executor::TypeTranslation& translation, const char* name,
                 TavrikGraph::Executor::PortDirection direction);
    DataPlace place(const DataShape& shape) { return {shape, m_data.outputValue(shape.plug)}; }

    const TavrikGraph::Executor::TypeTranslation& m_values;
    Pelmor::Type m_type;
    VObject m_node;
    VDataBlock m_data;
    Port m_input;
    Port m_output;
};

// The type of this name. Throws Error if the graph does not know it.
Pelmor::Type typeNamed(const std::string& name, const Pelmor::Library& types);

}  // namespace Tolvane::Tools
