#include "tools/check/Fault.h"

#include "tools/node/GenerateData.h"

#include <algorithm>
#include <utility>

namespace Tolvane::Tools {
namespace {

std::string inWords(std::size_t number, const std::vector<HostCall>& calls) {
    return calls[number].inWords() + ", call " + std::to_string(number + 1);
}

// The two numbers of pair number `pair`, in the order (0, 1), (0, 2), (1, 2), (0, 3), ...
Fault pairOf(std::size_t pair) {
    std::size_t second = 1;
    while (pair >= second) pair -= second++;
    return {pair, second};
}

// False for calls that have no status and whose result looks like any other.
bool tellsOfFailures(std::string_view operation) {
    return operation.find("VDataHandle::as") != 0 && operation.find("VDataHandle::set") != 0;
}

std::string listed(const std::set<std::string>& places) {
    constexpr std::size_t kShown = 6;
    std::string text;
    std::size_t shown = 0;
    for (const std::string& place : places) {
        if (shown == kShown)
            return text + " and " + std::to_string(places.size() - kShown) + " more places";
        text += (shown++ == 0 ? "" : ", ") + place;
    }
    return text;
}

}  // namespace

WatchedHost::Fails Fault::fails() const {
    return [fault = *this](std::size_t number, std::string_view) {
        return number == fault.first || number == fault.second;
    };
}

std::vector<Fault> singleFaults(std::size_t calls) {
    std::vector<Fault> faults;
    for (std::size_t i = 0; i < calls; ++i) faults.push_back({i, i});
    return faults;
}

std::vector<Fault> pairFaults(std::size_t calls, std::size_t most, std::uint64_t seed) {
    const std::size_t all = calls * (calls - 1) / 2;
    std::set<std::size_t> chosen;
    for (std::size_t second = 1; second < calls; ++second)
        chosen.insert(second * (second - 1) / 2 + second - 1);
    for (std::size_t i = 0; all <= most && i < all; ++i) chosen.insert(i);
    for (std::uint64_t part = 0; all > most && chosen.size() < most; ++part)
        chosen.insert(seedOf(seed, part) % all);
    std::vector<Fault> faults;
    faults.reserve(chosen.size());
    for (const std::size_t pair : chosen) faults.push_back(pairOf(pair));
    return faults;
}

std::vector<Fault> spread(std::vector<Fault> faults, std::size_t most) {
    const std::size_t all = faults.size();
    if (all <= most) return faults;
    for (std::size_t i = 0; i < most; ++i) faults[i] = faults[i * all / most];
    faults.resize(most);
    return faults;
}

std::vector<Fault> affordable(Trial& trial, std::vector<Fault> faults, std::size_t calls,
                              const Pelmor::Type& type) {
    // Each fault takes the time of all calls of the operation.
    constexpr std::size_t kCallsOfType = 1'000'000;
    constexpr std::size_t kCallsOfAll = 20'000'000;
    const std::size_t bearable = std::min(kCallsOfType, kCallsOfAll / trial.carried().size());
    const std::size_t all = faults.size();
    faults = spread(std::move(faults), bearable / std::max<std::size_t>(calls, 1) + 5);
    if (faults.size() < all)
        trial.note(nameOf(type) + " is large, so " + std::to_string(faults.size()) + " of " +
                   std::to_string(all) + " failures were tried, spread evenly");
    return faults;
}

std::string inWords(const Fault& fault, const std::vector<HostCall>& calls) {
    const std::string of = " of " + std::to_string(calls.size());
    if (fault.first == fault.second) return "a failure of " + inWords(fault.first, calls) + of;
    return "failures of " + inWords(fault.first, calls) + ", and " + inWords(fault.second, calls) +
           of;
}

void UnnoticedFailures::count(const HostCall& call, const std::string& port,
                              const Pelmor::Type& type, bool unnoticed) {
    OfOperation& operation = m_operations[call.operation];
    ++operation.tried;
    if (!unnoticed) return;
    ++operation.unnoticed;
    if (call.subject.compare(0, port.size(), port) == 0)
        operation.places.insert(nameOf(type) + call.subject.substr(port.size()));
    else if (call.subject.empty() || call.subject == "node")
        operation.places.insert(nameOf(type));
    else
        operation.places.insert(call.subject + " of " + nameOf(type));
}

void UnnoticedFailures::warn(Trial& trial, const std::string& consequence) const {
    std::string silent;
    for (const auto& [name, operation] : m_operations) {
        if (operation.unnoticed == 0) continue;
        if (tellsOfFailures(name))
            trial.warn("a failure of " + std::string(name) + " " + consequence +
                       ", unnoticed, in " + std::to_string(operation.unnoticed) + " of " +
                       std::to_string(operation.tried) + " cases: " + listed(operation.places));
        else
            silent += (silent.empty() ? "" : ", ") + std::string(name);
    }
    if (!silent.empty())
        trial.note("failures that no library can notice, for the host tells of none: " + silent);
}

}  // namespace Tolvane::Tools
