#include "tools/report/MismatchText.h"

#include "tools/report/Words.h"
#include "tools/support/Columns.h"
#include "tools/support/OneLine.h"

#include <algorithm>
#include <ostream>

namespace Tolvane::Tools {
namespace {

const Mismatch* firstOf(const RunResult& result, const std::string& typeName) {
    for (const TypeResult& type : result.types)
        if (type.typeName == typeName && type.attributeCount == 0 && type.comparison.firstMismatch)
            return &*type.comparison.firstMismatch;
    return nullptr;
}

// Where a type got no ports, arrays of it got none for the same reason, which is said once.
bool isSaidOfElements(const RunResult& result, const FoundMismatch& found) {
    const TypeResult* arrays = nullptr;
    for (const TypeResult& type : result.types)
        if (type.typeName == found.typeName) arrays = &type;
    if (!arrays || arrays->attributeCount > 0) return false;
    return std::any_of(result.types.begin(), result.types.end(), [&](const TypeResult& type) {
        if ("array<" + type.typeName + ">" != found.typeName) return false;
        const Mismatch* said = firstOf(result, type.typeName);
        return said && said->path == found.mismatch.path && said->what == found.mismatch.what;
    });
}

std::string frameOf(const FoundMismatch& found) {
    return found.frame ? "frame " + std::to_string(*found.frame) + ": " : "";
}

void printHanging(std::ostream& out, const std::string& text, std::size_t indent) {
    out << hanging(oneLine(text), indent) << "\n";
}

void printValue(std::ostream& out, const char* what, const std::string& value) {
    constexpr std::size_t kIndentOfValue = 8;
    if (value.empty()) return;
    const std::size_t hanging = kIndentOfValue + columnsOf(what);
    out << std::string(kIndentOfValue, ' ') << what << wrapped(value, hanging).substr(hanging)
        << "\n";
}

void printWhole(std::ostream& out, const FoundMismatch& found) {
    const Mismatch& mismatch = found.mismatch;
    printHanging(out, frameOf(found) + placeOf(mismatch) + " " + mismatch.what, 4);
    printValue(out, "went in     ", mismatch.expected);
    printValue(out, "came back   ", mismatch.actual);
    printValue(out, "difference  ", mismatch.difference);
}

}  // namespace

void printMismatches(std::ostream& out, const RunResult& result) {
    const std::size_t all = result.mismatches(), kept = result.firstMismatches.size();
    if (all == 0) return;
    if (kept < all)
        out << "The first " << kept << " of " << grouped(all) << " mismatches:\n";
    else
        out << counted(all, "mismatch", "mismatches") << ":\n";
    std::string typeName;
    for (const FoundMismatch& found : result.firstMismatches) {
        if (isSaidOfElements(result, found)) continue;
        if (found.typeName != typeName) printHanging(out, found.typeName, 2);
        typeName = found.typeName;
        printWhole(out, found);
    }
    out << "\n";

    bool isFirst = true;
    for (const FoundMismatch& found : result.firstOfTypes) {
        const bool isShown =
            std::any_of(result.firstMismatches.begin(), result.firstMismatches.end(),
                        [&](const FoundMismatch& one) { return one.typeName == found.typeName; });
        if (isShown || isSaidOfElements(result, found)) continue;
        if (isFirst) out << "The first of each other type:\n";
        isFirst = false;
        printHanging(out, found.typeName + ", " + frameOf(found) + inOneLine(found.mismatch), 2);
    }
    if (!isFirst) out << "\n";
}

}  // namespace Tolvane::Tools
