// Binary data as text.
#pragma once

#include <string>
#include <string_view>

namespace Tolvane::Tools {

std::string base64(std::string_view bytes);

}  // namespace Tolvane::Tools
