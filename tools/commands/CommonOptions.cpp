#include "tools/commands/CommonOptions.h"

#include "tools/report/Words.h"
#include "tools/support/Error.h"
#include "tools/support/OneLine.h"
#include "tools/types/ReadTypes.h"

#include <charconv>
#include <cstddef>
#include <filesystem>
#include <limits>
#include <system_error>

namespace Tolvane::Tools {
namespace {

namespace fs = std::filesystem;

// They stand in a fixed place relative to the program, in an installed tree and in a build tree
// alike.
std::string besideProgram(const char* relativePath) {
    std::error_code ignored;
    const fs::path program = fs::read_symlink("/proc/self/exe", ignored);
    return (program.parent_path() / relativePath).lexically_normal().string();
}

std::string shown(std::uint64_t number) { return grouped(number); }
std::string shown(double number) {
    return number < 1 ? shortText(number) : grouped(static_cast<std::uint64_t>(number));
}

template <typename Number, typename Range>
CLI::Option* addNumberOf(CLI::App& command, const std::string& name, const char* kind,
                         const Range& range, const std::function<void(Number)>& take,
                         const std::string& help) {
    const auto read = [=](const std::string& text) {
        Number number{};
        const char* const end = text.data() + text.size();
        const auto [stop, error] = std::from_chars(text.data(), end, number);
        // A NaN is in no range.
        const bool isWithin = number >= range.least && number <= range.most;
        if (error != std::errc() || stop != end || !isWithin)
            throw CLI::ValidationError(name + " " + inQuotes(oneLine(text)) + ": is not a " + kind +
                                       " from " + shown(range.least) + " to " + shown(range.most));
        take(number);
    };
    return command.add_option_function<std::string>(name, read, help)->option_text("N");
}

}  // namespace

std::string bundledWalk() { return besideProgram("../share/tolvane/examples/walk.bvh"); }
std::string bundledPlugin() { return besideProgram("../lib/TolvanePlugin.so"); }

// More than anybody gives are asked for, and fewer do: with arguments beyond those that an option
// asks for, one in brackets, such as "[mocap]", would be taken apart as a list.
CLI::Option* addEach(CLI::App& command, const std::string& name, std::vector<std::string>& values,
                     const std::string& help) {
    constexpr int kMore = 1 << 24;
    return command.add_option(name, values, help)
        ->multi_option_policy(CLI::MultiOptionPolicy::TakeAll)
        ->expected(kMore, CLI::detail::expected_max_vector_size)
        ->allow_extra_args(false);
}

CLI::Option* addRig(CLI::App& command, std::string& file) {
    file = bundledWalk();
    return command
        .add_option("FILE", file,
                    "A rig: BVH, glTF, GLB, FBX, COLLADA, ... (default: the bundled walk)")
        ->option_text(" ");
}

void addRigOptions(CLI::App& command, LoadOptions& options) {
    addNumber(command, "--fps", NumberRange{0.001, 1e6}, into(options.framesPerSecond),
              "Sample N frames per second (default: the animation's)");
    command
        .add_option("--animation", options.animation,
                    "Use the animation of this name (default: the first)")
        ->option_text("NAME");
    addRoot(command, options.root);
}

void addRoot(CLI::App& command, std::optional<std::string>& root) {
    command
        .add_option("--root", root,
                    "Take this node, and what is below it. Of several it is a bone, else what "
                    "moves, else the first.")
        ->option_text("NAME");
}

CLI::Option* addFrame(CLI::App& command, std::size_t& frame) {
    return addNumber(command, "--frame", WholeRange{0, kMostCounted}, into(frame),
                     "Take this frame, counted from 0 (default: 0)");
}

void addPlugin(CLI::App& command, std::string& plugin) {
    plugin = bundledPlugin();
    command.add_option("--plugin", plugin, "Load this library (default: tolvane's own plugin)")
        ->option_text("LIBRARY");
}

void addTypes(CLI::App& command, std::optional<std::string>& types) {
    command
        .add_option("--types", types,
                    "Let the graph know the structs and enums that this file describes, in JSON")
        ->option_text("FILE");
}

void addLimits(CLI::App& command, Limits& limits, const std::string& what) {
    const std::string most = std::to_string(limits.processorTime);
    const std::string silence = std::to_string(limits.silence);
    addNumber(
        command, "--memory-limit", NumberRange{0.001, 1e6},
        [&limits](double gibibytes) {
            limits.memory = static_cast<std::size_t>(gibibytes * (std::size_t{1} << 30));
        },
        "Let no reader and no library take more than N GiB (default: 4)");
    addNumber(
        command, "--time-limit", WholeRange{1, 1'000'000},
        [&limits](std::uint64_t seconds) {
            limits.processorTime = limits.silence = static_cast<unsigned>(seconds);
        },
        "Give up on " + what +
            " after N seconds of processor time, and on a library that makes no\n"
            "progress for N seconds (default: " +
            most + (most == silence ? "" : " and " + silence) + ")");
}

void addJobs(CLI::App& command, std::optional<unsigned>& jobs, const std::string& doing) {
    addNumber(
        command, "--jobs", WholeRange{1, 10'000},
        [&jobs](std::uint64_t number) { jobs = static_cast<unsigned>(number); }, doing);
}

CLI::Option* addSeed(CLI::App& command, std::uint64_t& seed) {
    return addNumber(command, "--seed", WholeRange{0, std::numeric_limits<std::uint64_t>::max()},
                     into(seed), "Generate other data (default: 1)");
}

void addVersion(CLI::App& command) {
    command.set_version_flag("-V,--version", "tolvane " TOLVANE_VERSION,
                             "Print the program's version and exit");
}

CLI::Option* addQuiet(CLI::App& command, bool& quiet) {
    // A text of its own keeps the help from saying what the option excludes.
    return command.add_flag("-q,--quiet", quiet, "Print nothing but the verdict of a failure")
        ->option_text(" ");
}

CLI::Option* addNumber(CLI::App& command, const std::string& name, WholeRange range,
                       const std::function<void(std::uint64_t)>& take, const std::string& help) {
    return addNumberOf(command, name, "whole number", range, take, help);
}

CLI::Option* addNumber(CLI::App& command, const std::string& name, NumberRange range,
                       const std::function<void(double)>& take, const std::string& help) {
    return addNumberOf(command, name, "number", range, take, help);
}

Pelmor::Library typesOf(const std::optional<std::string>& file) {
    if (!file) return {};
    return during(Stage::Reading, *file, [&] { return readTypes(*file).library; });
}

}  // namespace Tolvane::Tools
