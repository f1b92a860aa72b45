#include "tools/node/Mismatch.h"

namespace Tolvane::Tools {

std::string placeOf(const Mismatch& mismatch) {
    const bool joins = mismatch.path.empty() || mismatch.path.front() == '[';
    return mismatch.port + (joins ? "" : ".") + mismatch.path;
}

}  // namespace Tolvane::Tools
