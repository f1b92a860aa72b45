// The product's side of a sequence: a node of the host whose ports the plugin made, and holders of
// the graph, between which the plugin's translation object carries values.
#pragma once

#include "tests/model/Sequence.h"

#include <OpenVornik/VDataBlock.h>
#include <OpenVornik/VObject.h>
#include <OpenVornik/VPlug.h>
#include <Pelmor/AnyValue.h>
#include <TavrikGraph/Executor/HostContext.h>
#include <TavrikGraph/Executor/TypeTranslation.h>

#include <array>
#include <memory>
#include <vector>

namespace ModelTests {

class ProductWorld {
public:
    explicit ProductWorld(const std::vector<PlannedPort>& ports);

    Outcome apply(const Step& step);

    VDataBlock block() const;
    const std::vector<VPlug>& ports() const noexcept { return m_ports; }
    const std::array<Pelmor::AnyValue, kHolders>& holders() const noexcept { return m_holders; }

private:
    struct Release {
        void operator()(TavrikGraph::Executor::TypeTranslation* translation) const noexcept {
            translation->release();
        }
    };

    void addPort(const PlannedPort& port);
    VPlug plugAt(const Model::Place& place) const;
    template <typename Translate>
    Outcome translate(const Model::Place& place, const std::vector<Model::Failure>& failures,
                      Translate translate);

    Outcome carryOut(const Read& step);
    Outcome carryOut(const Write& step);
    Outcome carryOut(const Fill& step);
    Outcome carryOut(const Make& step);
    Outcome carryOut(const Copy& step);
    Outcome carryOut(const Dirty& step);

    std::unique_ptr<TavrikGraph::Executor::TypeTranslation, Release> m_translation;
    VObject m_node;
    std::vector<VPlug> m_ports;
    std::array<Pelmor::AnyValue, kHolders> m_holders;
};

}  // namespace ModelTests
