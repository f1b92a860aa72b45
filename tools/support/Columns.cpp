#include "tools/support/Columns.h"

#include <algorithm>
#include <iterator>

namespace Tolvane::Tools {
namespace {

struct Range {
    char32_t first;
    char32_t last;
};

// Roughly, and rather too many than too few.
constexpr Range kWide[] = {
    {0x1100, 0x115f},  {0x231a, 0x231b}, {0x23e9, 0x23f3}, {0x25fd, 0x25fe},   {0x2614, 0x2615},
    {0x2648, 0x2653},  {0x26a1, 0x26ff}, {0x2705, 0x27bf}, {0x2b1b, 0x2b55},   {0x2e80, 0x303e},
    {0x3041, 0xa4cf},  {0xa960, 0xa97f}, {0xac00, 0xd7a3}, {0xf900, 0xfaff},   {0xfe10, 0xfe19},
    {0xfe30, 0xfe6f},  {0xff01, 0xff60}, {0xffe0, 0xffe6}, {0x16fe0, 0x1b2ff}, {0x1f004, 0x1faff},
    {0x20000, 0x3fffd}};

constexpr Range kWithoutColumns[] = {
    {0x300, 0x36f},   {0x483, 0x489},   {0x591, 0x5bd},   {0x610, 0x61a},    {0x64b, 0x65f},
    {0x6d6, 0x6dc},   {0x93c, 0x93c},   {0x941, 0x948},   {0x94d, 0x94d},    {0xe31, 0xe31},
    {0xe34, 0xe3a},   {0xe47, 0xe4e},   {0x1ab0, 0x1aff}, {0x1dc0, 0x1dff},  {0x200b, 0x200d},
    {0x20d0, 0x20ff}, {0xfe00, 0xfe0f}, {0xfe20, 0xfe2f}, {0xe0100, 0xe01ef}};

// Controls, line separators, and what turns the direction of the text behind it.
constexpr Range kUnprintable[] = {{0, 0x1f},        {0x7f, 0x9f},     {0x200e, 0x200f},
                                  {0x2028, 0x202e}, {0x2060, 0x206f}, {0xfeff, 0xfeff},
                                  {0xfff0, 0xffff}};

template <std::size_t kCount>
bool isIn(const Range (&ranges)[kCount], char32_t code) {
    return std::any_of(std::begin(ranges), std::end(ranges),
                       [code](Range range) { return range.first <= code && code <= range.last; });
}

constexpr std::string_view kLeftOut = "...";

constexpr Character kNoCharacter{1, 1, false};

std::size_t columnsOf(char32_t code) {
    if (isIn(kWithoutColumns, code)) return 0;
    return isIn(kWide, code) ? 2 : 1;
}

}  // namespace

Character firstCharacter(std::string_view text) {
    const auto byteAt = [text](std::size_t i) { return static_cast<unsigned char>(text[i]); };
    const unsigned char first = byteAt(0);
    if (first < 0x80) return {1, 1, !isIn(kUnprintable, first)};
    const std::size_t bytes = first >= 0xf0 ? 4 : first >= 0xe0 ? 3 : 2;
    if (first < 0xc2 || first > 0xf4 || bytes > text.size()) return kNoCharacter;
    char32_t code = first & (0x7fU >> bytes);
    for (std::size_t i = 1; i < bytes; ++i) {
        if ((byteAt(i) & 0xc0) != 0x80) return kNoCharacter;
        code = code << 6 | (byteAt(i) & 0x3f);
    }
    const bool isOverlong = code < (bytes == 2 ? 0x80U : bytes == 3 ? 0x800U : 0x10000U);
    const bool isSurrogate = code >= 0xd800 && code <= 0xdfff;
    if (isOverlong || isSurrogate || code > 0x10ffff) return kNoCharacter;
    return {bytes, columnsOf(code), !isIn(kUnprintable, code)};
}

std::size_t columnsOf(std::string_view text) {
    std::size_t columns = 0;
    while (!text.empty()) {
        const Character character = firstCharacter(text);
        columns += character.columns;
        text.remove_prefix(character.bytes);
    }
    return columns;
}

std::size_t bytesWithin(std::string_view text, std::size_t columns) {
    std::size_t bytes = 0, taken = 0;
    while (bytes < text.size()) {
        const Character character = firstCharacter(text.substr(bytes));
        taken += character.columns;
        if (taken > columns && bytes > 0) break;
        bytes += character.bytes;
    }
    return bytes;
}

std::string shortened(std::string_view text, std::size_t columns) {
    if (columnsOf(text) <= columns) return std::string(text);
    const std::string_view begin =
        text.substr(0, bytesWithin(text, (columns - kLeftOut.size()) / 2));
    return std::string(begin) +
           endOf(text.substr(begin.size()), columns - (columns - kLeftOut.size()) / 2);
}

std::string endOf(std::string_view text, std::size_t columns) {
    if (columnsOf(text) <= columns) return std::string(text);
    const std::size_t kept = columns - kLeftOut.size();
    std::string_view end = text;
    for (std::size_t left = columnsOf(end); left > kept; left = columnsOf(end))
        end.remove_prefix(bytesWithin(end, std::max<std::size_t>(left - kept, 1)));
    return std::string(kLeftOut) + std::string(end);
}

std::string wrapped(std::string_view text, std::size_t indent, std::size_t columns) {
    const std::string margin(indent, ' ');
    const std::size_t room = columns > indent ? columns - indent : 1;
    std::string lines, line;
    const auto endLine = [&] {
        lines += (lines.empty() ? "" : "\n") + margin + line;
        line.clear();
    };
    while (true) {
        text.remove_prefix(std::min(text.find_first_not_of(" \n"), text.size()));
        if (text.empty()) break;
        std::string_view word = text.substr(0, text.find_first_of(" \n"));
        text.remove_prefix(word.size());
        if (!line.empty() && columnsOf(line) + 1 + columnsOf(word) > room) endLine();
        if (!line.empty()) line += ' ';
        for (; columnsOf(word) > room; endLine()) {
            line = word.substr(0, bytesWithin(word, room));
            word.remove_prefix(line.size());
        }
        line += word;
    }
    if (!line.empty() || lines.empty()) endLine();
    return lines;
}

std::string hanging(std::string_view text, std::size_t indent, std::size_t columns) {
    constexpr std::size_t kMore = 2;
    std::string lines = wrapped(text, indent, columns - kMore);
    for (std::size_t i = lines.find('\n'); i != std::string::npos; i = lines.find('\n', i + 1))
        lines.insert(i + 1, kMore, ' ');
    return lines;
}

}  // namespace Tolvane::Tools
