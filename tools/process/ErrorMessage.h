// An error as bytes, for its way from one process to another.
#pragma once

#include "tools/support/Error.h"

#include <string>
#include <string_view>

namespace Tolvane::Tools {

std::string messageOf(const Error& error);
// Throws BadMessage if that is not what `bytes` holds.
Error errorOf(std::string_view bytes);

}  // namespace Tolvane::Tools
