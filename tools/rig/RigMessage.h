// A rig, or what is told of one, as bytes, for its way from the process that reads it. That process
// runs third-party readers on files that may be damaged, so what comes from it is checked like a
// file.
#pragma once

#include "tools/rig/Rig.h"
#include "tools/rig/RigInfo.h"

#include <string>
#include <string_view>

namespace Tolvane::Tools {

std::string messageOf(const Rig& rig);

// Throws BadMessage if `bytes` holds no rig: one that keeps all promises of Rig.h and Animation.h,
// and has no more joints and frames than any real rig. All numbers that decide how the rig is used
// are finite; matrices and keys may hold anything.
Rig rigOf(std::string_view bytes);

std::string messageOf(const RigInfo& info);

// Throws BadMessage if `bytes` holds nothing that could be true of a file: no count is more than
// that of which it is a part, and all numbers are finite.
RigInfo infoOf(std::string_view bytes);

}  // namespace Tolvane::Tools
