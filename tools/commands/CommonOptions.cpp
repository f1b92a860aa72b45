#include "tools/commands/CommonOptions.h"

#include "tools/support/Error.h"
#include "tools/types/ReadTypes.h"

#include <cstddef>
#include <filesystem>
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

}  // namespace

std::string bundledWalk() { return besideProgram("../share/tolvane/examples/walk.bvh"); }
std::string bundledPlugin() { return besideProgram("../lib/TolvanePlugin.so"); }

void addPlugin(CLI::App& command, std::string& plugin) {
    plugin = bundledPlugin();
    command
        .add_option("--plugin", plugin,
                    "Load this translation library (default: the plugin that comes with tolvane)")
        ->option_text("LIBRARY");
}

void addTypes(CLI::App& command, std::optional<std::string>& types) {
    command
        .add_option("--types", types,
                    "Let the graph know the structs and enums that this file describes, in JSON")
        ->option_text("FILE");
}

void addLimits(CLI::App& command, Limits& limits) {
    command
        .add_option_function<double>(
            "--memory-limit",
            [&limits](double gibibytes) {
                limits.memory = static_cast<std::size_t>(gibibytes * (std::size_t{1} << 30));
            },
            "Let no reader and no library take more than N GiB (default: 4)")
        ->option_text("N")
        ->check(CLI::Range(0.001, 1e6));
    command
        .add_option_function<unsigned>(
            "--time-limit",
            [&limits](unsigned seconds) { limits.processorTime = limits.silence = seconds; },
            "Give up on a rig after N seconds of processor time, and on a library that makes no\n"
            "progress for N seconds (default: 60)")
        ->option_text("N")
        ->check(CLI::Range(1U, 1'000'000U));
}

Pelmor::Library typesOf(const std::optional<std::string>& file) {
    if (!file) return {};
    return during(Stage::Reading, *file, [&] { return readTypes(*file).library; });
}

}  // namespace Tolvane::Tools
