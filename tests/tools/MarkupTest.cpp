#include "tools/view/Markup.h"

#include <gtest/gtest.h>

namespace {

using Tolvane::Tools::markup;

TEST(Markup, KeepsNamesOfAnyScript) {
    for (const char* name : {"walk 1.bvh", "Fußgänger", "腕_左", "ذراع", "🦴👍🏽", "né"})
        EXPECT_EQ(markup(name), name);
}

TEST(Markup, EscapesWhatMeansSomething) {
    EXPECT_EQ(markup("a<b>&\"c'"), "a&lt;b&gt;&amp;&quot;c'");
}

TEST(Markup, ReplacesBytesThatAreNoText) {
    const std::string bad = "\ufffd";
    EXPECT_EQ(markup("a\xff"), "a" + bad);
    EXPECT_EQ(markup("\xc3"), bad) << "cut off";
    EXPECT_EQ(markup("\xe2\x82 \xac"), bad + bad + " " + bad);
    EXPECT_EQ(markup("\xc0\xaf"), bad + bad) << "longer than needed";
    EXPECT_EQ(markup("\xe0\x80\xaf"), bad + bad + bad) << "longer than needed";
    EXPECT_EQ(markup("\xed\xa0\x80"), bad + bad + bad) << "half of a pair";
    EXPECT_EQ(markup("\xf4\x90\x80\x80"), bad + bad + bad + bad) << "beyond the last";
}

TEST(Markup, HasBlanksForControlCharactersAndThoseThatTurnTheTextAround) {
    EXPECT_EQ(markup("a\x01\tb\nc"), "a b c");
    EXPECT_EQ(markup("a\u0085b\u202ec\uffffd\u2066e"), "a b c d e");
    EXPECT_EQ(markup(std::string("a\0b", 3)), "a b");
}

TEST(Markup, CutsOffWhatIsTooLongBetweenCharacters) {
    EXPECT_EQ(markup("腕腕腕", 6), "腕腕腕");
    EXPECT_EQ(markup("腕腕腕腕", 7), "腕腕腕…");
    EXPECT_EQ(markup("e\u0301e\u0301", 2), "e\u0301e\u0301");
    EXPECT_EQ(markup("<<<<", 2), "&lt;&lt;…");
}

}  // namespace
