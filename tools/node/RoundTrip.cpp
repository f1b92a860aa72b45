#include "tools/node/RoundTrip.h"

#include "tools/node/SpoilData.h"

#include <OpenVornik/VArrayDataHandle.h>
#include <OpenVornik/VFnDependencyNode.h>

namespace Tolvane::Tools {

RoundTrip::RoundTrip(TavrikGraph::Executor::TypeTranslation& translation,
                     const Pelmor::Library& library)
    : m_node(translation, "roundTrip",
             [this](const auto& inputs, const auto& outputs) { handOver(inputs, outputs); }),
      m_data(VFnDependencyNode(m_node.hostNode()).dataBlock()) {
    for (const RecordType& record : recordTypes())
        addPorts(record, library.getType(record.typeName));
    for (const RecordType& record : recordTypes())
        addPorts(record, Pelmor::Library::arrayOf(library.getType(record.typeName)));
}

void RoundTrip::carry(const FrameData& data) {
    for (const PortPair& pair : m_pairs) {
        fillInput(pair, data);
        // Otherwise a value left by an earlier evaluation could pass for one that was written now.
        spoilData(place(pair.output));
    }
    m_evaluated = false;
    for (const PortPair& pair : m_pairs) m_data.inputValue(pair.output.shape.plug);
    for (const PortPair& pair : m_pairs) judge(pair);
}

void RoundTrip::addPorts(const RecordType& record, const Pelmor::Type& type) {
    const bool isArray = type.getTypeKind() == Pelmor::TypeKind::Array;
    const std::string name = record.portName + std::string(isArray ? "Array" : "");
    TypeResult& result = m_results.emplace_back();
    result.typeName = type.getFullyQualifiedName().c_str();

    const auto input = addPort("in" + name, Direction::Input, type, result);
    if (!input) return;
    result.attributeCount = attributeCount(input->shape);
    const auto output = addPort("out" + name, Direction::Output, type, result);
    if (output) m_pairs.push_back({record, isArray, m_results.size() - 1, *input, *output});
}

std::optional<RoundTrip::Port> RoundTrip::addPort(const std::string& name, Direction direction,
                                                  const Pelmor::Type& type, TypeResult& result) {
    if (!m_node.addPort(name.c_str(), direction, type)) {
        result.comparison.addMismatch(name + ": could not be added");
        return std::nullopt;
    }
    // An output port takes the value of the input port that was added right before it.
    if (direction == Direction::Input)
        ++m_inputCount;
    else
        m_sources.push_back(m_inputCount - 1);
    Port port{m_node.ports().size() - 1, shapeOf(m_node.ports().back().plug)};
    if (fits(port.shape, type)) return port;
    result.comparison.addMismatch(name + ": has an attribute that does not fit its type");
    return std::nullopt;
}

void RoundTrip::fillInput(const PortPair& pair, const FrameData& data) {
    const DataPlace input = place(pair.input);
    if (pair.isArray)
        fillRecordArray(pair.record, input, data.limbs);
    else
        pair.record.fill(input, data.rig);
    m_data.setDirty(input.shape.plug.attribute());
}

void RoundTrip::handOver(const std::vector<const Pelmor::AnyValue*>& inputs,
                         const std::vector<Pelmor::AnyValue*>& outputs) {
    m_evaluated = true;
    for (std::size_t i = 0; i < outputs.size(); ++i) *outputs[i] = *inputs[m_sources[i]];
}

void RoundTrip::judge(const PortPair& pair) {
    TypeResult& result = m_results[pair.result];
    const auto& input = m_node.ports()[pair.input.index];
    const auto& output = m_node.ports()[pair.output.index];
    result.fromHost += input.duration;
    result.toHost += output.duration;
    if (!m_evaluated)
        result.comparison.addMismatch(pair.output.shape.name + ": was not evaluated");
    else if (!input.translated)
        result.comparison.addMismatch(pair.input.shape.name + ": was not translated");
    else if (!output.translated)
        result.comparison.addMismatch(pair.output.shape.name + ": was not translated");
    else
        compareData(place(pair.input), place(pair.output), result.comparison);
}

// The data that the node holds, read as an output value so that nothing is evaluated for it.
DataPlace RoundTrip::place(const Port& port) {
    return {port.shape, m_data.outputValue(port.shape.plug)};
}

std::vector<std::string> RoundTrip::portNames() const {
    std::vector<std::string> names;
    for (const auto& port : m_node.ports()) names.emplace_back(port.name.c_str());
    return names;
}

std::vector<VMatrix> RoundTrip::worldMatricesThatCameOut() {
    std::vector<VMatrix> worlds;
    for (const PortPair& pair : m_pairs) {
        if (pair.record.portName != std::string("NamedTransforms") || pair.isArray) continue;
        const DataPlace transforms = place(pair.output).child(1);
        VArrayDataHandle array(transforms.handle);
        for (unsigned i = array.elementCount(); i > 0; --i) {
            const DataPlace transform{transforms.shape, array.outputValue()};
            worlds.push_back(transform.child(kWorld).handle.asMatrix());
            array.next();
        }
    }
    return worlds;
}

}  // namespace Tolvane::Tools
