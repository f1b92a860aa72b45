// A host node with an input and an output port of each record type and of an array of each. The
// graph in it hands each input's value to the output of the same type, so that after an evaluation
// each output attribute must hold what its input attribute holds.
#pragma once

#include "tools/node/CompareData.h"
#include "tools/node/FillInputs.h"
#include "tools/node/FrameData.h"

#include <OpenVornik/VDataBlock.h>
#include <Pelmor/Library.h>
#include <TavrikGraph/Executor/GraphNode.h>

#include <chrono>
#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace Tolvane::Tools {

// How one graph type fared.
struct TypeResult {
    std::string typeName;
    std::size_t attributeCount = 0;
    // Summed over all evaluations, like the times. A port that is missing or was not translated is
    // a mismatch too.
    Comparison comparison = {};
    std::chrono::nanoseconds fromHost{};
    std::chrono::nanoseconds toHost{};
};

class RoundTrip {
public:
    // `translation` must outlive the round trip. A port for which it makes no fitting attribute is
    // left out, which is a mismatch of its type.
    RoundTrip(TavrikGraph::Executor::TypeTranslation& translation, const Pelmor::Library& library);

    // Evaluates the node with `data` in its inputs, and compares its outputs with them.
    void carry(const FrameData& data);

    const std::vector<TypeResult>& results() const noexcept { return m_results; }
    std::vector<std::string> portNames() const;

    // The world matrices in the output port of a single NamedTransforms record, as the last
    // evaluation left them. None if there is no such port.
    std::vector<VMatrix> worldMatricesThatCameOut();

private:
    using Direction = TavrikGraph::Executor::PortDirection;

    struct Port {
        std::size_t index;
        DataShape shape;
    };
    struct PortPair {
        const RecordType& record;
        bool isArray;
        // The place of its type in m_results.
        std::size_t result;
        Port input;
        Port output;
    };

    void addPorts(const RecordType& record, const Pelmor::Type& type);
    std::optional<Port> addPort(const std::string& name, Direction direction,
                                const Pelmor::Type& type, TypeResult& result);
    void fillInput(const PortPair& pair, const FrameData& data);
    void handOver(const std::vector<const Pelmor::AnyValue*>& inputs,
                  const std::vector<Pelmor::AnyValue*>& outputs);
    void judge(const PortPair& pair);
    DataPlace place(const Port& port);

    std::size_t m_inputCount = 0;
    // For each output port, the index of the input port whose value it takes.
    std::vector<std::size_t> m_sources;
    bool m_evaluated = false;
    TavrikGraph::Executor::GraphNode m_node;
    VDataBlock m_data;
    std::vector<PortPair> m_pairs;
    std::vector<TypeResult> m_results;
};

}  // namespace Tolvane::Tools
