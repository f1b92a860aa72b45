// A host node with an input and an output port of each type that a translation names and the graph
// knows. The graph in it hands each input's value to the output of the same type, so that after an
// evaluation each output attribute must hold what its input attribute holds.
#pragma once

#include "tools/node/CompareData.h"
#include "tools/node/FillPlan.h"
#include "tools/node/FrameData.h"
#include "tools/node/GraphLayout.h"
#include "tools/node/MedianTime.h"
#include "tools/node/TimedTranslation.h"

#include <OpenVornik/VDataBlock.h>
#include <Pelmor/Library.h>
#include <TavrikGraph/Executor/GraphNode.h>

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <set>
#include <string>
#include <vector>

namespace Tolvane::Tools {

// How one graph type fared.
struct TypeResult {
    std::string typeName;
    std::size_t attributeCount = 0;
    // Summed over all evaluations. A port that is missing or was not translated is a mismatch too.
    Comparison comparison = {};
    // Processor time of an evaluation.
    MedianTime fromHost = {};
    MedianTime toHost = {};
};

class RoundTrip {
public:
    // `translation` must outlive the round trip. A port for which it makes no fitting attribute is
    // left out, which is a mismatch of its type. The types come in the translation's order, arrays
    // last.
    RoundTrip(TavrikGraph::Executor::TypeTranslation& translation, const Pelmor::Library& library);

    // Whoever wants to know of each mismatch while a frame is carried. Those that are found before
    // are each the first of their result.
    using Listener = std::function<void(const TypeResult& type, const Mismatch& mismatch)>;

    // Evaluates the node with `data` in its inputs, and compares its outputs with them. It is
    // faster without a listener, if there are mismatches.
    void carry(const FrameData& data, const Listener& listener = {});

    const std::vector<TypeResult>& results() const noexcept { return m_results; }
    // The types that the translation names and the graph does not know.
    const std::vector<std::string>& notTried() const noexcept { return m_notTried; }
    std::vector<std::string> portNames() const;

    // Whether there are ports of a single record that has an array of transforms, from which a
    // skeleton can be drawn; and the world matrices in that array of the first such output, as the
    // last evaluation left them.
    bool carriesASkeleton() const noexcept { return m_skeleton.has_value(); }
    std::vector<VMatrix> worldMatricesThatCameOut();

    // The joint that a value was taken from which differs after `data` was carried; null if it was
    // not taken from one.
    const PosedJoint* jointOf(const Mismatch& mismatch, const FrameData& data) const;

private:
    using Direction = TavrikGraph::Executor::PortDirection;

    struct Port {
        std::size_t index;
        DataShape shape;
    };
    struct PortPair {
        FillPlan plan;
        // The place of its type in m_results.
        std::size_t result;
        Port input;
        Port output;
        ElementLayout elements;
    };

    // The array that a skeleton is drawn from.
    struct Skeleton {
        std::size_t pair;
        std::size_t member;
    };

    void addPorts(const Pelmor::Type& type);
    std::string newPortName(const Pelmor::Type& type);
    std::optional<Port> addPort(const std::string& name, Direction direction,
                                const Pelmor::Type& type, TypeResult& result);
    void findSkeleton();
    void handOver(const std::vector<const Pelmor::AnyValue*>& inputs,
                  const std::vector<Pelmor::AnyValue*>& outputs);
    // `data` and `seed` are what the inputs were filled with.
    void judge(const PortPair& pair, const FrameData& data, std::uint64_t seed,
               const Listener& listener);
    DataPlace place(const Port& port);

    std::size_t m_inputCount = 0;
    // For each output port, the index of the input port whose value it takes.
    std::vector<std::size_t> m_sources;
    bool m_evaluated = false;
    TimedTranslation m_translation;
    TavrikGraph::Executor::GraphNode m_node;
    VDataBlock m_data;
    std::set<std::string> m_portNames;
    std::vector<PortPair> m_pairs;
    std::optional<Skeleton> m_skeleton;
    std::vector<TypeResult> m_results;
    std::vector<std::string> m_notTried;
    std::size_t m_evaluations = 0;
};

}  // namespace Tolvane::Tools
