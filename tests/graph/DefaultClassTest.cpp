#include <Pelmor/DefaultClass.h>

#include <cstdint>
#include <thread>
#include <vector>

#include <gtest/gtest.h>

namespace {

using ObjectPtr = Pelmor::Ptr<Tavrik::Object>;

const ObjectPtr& defaultObject() { return Pelmor::Internal::getDefaultClass<Tavrik::Object>(); }

TEST(DefaultClass, IsOneObjectEvenWhenManyThreadsAskForItFirst) {
    std::vector<const ObjectPtr*> answers(8);
    std::vector<std::thread> threads;
    for (const ObjectPtr*& answer : answers)
        threads.emplace_back([&answer] { answer = &defaultObject(); });
    for (std::thread& thread : threads) thread.join();
    for (const ObjectPtr* answer : answers) EXPECT_EQ(answer, &defaultObject());
}

TEST(DefaultClass, IsNeverNull) {
    ASSERT_TRUE(defaultObject());
    EXPECT_NE(defaultObject().get(), nullptr);
}

TEST(DefaultClass, CountsItsCopies) {
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
