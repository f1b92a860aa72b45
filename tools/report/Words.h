// Small texts that reports are made of.
#pragma once

#include "tools/report/Table.h"

#include <string>
#include <vector>

namespace Tolvane::Tools {

inline std::string counted(std::size_t count, const std::string& one, const std::string& many) {
    return grouped(count) + " " + (count == 1 ? one : many);
}

inline std::string joined(const std::vector<std::string>& parts) {
    std::string text;
    for (const std::string& part : parts) text += (text.empty() ? "" : ", ") + part;
    return text;
}

}  // namespace Tolvane::Tools
