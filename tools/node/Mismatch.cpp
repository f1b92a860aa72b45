#include "tools/node/Mismatch.h"

namespace Tolvane::Tools {

std::string placeOf(const Mismatch& mismatch) {
    const bool joins = mismatch.path.empty() || mismatch.path.front() == '[';
    return mismatch.port + (joins ? "" : ".") + mismatch.path;
}

std::string inOneLine(const Mismatch& mismatch) {
    std::string line = placeOf(mismatch) + ": " + mismatch.what;
    if (!mismatch.expected.empty()) line += ": " + mismatch.expected + " went in";
    if (!mismatch.actual.empty()) line += ", " + mismatch.actual + " came back";
    return line;
}

}  // namespace Tolvane::Tools
