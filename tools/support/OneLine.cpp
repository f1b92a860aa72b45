#include "tools/support/OneLine.h"

#include "tools/support/Columns.h"

namespace Tolvane::Tools {
namespace {

constexpr std::size_t kLongestQuotation = 80;
constexpr std::string_view kReplacement = "\xef\xbf\xbd";

}  // namespace

std::string oneLine(std::string_view text) {
    std::string line;
    bool blankDue = false;
    while (!text.empty()) {
        const Character character = firstCharacter(text);
        const std::string_view bytes = text.substr(0, character.bytes);
        text.remove_prefix(character.bytes);
        const bool isNoUtf8 = character.bytes == 1 && static_cast<unsigned char>(bytes[0]) >= 0x80;
        const bool isReplaced = isNoUtf8 || bytes == kReplacement;
        if (bytes == " " || (!character.isPrintable && !isReplaced)) {
            blankDue = !line.empty();
            continue;
        }
        if (blankDue) line += ' ';
        blankDue = false;
        line += isReplaced ? kReplacement : bytes;
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

std::string inQuotesWhole(std::string_view text) { return '"' + std::string(text) + '"'; }

}  // namespace Tolvane::Tools
