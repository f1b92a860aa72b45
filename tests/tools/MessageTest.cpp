#include "tools/process/ErrorMessage.h"
#include "tools/process/Message.h"

#include <string>

#include <gtest/gtest.h>

namespace Tolvane::Tools {
namespace {

enum class Season { Spring, Summer };

constexpr auto exchangeSeason = [](auto& message, auto& season) { message.choice(season, 2); };

TEST(Message, OfAChoiceIsReadBack) {
    for (const Season season : {Season::Spring, Season::Summer})
        EXPECT_EQ(unpacked<Season>(packed(season, exchangeSeason), exchangeSeason), season);
}

TEST(Message, OfAChoiceThatThereIsNotIsRefused) {
    const std::string bytes = packed(static_cast<Season>(2), exchangeSeason);
    EXPECT_THROW(unpacked<Season>(bytes, exchangeSeason), BadMessage);
}

TEST(Message, ThatEndsTooSoonOrTooLateIsRefused) {
    const std::string bytes = packed(Season::Summer, exchangeSeason);
    EXPECT_THROW(unpacked<Season>(bytes.substr(1), exchangeSeason), BadMessage);
    EXPECT_THROW(unpacked<Season>(bytes + '\0', exchangeSeason), BadMessage);
}

TEST(ErrorMessage, IsReadBackWhole) {
    const Error read = errorOf(messageOf(Error(Stage::Writing, "a file", "what is wrong", 1)));
    EXPECT_EQ(read.stage(), Stage::Writing);
    EXPECT_EQ(read.file(), "a file");
    EXPECT_STREQ(read.what(), "what is wrong");
    EXPECT_EQ(read.status(), 1);
}

TEST(ErrorMessage, OfAStatusThatNoErrorHasIsRefused) {
    EXPECT_THROW(errorOf(messageOf(Error(Stage::Writing, "", "", 0))), BadMessage);
    EXPECT_THROW(errorOf(messageOf(Error(Stage::Writing, "", "", 3))), BadMessage);
}

}  // namespace
}  // namespace Tolvane::Tools
