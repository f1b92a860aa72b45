#include "tools/support/Stage.h"

#include <array>
#include <cstddef>
#include <string>

namespace Tolvane::Tools {
namespace {

constexpr std::array kWords{"usage",     "reading",   "loading",   "names",   "ports", "evaluating",
                            "releasing", "unloading", "reporting", "writing", "other"};
static_assert(kWords.size() == static_cast<std::size_t>(Stage::Other) + 1);

}  // namespace

const char* wordFor(Stage stage) noexcept {
    const auto index = static_cast<std::size_t>(stage);
    return index < kWords.size() ? kWords[index] : kWords.back();
}

const char* stageWords() noexcept {
    static const std::string s_words = [] {
        std::string words;
        for (const char* word : kWords) words += (words.empty() ? "" : ", ") + std::string(word);
        return words;
    }();
    return s_words.c_str();
}

}  // namespace Tolvane::Tools
