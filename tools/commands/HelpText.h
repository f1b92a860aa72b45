// Lays out what --help prints, in lines that fit a terminal.
#pragma once

#include <string>

#include <CLI/CLI.hpp>

namespace Tolvane::Tools {

class HelpText : public CLI::Formatter {
public:
    std::string make_description(const CLI::App* app) const override;
    std::string make_option_desc(const CLI::Option* option) const override;
    // In the list of commands, each has its first line only.
    std::string make_subcommand(const CLI::App* command) const override;
};

}  // namespace Tolvane::Tools
