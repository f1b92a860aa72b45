#include "tools/check/Case.h"
#include "tools/check/Trial.h"

namespace Tolvane::Tools {
namespace {}  // namespace

std::vector<Case> objectCases() { return {}; }

}  // namespace Tolvane::Tools
