#include "tools/check/EditedNode.h"

#include "tools/check/MemberAttributes.h"
#include "tools/support/OneLine.h"

#include <OpenVornik/VDGModifier.h>
#include <OpenVornik/VFnAttribute.h>
#include <OpenVornik/VFnDependencyNode.h>
#include <TavrikGraph/Executor/NodeEditContext.h>

#include <algorithm>
#include <utility>

namespace Tolvane::Tools {
namespace {

using Direction = EditedNode::Direction;
using Names = EditedNode::Names;

std::string listed(const Names& names) {
    if (names.empty()) return "no attribute";
    std::string text;
    for (const std::string& name : names)
        text += (text.empty() ? "" : ", ") + inQuotes(oneLine(name));
    return (names.size() == 1 ? "the attribute " : "the attributes ") + text;
}

// Of a long list, only what is behind the names that it begins with.
std::string listedBehind(const Names& before, const Names& after) {
    const bool isLonger =
        after.size() >= before.size() && std::equal(before.begin(), before.end(), after.begin());
    if (!isLonger) return "others: " + listed(after);
    const Names more(after.begin() + static_cast<std::ptrdiff_t>(before.size()), after.end());
    return more.empty() ? "no more" : listed(more) + " more";
}

}  // namespace

const Directions kBothDirections{Direction::Input, Direction::Output};

bool ShownMessages::sayAnything() const {
    return std::any_of(m_all.begin(), m_all.end(),
                       [](const std::string& message) { return !oneLine(message).empty(); });
}

EditedNode::EditedNode(Trial& trial, const char* name)
    : m_trial(trial), m_node(VFnDependencyNode().create(name)) {}

Names EditedNode::attributes() const {
    const VFnDependencyNode functions(m_node);
    Names names;
    for (unsigned i = 0; i < functions.attributeCount(); ++i)
        names.emplace_back(VFnAttribute(functions.attribute(i)).name().asChar());
    return names;
}

VPlug EditedNode::plug(const std::string& name) const {
    return VFnDependencyNode(m_node).findPlug(name.c_str());
}

void EditedNode::fail(WatchedHost::Fails fails, const std::string& words) {
    m_fails = std::move(fails);
    m_failingWords = words;
}

bool EditedNode::add(const std::string& name, Direction direction, const Pelmor::Type& type) {
    const auto& translation = m_trial.translation();
    m_trial.doing(std::string("adding an ") + (direction == Direction::Input ? "input" : "output") +
                  " port " + inQuotes(oneLine(name)) + " of " + nameOf(type) + m_failingWords);
    VDGModifier modifier;
    TavrikGraph::Executor::NodeEditContext context{this, m_node, nullptr, &modifier};
    std::optional<WatchedHost> host;
    if (m_fails) host.emplace(m_fails);
    return translation.portAdded(name.c_str(), direction, type, m_ports++, 0, &context);
}

bool EditedNode::addOrBeRefused(const std::string& name, Direction direction,
                                const Pelmor::Type& type) {
    const Names before = attributes();
    const ShownMessages messages;
    const bool added = add(name, direction, type);
    const Names after = attributes();
    Names expected = before;
    if (added) expected.push_back(name);
    m_trial.expect(after == expected,
                   added ? "true, and the attribute " + inQuotes(oneLine(name)) + " more"
                         : "false, and no more attributes",
                   std::string(added ? "true" : "false") + ", and " + listedBehind(before, after));
    m_trial.expect(
        added || messages.sayAnything(), "false, and a message that says why",
        messages.all().empty() ? "false, and no message" : "false, and an empty message");
    return added;
}

void EditedNode::beRefused(const std::string& name, Direction direction, const Pelmor::Type& type) {
    const Names before = attributes();
    if (addOrBeRefused(name, direction, type))
        m_trial.fail("false, with a message, and no more attributes",
                     "true, and " + listedBehind(before, attributes()));
}

VPlug EditedNode::addForSure(const std::string& name, Direction direction,
                             const Pelmor::Type& type) {
    const ShownMessages unimportant;
    const VPlug added = add(name, direction, type) ? plug(name) : VPlug();
    if (added.isNull()) m_trial.skip("a port of " + nameOf(type) + " gets no attribute");
    return added;
}

std::optional<Misfit> EditedNode::misfit(const std::string& name, const Pelmor::Type& type) const {
    if (!hasAttributes(type)) {
        m_trial.note(nameOf(type) +
                     " has a member that the host has no attribute for, so its attributes were not"
                     " looked at");
        return std::nullopt;
    }
    DataShape shape = shapeOf(plug(name));
    forEachSingle(shape, type, [&](DataShape& single) {
        noteSingle(m_trial, type, single);
        single.isArray = true;
    });
    return misfitOf(shape, type);
}

void EditedNode::expectFit(const std::string& name, const Pelmor::Type& type) const {
    const auto found = misfit(name, type);
    if (found)
        m_trial.fail("attributes for " + nameOf(type),
                     inQuotes(oneLine(name)) + (found->path.empty() ? "" : ", " + found->path) +
                         ": " + found->what);
}

}  // namespace Tolvane::Tools
