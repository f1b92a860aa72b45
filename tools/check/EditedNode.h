// A host node that is given ports through a translation, as the framework does it.
#pragma once

#include "tools/check/Trial.h"
#include "tools/check/WatchedHost.h"
#include "tools/node/ShapeMisfit.h"

#include <OpenVornik/VErrorListener.h>
#include <OpenVornik/VObject.h>
#include <OpenVornik/VPlug.h>
#include <Pelmor/Type.h>
#include <TavrikGraph/Executor/PortDirection.h>

#include <optional>
#include <string>
#include <vector>

namespace Tolvane::Tools {

// What the host shows the user while it lives.
class ShownMessages {
public:
    const std::vector<std::string>& all() const noexcept { return m_all; }
    // Whether there is one that says anything.
    bool sayAnything() const;

private:
    std::vector<std::string> m_all;
    VErrorListener m_listener{
        [this](const VString& message) { m_all.emplace_back(message.asChar()); }};
};

using Directions = std::vector<TavrikGraph::Executor::PortDirection>;
extern const Directions kBothDirections;

// The name of a port whose name does not matter.
constexpr const char* kPort = "port";

class EditedNode {
public:
    using Direction = TavrikGraph::Executor::PortDirection;
    using Names = std::vector<std::string>;

    explicit EditedNode(Trial& trial) : EditedNode(trial, "node") {}
    EditedNode(Trial& trial, const char* name);

    const VObject& node() const noexcept { return m_node; }
    // The names of its attributes at the top level, in the order in which they were added.
    Names attributes() const;
    // Null if it has no such attribute.
    VPlug plug(const std::string& name) const;

    // From now on these calls of a translation fail; no more for an empty function. `words` follow
    // what is done, such as ", with a failure of VPlug::child".
    void fail(WatchedHost::Fails fails, const std::string& words);

    // Asks the translation for an attribute, and returns what it returns.
    bool add(const std::string& name, Direction direction, const Pelmor::Type& type);
    // Fails the case unless the node has just this attribute more and true came, or a message was
    // shown, nothing was added and false came. Returns which.
    bool addOrBeRefused(const std::string& name, Direction direction, const Pelmor::Type& type);
    // Fails the case unless it is the latter.
    void beRefused(const std::string& name, Direction direction, const Pelmor::Type& type);
    // Skips the case if there is no attribute then, which a case of its own tells.
    VPlug addForSure(const std::string& name, Direction direction, const Pelmor::Type& type);

    // Why an attribute cannot hold what can be carried of a value of this type; what cannot be
    // carried at all is noted.
    std::optional<Misfit> misfit(const std::string& name, const Pelmor::Type& type) const;
    // Fails the case if there is anything.
    void expectFit(const std::string& name, const Pelmor::Type& type) const;

private:
    Trial& m_trial;
    VObject m_node;
    std::uint32_t m_ports = 0;
    WatchedHost::Fails m_fails;
    std::string m_failingWords;
};

}  // namespace Tolvane::Tools
