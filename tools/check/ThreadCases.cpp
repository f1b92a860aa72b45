#include "tools/check/Case.h"
#include "tools/check/Trial.h"

namespace Tolvane::Tools {
namespace {}  // namespace

std::vector<Case> threadCases() { return {}; }

}  // namespace Tolvane::Tools
