#include "tests/model/ProductWorld.h"

#include "tests/model/GiveContent.h"
#include "tests/support/ShownErrors.h"

#include <OpenVornik/Testing/CallObserver.h>
#include <OpenVornik/VDGModifier.h>
#include <OpenVornik/VFnDependencyNode.h>
#include <Pelmor/Library.h>

#include <stdexcept>
#include <string>

extern "C" TavrikGraph::Executor::TypeTranslation* createTavrikTypeTranslation();

namespace ModelTests {
namespace {

using Model::CallLog;
using Model::Place;
using TavrikGraph::Executor::HostContext;
using TavrikGraph::Executor::NodeEditContext;
using TavrikGraph::Executor::PortDirection;

class Observer : public OpenVornik::Testing::CallObserver {
public:
    explicit Observer(CallLog& calls) : m_calls(calls) {}

private:
    VStatus::Code called(const OpenVornik::Testing::Call& call) override {
        const int status = m_calls.add({call.operation, call.index, call.statusRequested});
        return static_cast<VStatus::Code>(status);
    }

    CallLog& m_calls;
};

Pelmor::Type graphType(const std::string& name) {
    static const Pelmor::Library library;
    return library.getType(name.c_str());
}

}  // namespace

ProductWorld::ProductWorld(const std::vector<PlannedPort>& ports)
    : m_translation(createTavrikTypeTranslation()), m_node(VFnDependencyNode().create("rig")) {
    for (const PlannedPort& port : ports) addPort(port);
}

Outcome ProductWorld::apply(const Step& step) {
    return std::visit([&](const auto& kind) { return carryOut(kind); }, step);
}

VDataBlock ProductWorld::block() const { return VFnDependencyNode(m_node).dataBlock(); }

void ProductWorld::addPort(const PlannedPort& port) {
    const std::string name = "port" + std::to_string(m_ports.size());
    VDGModifier modifier;
    NodeEditContext context{nullptr, m_node, nullptr, &modifier};
    const auto direction = port.isInput ? PortDirection::Input : PortDirection::Output;
    if (!m_translation->portAdded(name.c_str(), direction, graphType(port.type), 0, 0, &context))
        throw std::runtime_error("the plugin gave the node no attribute of type " + port.type);
    m_ports.push_back(VFnDependencyNode(m_node).findPlug(name.c_str()));
}

VPlug ProductWorld::plugAt(const Place& place) const {
    VPlug plug = m_ports[place.port];
    for (const unsigned part : place.path)
        plug = plug.isArray() ? plug.elementByLogicalIndex(part) : plug.child(part);
    return plug;
}

template <typename Translate>
Outcome ProductWorld::translate(const Place& place, const std::vector<Model::Failure>& failures,
                                Translate translate) {
    VPlug plug = plugAt(place);
    VDataBlock dataBlock = block();
    const HostContext context{nullptr, &plug, &dataBlock};
    const TestSupport::ShownErrors errors;
    CallLog calls(failures);
    const Observer observer(calls);
    const bool result = translate(context);
    return {result, errors.messages(), calls.takeCalls()};
}

Outcome ProductWorld::carryOut(const Read& step) {
    return translate(step.place, step.failures, [&](const HostContext& context) {
        const Pelmor::Type type = graphType(step.type);
        return m_translation->translateFromHost(type, m_holders[step.holder], context);
    });
}

Outcome ProductWorld::carryOut(const Write& step) {
    return translate(step.place, step.failures, [&](const HostContext& context) {
        return m_translation->translateToHost(m_holders[step.holder], context);
    });
}

Outcome ProductWorld::carryOut(const Fill& step) {
    VPlug plug = m_ports[step.port];
    fillHost(block().outputValue(plug), plug, step.data);
    return {};
}

Outcome ProductWorld::carryOut(const Make& step) {
    m_holders[step.holder] = makeHolder(step.value);
    return {};
}

Outcome ProductWorld::carryOut(const Copy& step) {
    m_holders[step.to] = m_holders[step.from];
    return {};
}

Outcome ProductWorld::carryOut(const Dirty& step) {
    block().setDirty(plugAt(step.place).attribute());
    return {};
}

}  // namespace ModelTests
