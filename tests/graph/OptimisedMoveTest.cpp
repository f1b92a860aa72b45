// Compiled with optimisation, unlike the other tests: a compiler that optimises may drop what a
// move writes into an object that is destroyed next.
#include <Pelmor/AnyValue.h>

#include <array>
#include <cstdint>
#include <cstring>
#include <utility>

#include <gtest/gtest.h>

#ifndef __OPTIMIZE__
#error "this file is to be compiled with optimisation"
#endif

namespace {

// Known to this file alone, so that the linker cannot take their managers from a file that is not
// optimised.
struct OptimisedPointee {
    int number;
};
struct OptimisedNumbers {
    double numbers[3];
};

template <typename Held>
void expectMoveToLeaveNullWords(const Held& value) {
    static_assert(Pelmor::Internal::kHeldInPlace<Held>);
    auto source = Pelmor::AnyValue::holding(value);
    const auto destination = std::move(source);
    std::array<std::uintptr_t, 4> words;
    std::memcpy(words.data(), &source.words(), sizeof words);
    EXPECT_EQ(words, (std::array<std::uintptr_t, 4>{}));
    EXPECT_TRUE(destination.hasValue());
}

TEST(OptimisedHolder, MoveLeavesNullWordsOfAPointerInPlace) {
    expectMoveToLeaveNullWords(Pelmor::makePtr<OptimisedPointee>());
}

TEST(OptimisedHolder, MoveLeavesNullWordsOfNumbersInPlace) {
    expectMoveToLeaveNullWords(OptimisedNumbers{{1, 2, 3}});
}

}  // namespace
