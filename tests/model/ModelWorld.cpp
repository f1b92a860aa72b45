#include "tests/model/ModelWorld.h"

#include "tests/model/Host.h"

namespace ModelTests {

using namespace Model;

ModelWorld::ModelWorld(const std::vector<PlannedPort>& ports) {
    for (const PlannedPort& port : ports) m_ports.push_back(makePort(port.type, port.isInput));
}

Outcome ModelWorld::apply(const Step& step) {
    m_failed.clear();
    m_walks.clear();
    return std::visit([&](const auto& kind) { return carryOut(kind); }, step);
}

template <typename Translate>
Outcome ModelWorld::translate(const std::vector<Failure>& failures, Translate translate) {
    CallLog calls(failures);
    Host host(m_ports, calls);
    const bool result = translate(host);
    m_failed = calls.failed();
    return {result, host.messages(), calls.takeCalls()};
}

Outcome ModelWorld::carryOut(const Read& step) {
    return translate(step.failures, [&](Host& host) {
        return translateFromHost(host, step.type, m_holders[step.holder], step.place, m_walks);
    });
}

Outcome ModelWorld::carryOut(const Write& step) {
    return translate(step.failures, [&](Host& host) {
        return translateToHost(host, m_holders[step.holder], step.place, m_walks);
    });
}

Outcome ModelWorld::carryOut(const Fill& step) {
    m_ports[step.port].data = step.data;
    return {};
}

Outcome ModelWorld::carryOut(const Make& step) {
    Holder& holder = m_holders[step.holder];
    holder.reset();
    if (step.value) holder = HeldValue{step.value->type, unsharedCopy(step.value->value)};
    return {};
}

Outcome ModelWorld::carryOut(const Copy& step) {
    m_holders[step.to] = Holder(m_holders[step.from]);
    return {};
}

Outcome ModelWorld::carryOut(const Dirty& step) {
    CallLog calls({});
    Host host(m_ports, calls);
    host.setDirty(host.plugAt(step.place));
    return {};
}

}  // namespace ModelTests
