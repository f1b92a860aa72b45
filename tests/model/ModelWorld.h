// The model's side of a sequence: a node's ports and the graph's holders, as they should be.
#pragma once

#include "tests/model/HostData.h"
#include "tests/model/Sequence.h"
#include "tests/model/Translation.h"

#include <array>
#include <string_view>
#include <vector>

namespace ModelTests {

class ModelWorld {
public:
    explicit ModelWorld(const std::vector<PlannedPort>& ports);

    Outcome apply(const Step& step);

    const std::vector<Model::Port>& ports() const noexcept { return m_ports; }
    const std::array<Model::Holder, kHolders>& holders() const noexcept { return m_holders; }
    // The operations that the last step made fail, and the arrays that it walked.
    const std::vector<std::string_view>& failed() const noexcept { return m_failed; }
    const Model::Walks& walks() const noexcept { return m_walks; }

private:
    template <typename Translate>
    Outcome translate(const std::vector<Model::Failure>& failures, Translate translate);

    Outcome carryOut(const Read& step);
    Outcome carryOut(const Write& step);
    Outcome carryOut(const Fill& step);
    Outcome carryOut(const Make& step);
    Outcome carryOut(const Copy& step);
    Outcome carryOut(const Dirty& step);

    std::vector<Model::Port> m_ports;
    std::array<Model::Holder, kHolders> m_holders;
    std::vector<std::string_view> m_failed;
    Model::Walks m_walks;
};

}  // namespace ModelTests
