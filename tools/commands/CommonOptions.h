// Options that several commands have, in the same words.
#pragma once

#include "tools/process/Limits.h"
#include "tools/rig/LoadRig.h"

#include <Pelmor/Library.h>

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include <CLI/CLI.hpp>

namespace Tolvane::Tools {

// The rig and the plugin that come with the program.
std::string bundledWalk();
std::string bundledPlugin();

// What stands behind a command without an option's name, as often as one likes.
CLI::Option* addEach(CLI::App& command, const std::string& name, std::vector<std::string>& values,
                     const std::string& help);

// A command's rig, and how it is read.
CLI::Option* addRig(CLI::App& command, std::string& file);
void addRigOptions(CLI::App& command, LoadOptions& options);
// Of those, the one that also counts where nothing is evaluated.
void addRoot(CLI::App& command, std::optional<std::string>& root);
// Of one frame, counted from 0.
CLI::Option* addFrame(CLI::App& command, std::size_t& frame);

void addPlugin(CLI::App& command, std::string& plugin);
void addTypes(CLI::App& command, std::optional<std::string>& types);
// `what` is what is given up after the time limit. The defaults are those that `limits` has.
void addLimits(CLI::App& command, Limits& limits, const std::string& what = "a rig");
// `doing` is what is done with as many as this.
void addJobs(CLI::App& command, std::optional<unsigned>& jobs, const std::string& doing);
CLI::Option* addSeed(CLI::App& command, std::uint64_t& seed);
void addVersion(CLI::App& command);
CLI::Option* addQuiet(CLI::App& command, bool& quiet);

// The types that the graph knows: its own, and those of the file if there is one. Throws Error.
Pelmor::Library typesOf(const std::optional<std::string>& file);

// Options whose value is a number, both ends of the range included. Whatever else is given is
// refused in words that name the option and the range.
struct WholeRange {
    std::uint64_t least;
    std::uint64_t most;
};
struct NumberRange {
    double least;
    double most;
};
CLI::Option* addNumber(CLI::App& command, const std::string& name, WholeRange range,
                       const std::function<void(std::uint64_t)>& take, const std::string& help);
CLI::Option* addNumber(CLI::App& command, const std::string& name, NumberRange range,
                       const std::function<void(double)>& take, const std::string& help);

// Something that keeps the number of such an option in `target`.
template <typename Target>
auto into(Target& target) {
    return [&target](auto number) { target = number; };
}

// So many frames, or calls of the host, no run has.
constexpr std::uint64_t kMostCounted = 1'000'000'000;

}  // namespace Tolvane::Tools
