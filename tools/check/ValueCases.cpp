#include "tools/check/Case.h"
#include "tools/check/Trial.h"

namespace Tolvane::Tools {
namespace {}  // namespace

std::vector<Case> valueCases() { return {}; }

}  // namespace Tolvane::Tools
