#include "tools/report/Colours.h"

#include <cstdlib>
#include <string_view>

#include <unistd.h>

namespace Tolvane::Tools {
namespace {

std::string_view fromEnvironment(const char* name) {
    const char* value = std::getenv(name);
    return value ? value : "";
}

}  // namespace

bool coloursWanted(int descriptor) {
    return isatty(descriptor) == 1 && fromEnvironment("NO_COLOR").empty() &&
           fromEnvironment("TERM") != "dumb";
}

std::string coloured(Colour colour, const std::string& text, bool on) {
    if (!on || colour == Colour::None) return text;
    return (colour == Colour::Good ? "\033[32m" : "\033[1;31m") + text + "\033[0m";
}

}  // namespace Tolvane::Tools
