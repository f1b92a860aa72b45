#include "tools/view/SideOfName.h"

#include <array>
#include <string>
#include <vector>

namespace Tolvane::Tools {
namespace {

bool isUpper(char c) { return c >= 'A' && c <= 'Z'; }
bool isLower(char c) { return c >= 'a' && c <= 'z'; }

bool startsWith(std::string_view text, std::string_view start) {
    return text.substr(0, start.size()) == start;
}

// Whether a word of a name begins at `i`, which is a letter.
bool beginsWord(std::string_view name, std::size_t i) {
    if (i == 0) return true;
    const char before = name[i - 1];
    if (!isUpper(before) && !isLower(before)) return true;
    if (!isUpper(name[i])) return false;
    return isLower(before) || (i + 1 < name.size() && isLower(name[i + 1]));
}

// The words of ASCII letters in lower case: "LHip.Joint_l" becomes "l", "hip", "joint" and "l".
std::vector<std::string> wordsOf(std::string_view name) {
    std::vector<std::string> words;
    for (std::size_t i = 0; i < name.size(); ++i) {
        if (!isUpper(name[i]) && !isLower(name[i])) continue;
        if (beginsWord(name, i)) words.emplace_back();
        words.back() += static_cast<char>(name[i] | 0x20);
    }
    return words;
}

struct Side {
    BodySide side;
    std::string_view word, shortWord, letter, character;
};

constexpr std::array<Side, 2> kSides{{{BodySide::Left, "left", "lft", "l", "\u5de6"},
                                      {BodySide::Right, "right", "rgt", "r", "\u53f3"}}};

}  // namespace

NamedSide sideOfName(std::string_view name) {
    // What stands before a colon is the name of the file that the rig came from.
    const std::size_t colon = name.rfind(':');
    if (colon != std::string_view::npos) name.remove_prefix(colon + 1);

    const std::vector<std::string> words = wordsOf(name);
    NamedSide found;
    for (const Side& side : kSides) {
        bool isWord = name.find(side.character) != std::string_view::npos;
        bool isLetter = false;
        for (const std::string& word : words) {
            isWord = isWord || startsWith(word, side.word) || word == side.shortWord;
            isLetter = isLetter || word == side.letter;
        }
        if (!isWord && !isLetter) continue;
        if (found.side != BodySide::Middle) return {};
        found = {side.side, isWord};
    }
    return found;
}

}  // namespace Tolvane::Tools
