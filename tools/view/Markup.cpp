#include "tools/view/Markup.h"

#include "tools/support/Columns.h"
#include "tools/support/OneLine.h"

namespace Tolvane::Tools {
namespace {

struct CodePoint {
    std::string_view bytes;
    char32_t code;
};

constexpr char32_t kReplacement = 0xfffd;
constexpr std::string_view kReplacementBytes = "\ufffd";

bool isContinuation(char byte) { return (static_cast<unsigned char>(byte) & 0xc0) == 0x80; }

// The first character of `text`, which is not empty. Of bytes that are no character, the first one
// is taken, as the replacement character.
CodePoint firstCodePoint(std::string_view text, std::size_t& size) {
    const auto first = static_cast<unsigned char>(text[0]);
    size = first < 0x80 ? 1 : first >= 0xf0 ? 4 : first >= 0xe0 ? 3 : 2;
    char32_t code = size == 1 ? first : first & (0x7fU >> size);
    bool isValid = first < 0x80 || (first >= 0xc2 && first < 0xf5);
    isValid = isValid && size <= text.size();
    for (std::size_t i = 1; isValid && i < size; ++i) {
        isValid = isContinuation(text[i]);
        code = code << 6 | (static_cast<unsigned char>(text[i]) & 0x3fU);
    }
    // Longer than needed, one half of a pair, or beyond the last one.
    if ((size == 3 && code < 0x800) || (size == 4 && code < 0x10000) ||
        (code >= 0xd800 && code < 0xe000) || code > 0x10ffff)
        isValid = false;
    if (isValid) return {text.substr(0, size), code};
    size = 1;
    return {kReplacementBytes, kReplacement};
}

// Neither Unicode nor XML has such a character, not even escaped.
bool isForbidden(char32_t code) {
    return (code & 0xfffe) == 0xfffe || (code >= 0xfdd0 && code <= 0xfdef);
}

void append(std::string& result, const CodePoint& character) {
    switch (character.code) {
        case '&':
            result += "&amp;";
            break;
        case '<':
            result += "&lt;";
            break;
        case '>':
            result += "&gt;";
            break;
        case '"':
            result += "&quot;";
            break;
        default:
            result += character.bytes;
    }
}

}  // namespace

std::string markup(std::string_view text, std::size_t mostColumns) {
    const std::string line = oneLine(text);
    std::string_view rest = line;
    std::string result;
    for (std::size_t columns = 0; !rest.empty();) {
        std::size_t size = 0;
        const CodePoint character = firstCodePoint(rest, size);
        rest.remove_prefix(size);
        if (isForbidden(character.code)) continue;
        columns += columnsOf(character.bytes);
        if (columns > mostColumns) return result + "…";
        append(result, character);
    }
    return result;
}

}  // namespace Tolvane::Tools
