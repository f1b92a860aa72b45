#include "tests/support/RunTogether.h"

#include <Pelmor/DefaultClass.h>

#include <cstdint>
#include <vector>

#include <gtest/gtest.h>

namespace {

using ObjectPtr = Pelmor::Ptr<Tavrik::Object>;

const ObjectPtr& defaultObject() { return Pelmor::Internal::getDefaultClass<Tavrik::Object>(); }

TEST(DefaultClass, DefaultObjectIsOneEvenIfManyThreadsAskFirst) {
    std::vector<const ObjectPtr*> answers(8);
    TestSupport::runTogether(answers.size(), [&](std::size_t i) { answers[i] = &defaultObject(); });
    for (const ObjectPtr* answer : answers) EXPECT_EQ(answer, &defaultObject());
}

TEST(DefaultClass, DefaultObjectIsNeverNullAndCountsItsCopies) {
    ASSERT_TRUE(defaultObject());
    const std::uint64_t before = defaultObject().useCount();
    {
        const ObjectPtr copy = defaultObject();
        EXPECT_EQ(copy.get(), defaultObject().get());
        EXPECT_EQ(defaultObject().useCount(), before + 1);
    }
    EXPECT_EQ(defaultObject().useCount(), before);
    EXPECT_GE(before, 1u);
}

}  // namespace
