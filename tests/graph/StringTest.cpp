#include "tests/support/AllocationCount.h"
#include "tests/support/RunTogether.h"

#include <Pelmor/String.h>

#include <cstddef>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

namespace {

using Pelmor::String;
using TestSupport::AllocationCount;
using TestSupport::runTogether;

constexpr const char* kShort = "hip";
constexpr const char* kLong = "a joint name that is too long to be kept in place";

int sign(int value) { return (value > 0) - (value < 0); }

class StringLength : public testing::TestWithParam<std::size_t> {
protected:
    std::string text() const {
        std::string text;
        while (text.size() < GetParam()) text += static_cast<char>('a' + text.size() % 26);
        return text;
    }
};

TEST_P(StringLength, StringKeepsItsCharactersAndTheirTerminator) {
    const std::string expected = text();
    const String string(expected.c_str());
    EXPECT_EQ(string.size(), GetParam());
    EXPECT_EQ(string.empty(), GetParam() == 0);
    EXPECT_EQ(std::string(string.c_str(), GetParam() + 1), expected + '\0');
    EXPECT_EQ(string.asChar(), string.c_str());
    EXPECT_TRUE(string == expected.c_str());
}

TEST_P(StringLength, ConstructionAllocatesOnceAboveFifteenCharactersAndNeverBelow) {
    const std::string expected = text();
    const AllocationCount count;
    {
        const String string(expected.c_str());
        EXPECT_EQ(count.allocations(), GetParam() > 15 ? 1u : 0u);
    }
    EXPECT_EQ(count.outstanding(), 0);
}

TEST_P(StringLength, CopyMoveAndAssignmentAllocateNothing) {
    const std::string expected = text();
    String original(expected.c_str());
    const AllocationCount count;
    const String copy(original);
    String assigned;
    assigned = original;
    const String moved(std::move(original));
    EXPECT_EQ(count.allocations(), 0u);
    EXPECT_TRUE(copy == expected.c_str());
    EXPECT_TRUE(assigned == expected.c_str());
    EXPECT_TRUE(moved == expected.c_str());
}

TEST_P(StringLength, MovedFromStringIsEmpty) {
    String source(text().c_str());
    const String constructed(std::move(source));
    EXPECT_TRUE(source.empty());
    EXPECT_STREQ(source.c_str(), "");

    source = text().c_str();
    String assigned(kLong);
    assigned = std::move(source);
    EXPECT_TRUE(source.empty());
    EXPECT_TRUE(assigned == constructed);
}

TEST_P(StringLength, AssignmentToItselfChangesNothing) {
    String string(text().c_str());
    String& same = string;
    string = same;
    EXPECT_TRUE(string == text().c_str());
    string = std::move(same);
    EXPECT_TRUE(string == text().c_str());
}

INSTANTIATE_TEST_SUITE_P(AroundTheInPlaceCapacity, StringLength,
                         testing::Values(0, 1, 14, 15, 16, 17, 1000));

TEST(String, StringTakesSixteenBytes) { EXPECT_EQ(sizeof(String), 16u); }

TEST(String, DefaultStringAndNullTextAreEmpty) {
    EXPECT_STREQ(String().c_str(), "");
    EXPECT_STREQ(String(nullptr).c_str(), "");
    String string(kLong);
    string = static_cast<const char*>(nullptr);
    EXPECT_TRUE(string.empty());
}

TEST(String, CopiesShareLongText) {
    const String original(kLong);
    const String copy(original);
    EXPECT_EQ(copy.c_str(), original.c_str());
}

TEST(String, SharedTextIsFreedWithTheLastStringThatHasIt) {
    const AllocationCount count;
    std::optional<String> original(kLong);
    {
        const String copy(*original);
        original.reset();
        EXPECT_EQ(count.outstanding(), 1);
        EXPECT_TRUE(copy == kLong);
    }
    EXPECT_EQ(count.outstanding(), 0);
}

TEST(String, AssignmentFreesTheTextThatItReplaces) {
    const AllocationCount count;
    {
        String string(kLong);
        string = kShort;
        EXPECT_EQ(count.outstanding(), 0);
        EXPECT_TRUE(string == kShort);
        string = kLong;
        const String other("another name that does not fit in place either");
        string = other;
        EXPECT_EQ(count.outstanding(), 1);
        string = String();
        EXPECT_TRUE(string.empty());
    }
    EXPECT_EQ(count.outstanding(), 0);
}

TEST(String, AssignmentLeavesCopiesAlone) {
    String original(kLong);
    const String copy(original);
    original = kShort;
    EXPECT_TRUE(copy == kLong);
}

TEST(String, TextMayHaveNulsAmongItsCharacters) {
    const String string("hip\0left", 8);
    EXPECT_EQ(string.size(), 8u);
    EXPECT_EQ(std::string(string.c_str(), 8), std::string("hip\0left", 8));
    EXPECT_FALSE(string == "hip");
    EXPECT_TRUE(string != "hip");
    EXPECT_TRUE(string != String("hip"));
}

TEST(String, EqualityIsThatOfAllCharacters) {
    const String string("knee");
    EXPECT_TRUE(string == "knee");
    EXPECT_TRUE(string == String("knee"));
    for (const char* other : {"", "kne", "knees", "Knee", "knee "}) {
        EXPECT_FALSE(string == other) << other;
        EXPECT_TRUE(string != other) << other;
        EXPECT_TRUE(string != String(other)) << other;
    }
    EXPECT_TRUE(String() == nullptr);
    EXPECT_FALSE(string == nullptr);
}

TEST(String, CompareOrdersEveryPairOfTexts) {
    const std::vector<String> ascending = {
        "",
        {"\0", 1},
        "A",
        "a",
        {"a\0", 2},
        "aa",
        "ab",
        "abcdefghijklmno",
        "abcdefghijklmnop",
        "abcdefghijklmnopq",
        "b",
        "\x7f",
        "\x80",
        "\xff",
    };
    for (std::size_t i = 0; i < ascending.size(); ++i)
        for (std::size_t j = 0; j < ascending.size(); ++j)
            EXPECT_EQ(sign(ascending[i].compare(ascending[j])), (i > j) - (i < j))
                << i << " and " << j;
}

TEST(String, PlusGivesANewStringWithBothTexts) {
    const String left("array<");
    const String joined = left + "Math::double4x4" + ">";
    EXPECT_TRUE(joined == "array<Math::double4x4>");
    EXPECT_TRUE(left == "array<");
    EXPECT_TRUE(left + nullptr == "array<");
    EXPECT_TRUE(String() + "" == "");
}

// So many that the threads are sure to meet.
class StringThreads : public testing::Test {
protected:
    static constexpr std::size_t kThreads = 4, kCopies = 1'000'000;

    std::optional<String> original{kLong};
    std::vector<std::vector<String>> copies{kThreads};
};

TEST_F(StringThreads, CopiesOnManyThreadsAreAllCounted) {
    runTogether(kThreads, [&](std::size_t i) { copies[i].assign(kCopies, *original); });
    const AllocationCount count;
    for (std::vector<String>& some : copies)
        while (!some.empty() && count.deallocations() == 0) some.pop_back();
    if (count.deallocations() == 0) return;
    ADD_FAILURE() << "the text was freed before the last string that has it";
    // What is left has no text that it could release.
    new auto(std::move(copies));
    new auto(std::move(original));
}

TEST_F(StringThreads, StringsDestroyedOnManyThreadsAreAllUncounted) {
    for (std::vector<String>& some : copies) some.assign(kCopies, *original);
    runTogether(kThreads, [&](std::size_t i) { copies[i].clear(); });
    const AllocationCount count;
    original.reset();
    EXPECT_EQ(count.deallocations(), 1u) << "the last string frees the text";
}

}  // namespace
