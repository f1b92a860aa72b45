#include "tools/node/RoundTrip.h"

#include "tools/node/DataPath.h"
#include "tools/node/FillInputs.h"
#include "tools/node/FilledJoint.h"
#include "tools/node/FindUnfilled.h"
#include "tools/node/NamedTypes.h"
#include "tools/node/ShapeMisfit.h"
#include "tools/node/SpoilData.h"

#include <OpenVornik/VArrayDataHandle.h>
#include <OpenVornik/VFnDependencyNode.h>
#include <Pelmor/ArrayType.h>
#include <TavrikGraph/Executor/TypeTranslation.h>

#include <algorithm>
#include <utility>

namespace Tolvane::Tools {

RoundTrip::RoundTrip(TavrikGraph::Executor::TypeTranslation& translation,
                     const Pelmor::Library& library)
    : m_translation(translation),
      m_node(m_translation, "roundTrip",
             [this](const auto& inputs, const auto& outputs) { handOver(inputs, outputs); }),
      m_data(VFnDependencyNode(m_node.hostNode()).dataBlock()) {
    std::vector<Pelmor::Type> arrays;
    for (const std::string& name : distinctNamesOf(translation)) {
        const auto type = library.findType(name.c_str());
        if (!type)
            m_notTried.push_back(name);
        else if (type->getTypeKind() == Pelmor::TypeKind::Array)
            arrays.push_back(*type);
        else
            addPorts(*type);
    }
    for (const Pelmor::Type& array : arrays) addPorts(array);
    findSkeleton();
}

void RoundTrip::carry(const FrameData& data, const Listener& listener) {
    const std::size_t seed = m_evaluations++;
    for (PortPair& pair : m_pairs) {
        const DataPlace input = place(pair.input);
        fillInput(pair.plan, input, data, seed);
        m_data.setDirty(input.shape.plug.attribute());
        // Otherwise a value left by an earlier evaluation could pass for one that was written now.
        spoilData(place(pair.output));
    }
    m_evaluated = false;
    for (const PortPair& pair : m_pairs) m_data.inputValue(pair.output.shape.plug);
    for (const PortPair& pair : m_pairs) judge(pair, data, seed, listener);
}

void RoundTrip::addPorts(const Pelmor::Type& type) {
    const std::string name = newPortName(type);
    TypeResult& result = m_results.emplace_back();
    result.typeName = type.getFullyQualifiedName().c_str();

    const auto input = addPort("in" + name, Direction::Input, type, result);
    if (!input) return;
    result.attributeCount = attributeCount(input->shape);
    const auto output = addPort("out" + name, Direction::Output, type, result);
    if (output)
        m_pairs.push_back(
            {planFor(input->shape), m_results.size() - 1, *input, *output, ElementLayout(type)});
}

// "Pins" for "Rigging::Module::Pins" and "PinsArray" for arrays of it; with a number behind it
// where another type has led to that name.
std::string RoundTrip::newPortName(const Pelmor::Type& type) {
    std::string suffix;
    Pelmor::Type single = type;
    for (; single.getTypeKind() == Pelmor::TypeKind::Array; suffix += "Array")
        single = Pelmor::ArrayType(single).getElementType();
    const std::string path = single.getFullyQualifiedName().c_str();
    const std::size_t colons = path.rfind("::");
    const std::string name = path.substr(colons == std::string::npos ? 0 : colons + 2) + suffix;

    std::string unique = name;
    for (int i = 2; !m_portNames.insert(unique).second; ++i) unique = name + std::to_string(i);
    return unique;
}

std::optional<RoundTrip::Port> RoundTrip::addPort(const std::string& name, Direction direction,
                                                  const Pelmor::Type& type, TypeResult& result) {
    if (!m_node.addPort(name.c_str(), direction, type)) {
        result.comparison.addMismatch(DataPath(name).mismatch("could not be added"), {});
        return std::nullopt;
    }
    // An output port takes the value of the input port that was added right before it.
    if (direction == Direction::Input)
        ++m_inputCount;
    else
        m_sources.push_back(m_inputCount - 1);
    Port port{m_node.ports().size() - 1, shapeOf(m_node.ports().back().plug)};
    const auto misfit = misfitOf(port.shape, type);
    if (!misfit) return port;
    Mismatch mismatch = DataPath(port.shape.name).mismatch(misfit->what);
    mismatch.path = misfit->path;
    result.comparison.addMismatch(std::move(mismatch), {});
    return std::nullopt;
}

void RoundTrip::findSkeleton() {
    for (std::size_t i = 0; i < m_pairs.size(); ++i) {
        if (m_pairs[i].output.shape.isArray) continue;
        const auto& members = m_pairs[i].plan.members;
        const auto found = std::find_if(members.begin(), members.end(), [](const FillPlan& member) {
            return member.content == FillPlan::Content::JointTransforms && member.choice == 0;
        });
        if (found == members.end()) continue;
        m_skeleton = Skeleton{i, static_cast<std::size_t>(found - members.begin())};
        return;
    }
}

void RoundTrip::handOver(const std::vector<const Pelmor::AnyValue*>& inputs,
                         const std::vector<Pelmor::AnyValue*>& outputs) {
    m_evaluated = true;
    for (std::size_t i = 0; i < outputs.size(); ++i) *outputs[i] = *inputs[m_sources[i]];
}

void RoundTrip::judge(const PortPair& pair, const FrameData& data, std::uint64_t seed,
                      const Listener& listener) {
    TypeResult& result = m_results[pair.result];
    const auto& input = m_node.ports()[pair.input.index];
    const auto& output = m_node.ports()[pair.output.index];
    MismatchListener typeListener;
    if (listener) typeListener = [&](const Mismatch& mismatch) { listener(result, mismatch); };
    const auto fails = [&](const DataShape& port, const std::string& why) {
        result.comparison.addMismatch(DataPath(port.name).mismatch(why), typeListener);
    };
    if (m_evaluated) {
        result.fromHost.add(m_translation.timeOf(input.plug));
        result.toHost.add(m_translation.timeOf(output.plug));
    }
    if (!m_evaluated) return fails(pair.output.shape, "was not evaluated");
    if (!input.translated) return fails(pair.input.shape, "was not translated");
    // Ahead of all that may follow from it.
    if (const auto wrongSize = pair.elements.misfitOf(input.value))
        fails(pair.input.shape, *wrongSize);
    if (auto unfilled = findUnfilled(pair.plan, place(pair.input), data, seed))
        result.comparison.addMismatch(std::move(*unfilled), typeListener);
    if (!output.translated) return fails(pair.output.shape, "was not translated");
    compareData(place(pair.input), place(pair.output), result.comparison, typeListener);
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
    if (!m_skeleton) return worlds;
    const DataPlace transforms = place(m_pairs[m_skeleton->pair].output).child(m_skeleton->member);
    VArrayDataHandle array(transforms.handle);
    for (unsigned i = array.elementCount(); i > 0; --i) {
        const DataPlace transform{transforms.shape, array.outputValue()};
        worlds.push_back(transform.child(kWorld).handle.asMatrix());
        array.next();
    }
    return worlds;
}

const PosedJoint* RoundTrip::jointOf(const Mismatch& mismatch, const FrameData& data) const {
    for (const PortPair& pair : m_pairs)
        if (pair.output.shape.name == mismatch.port)
            return filledJoint(pair.plan, pair.output.shape, data, mismatch);
    return nullptr;
}

}  // namespace Tolvane::Tools
