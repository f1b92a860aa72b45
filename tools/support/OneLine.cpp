#include "tools/support/OneLine.h"

namespace Tolvane::Tools {
namespace {

constexpr std::size_t kLongestQuotation = 80;

}  // namespace

std::string oneLine(std::string_view text) {
    std::string line;
    bool blankDue = false;
    for (const char character : text) {
        const auto code = static_cast<unsigned char>(character);
        if (code <= ' ' || code == 0x7f) {
            blankDue = !line.empty();
            continue;
        }
        if (blankDue) line += ' ';
        blankDue = false;
        line += character;
    }
    return line;
}

std::string inQuotes(std::string_view text) {
    const bool isTooLong = text.size() > kLongestQuotation;
    std::size_t end = isTooLong ? kLongestQuotation : text.size();
    // Not within a character, whose bytes after the first begin with the bits 10.
    while (isTooLong && end > 0 && (static_cast<unsigned char>(text[end]) & 0xc0) == 0x80) --end;
    return '"' + std::string(text.substr(0, end)) + (isTooLong ? "...\"" : "\"");
}

}  // namespace Tolvane::Tools
