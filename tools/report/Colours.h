// Colours for what a person is to see first, in terminals alone.
#pragma once

#include <string>

namespace Tolvane::Tools {

// Whether what goes to this file descriptor is to be coloured: it is a terminal that can, and the
// user has not asked for none by NO_COLOR.
bool coloursWanted(int descriptor);

enum class Colour { None, Good, Bad };

// The text as it is, unless `on`. Colours take no room in a line.
std::string coloured(Colour colour, const std::string& text, bool on);

}  // namespace Tolvane::Tools
