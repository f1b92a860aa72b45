// Reads descriptions of types from JSON.
#pragma once

#include "tools/types/TypeDescriptions.h"

#include <string>

namespace Tolvane::Tools {

// Throws Error, which says what is wrong with the text and where.
TypeDescriptions parseTypes(const std::string& text);

}  // namespace Tolvane::Tools
