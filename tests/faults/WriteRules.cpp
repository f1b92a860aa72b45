#include "tests/faults/WriteRules.h"

#include <algorithm>

namespace FaultTests {
namespace {

bool writesLeaf(const PlannedCall& call) {
    return isOneOf(call.operation,
                   {"VDataHandle::asMatrix", "VDataHandle::setString", "VDataHandle::setDouble"});
}

// What is written and what the host gave have no connection then: the handle or the plug is null.
bool losesItsPlace(const PlannedCall& call) {
    return writesLeaf(call) ||
           isOneOf(call.operation,
                   {"VDataBlock::outputValue", "VPlug::child", "VDataHandle::child",
                    "VPlug::elementByLogicalIndex", "VArrayDataHandle::VArrayDataHandle"});
}

// As before the write; what is new with the write has the host's defaults.
void keepOld(Entries& left, const std::string& place, const Entries& host) {
    const bool isOld = std::any_of(host.begin(), host.end(),
                                   [&](const auto& entry) { return isAt(entry.first, place); });
    if (isOld)
        replace(left, place, host);
    else
        blank(left, place, Defaults::OfHost);
}

// The handle stays at the element, so that each later element of the graph goes one place further
// to the front and the last place keeps what it had.
void shiftElements(Entries& left, const std::string& element, const Entries& graph,
                   const Entries& host) {
    const std::size_t bracket = element.rfind('[');
    const std::string array = element.substr(0, bracket);
    const unsigned last = lengthOf(graph, array) - 1;
    const auto first = static_cast<unsigned>(std::stoul(element.substr(bracket + 1)));
    if (first == last) return;
    for (unsigned k = first; k < last; ++k)
        replace(left, elementPlace(array, k), graph, elementPlace(array, k + 1));
    replace(left, elementPlace(array, last), host);
}

void applyLoss(Entries& left, const PlannedCall& failing, const Entries& graph,
               const Entries& host) {
    const std::string& place = failing.place;
    if (losesItsPlace(failing)) return keepOld(left, place, host);
    // The array is not replaced, or has the element as it was or not at all.
    if (isOneOf(failing.operation, {"VArrayDataHandle::builder", "VArrayDataHandle::set",
                                    "VArrayDataBuilder::addElement"}))
        return replace(left, place, host);
    // A builder that counts 0 has nothing too much to be removed. An array that counts 0 is rebuilt
    // to the same end as in place, but fits an empty array as it is.
    const bool isBuildersCount = failing.operation == "VArrayDataBuilder::elementCount";
    const bool isCount = failing.operation == "VArrayDataHandle::elementCount";
    const unsigned length = lengthOf(graph, place);
    if (isBuildersCount || (isCount && length == 0))
        for (unsigned k = length, end = lengthOf(host, place); k < end; ++k)
            replace(left, elementPlace(place, k), host);
    if (failing.operation == "VArrayDataHandle::next") shiftElements(left, place, graph, host);
}

}  // namespace

std::string attributeOf(const std::string& place) {
    std::string attribute;
    bool isIndex = false;
    for (const char character : place) {
        if (character == '[') isIndex = true;
        if (!isIndex) attribute += character;
        if (character == ']') isIndex = false;
    }
    return attribute;
}

bool endsWriting(const PlannedCall& call) {
    return isOneOf(call.operation,
                   {"VArrayDataHandle::outputValue", "VArrayDataBuilder::removeElement"});
}

WriteResult resultOfEnding(const PlannedCalls& plan, std::size_t failing, const Entries& graph,
                           const Entries& host) {
    WriteResult result{host, {}};
    for (std::size_t i = 0; i < failing; ++i) {
        const PlannedCall& call = plan[i];
        const bool shows = writesLeaf(call) || call.operation == "VArrayDataHandle::set";
        if (shows && !call.isInBuilder) replace(result.left, call.place, graph);
        // Also in a builder: what is marked is the attribute, whichever element the array is in.
        if (call.operation == "VArrayDataHandle::setAllClean")
            result.marked.insert(attributeOf(call.place));
    }
    return result;
}

WriteResult resultOfGoingOn(const PlannedCalls& plan, std::size_t failing, const Entries& graph,
                            const Entries& host) {
    WriteResult result{graph, {}};
    applyLoss(result.left, plan[failing], graph, host);
    for (std::size_t i = 0; i < plan.size(); ++i) {
        if (plan[i].operation != "VArrayDataHandle::setAllClean") continue;
        const bool isLost =
            losesItsPlace(plan[failing]) && isAt(plan[i].place, plan[failing].place);
        if (i != failing && !isLost) result.marked.insert(attributeOf(plan[i].place));
    }
    return result;
}

}  // namespace FaultTests
