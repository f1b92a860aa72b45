#include "tools/commands/HelpText.h"

#include "tools/support/Columns.h"

#include <sstream>

namespace Tolvane::Tools {

std::string HelpText::make_description(const CLI::App* app) const {
    std::istringstream lines(app->get_description());
    std::string text;
    for (std::string line; std::getline(lines, line);) text += wrapped(line, 0) + "\n";
    return text;
}

std::string HelpText::make_option_desc(const CLI::Option* option) const {
    return wrapped(Formatter::make_option_desc(option), 0, kLineColumns - get_column_width());
}

std::string HelpText::make_subcommand(const CLI::App* command) const {
    const std::string description = command->get_description();
    std::ostringstream text;
    CLI::detail::format_help(text, command->get_name(),
                             wrapped(description.substr(0, description.find('\n')), 0,
                                     kLineColumns - get_column_width()),
                             get_column_width());
    return text.str();
}

}  // namespace Tolvane::Tools
