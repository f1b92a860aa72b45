// Options that several commands have, in the same words.
#pragma once

#include "tools/process/Limits.h"

#include <Pelmor/Library.h>

#include <optional>
#include <string>

#include <CLI/CLI.hpp>

namespace Tolvane::Tools {

// The rig and the plugin that come with the program.
std::string bundledWalk();
std::string bundledPlugin();

void addPlugin(CLI::App& command, std::string& plugin);
void addTypes(CLI::App& command, std::optional<std::string>& types);
void addLimits(CLI::App& command, Limits& limits);

// The types that the graph knows: its own, and those of the file if there is one. Throws Error.
Pelmor::Library typesOf(const std::optional<std::string>& file);

}  // namespace Tolvane::Tools
