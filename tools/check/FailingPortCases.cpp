#include "tools/check/Case.h"
#include "tools/check/EditedNode.h"
#include "tools/check/Fault.h"
#include "tools/check/Trial.h"

#include <OpenVornik/VFnAttribute.h>

#include <functional>
#include <string>
#include <vector>

namespace Tolvane::Tools {
namespace {

using Direction = EditedNode::Direction;
using Pelmor::Type;
using FaultsOf = std::function<std::vector<Fault>(std::size_t calls)>;

bool isAsUsual(const EditedNode& node, Direction direction, const Type& type) {
    const VFnAttribute attribute(node.plug(kPort).attribute());
    const bool isInput = direction == Direction::Input;
    return !node.misfit(kPort, type) && attribute.isWritable() == isInput &&
           attribute.isReadable() != isInput;
}

// Calls `work(node, fault, call)` with a node whose next port is to be added with a fault.
template <typename Work>
void sweep(Trial& trial, Direction direction, const FaultsOf& faultsOf, const Work& work) {
    skipUnlessWatched(trial);
    trial.forEachCarried([&](const Type& type) {
        EditedNode(trial).addForSure(kPort, direction, type);
        EditedNode undisturbed(trial);
        const std::vector<HostCall> calls =
            callsOf([&] { undisturbed.add(kPort, direction, type); });
        for (const Fault& fault : affordable(trial, faultsOf(calls.size()), calls.size(), type)) {
            EditedNode node(trial);
            node.fail(fault.fails(), ", with " + inWords(fault, calls));
            work(node, type, calls[fault.first]);
        }
    });
}

// Whether the port was added. If not, it is so without the failure.
bool addOrAddLater(Trial& trial, EditedNode& node, Direction direction, const Type& type) {
    if (node.addOrBeRefused(kPort, direction, type)) return true;
    node.fail({}, ", after a failure");
    trial.expect(node.addOrBeRefused(kPort, direction, type), "true", "false");
    node.expectFit(kPort, type);
    return false;
}

void ports(Trial& trial) {
    UnnoticedFailures failures;
    for (const Direction direction : kBothDirections)
        sweep(trial, direction, singleFaults,
              [&](EditedNode& node, const Type& type, const HostCall& call) {
                  const ShownMessages messages;
                  const bool isSilent =
                      addOrAddLater(trial, node, direction, type) && messages.all().empty();
                  failures.count(call, kPort, type, isSilent && !isAsUsual(node, direction, type));
              });
    failures.warn(trial, "gives the port other attributes than usual");
}

void portsPairs(Trial& trial) {
    constexpr std::size_t kMost = 500;
    for (const Direction direction : kBothDirections)
        sweep(
            trial, direction,
            [&](std::size_t calls) { return pairFaults(calls, kMost, trial.seed()); },
            [&](EditedNode& node, const Type& type, const HostCall&) {
                addOrAddLater(trial, node, direction, type);
            });
}

}  // namespace

std::vector<Case> failingPortCases() {
    return {
        {"failing-hosts/ports",
         "A port is there with its attribute, or it is not there and people know why.", ports},
        {"failing-hosts/ports-pairs", "What fails once mostly fails again at once.", portsPairs},
    };
}

}  // namespace Tolvane::Tools
