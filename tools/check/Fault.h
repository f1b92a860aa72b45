// Failures of the host in the middle of an operation: which of its calls fail, and which of these
// failures go unnoticed.
#pragma once

#include "tools/check/Trial.h"
#include "tools/check/WatchedHost.h"

#include <Pelmor/Type.h>

#include <cstddef>
#include <cstdint>
#include <map>
#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace Tolvane::Tools {

// One or two calls that fail, by their numbers, counted from 0 among those of the operation. The
// second need not come to pass, because the operation may end with the first.
struct Fault {
    std::size_t first;
    // The same as the first if one alone fails.
    std::size_t second;

    WatchedHost::Fails fails() const;
};

// One for each call.
std::vector<Fault> singleFaults(std::size_t calls);
// Two calls each: all such, or a choice of about `most`, which has every two that follow each other
// and besides is other ones for another seed.
std::vector<Fault> pairFaults(std::size_t calls, std::size_t most, std::uint64_t seed);

// At most `most` of them, which is not 0, spread evenly.
std::vector<Fault> spread(std::vector<Fault> faults, std::size_t most);

// As many of these faults, which an operation of `calls` calls is to be tried with, as take
// bearable time however large the type is, spread evenly. The trial notes what is left out.
std::vector<Fault> affordable(Trial& trial, std::vector<Fault> faults, std::size_t calls,
                              const Pelmor::Type& type);

// "a failure of VPlug::child on in.names, call 17 of 250": the calls are those of the operation
// without a fault.
std::string inWords(const Fault& fault, const std::vector<HostCall>& calls);

// Of single faults, those that nobody learns of.
class UnnoticedFailures {
public:
    // `port` is the name of the port that the call is made for, whose type this is.
    void count(const HostCall& call, const std::string& port, const Pelmor::Type& type,
               bool unnoticed);
    // A warning for each operation of which the host can tell that it failed. `consequence` says
    // what comes of it, such as "leaves other data in the value".
    void warn(Trial& trial, const std::string& consequence) const;

private:
    struct OfOperation {
        std::size_t tried = 0;
        std::size_t unnoticed = 0;
        std::set<std::string> places;
    };

    std::map<std::string_view, OfOperation> m_operations;
};

}  // namespace Tolvane::Tools
