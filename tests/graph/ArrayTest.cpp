#include "tests/support/AllocationCount.h"

#include <Pelmor/Array.h>

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <initializer_list>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

namespace {

using Pelmor::Array;
using Pelmor::String;
using TestSupport::AllocationCount;

Array<double> arrayOf(std::initializer_list<double> values) {
    Array<double> array;
    for (const double value : values) array.append(value);
    return array;
}

std::vector<double> contentOf(const Array<double>& array) { return {array.begin(), array.end()}; }

TEST(Array, NewArrayHasNoElementsAndNoStorage) {
    const AllocationCount count;
    const Array<String> array;
    EXPECT_EQ(count.allocations(), 0u);
    EXPECT_EQ(array.data(), nullptr);
    EXPECT_EQ(array.size(), 0u);
    EXPECT_EQ(array.capacity(), 0u);
    EXPECT_TRUE(array.empty());
    EXPECT_EQ(array.begin(), array.end());
    const Array<String> copy(array);
    EXPECT_EQ(count.allocations(), 0u);
}

TEST(Array, ArrayIsFiveWordsDataSizeCapacityAndElementDescription) {
    Array<String> array;
    for (const char* name : {"first", "second", "third"}) array.append(name);
    struct {
        const void* data;
        std::uint64_t size;
        std::uint64_t capacity;
        std::uint32_t elementSize;
        std::uint32_t alignmentAndKind;
        const void* operations;
    } words;
    static_assert(sizeof words == sizeof array);
    std::memcpy(&words, static_cast<const void*>(&array), sizeof words);
    EXPECT_EQ(words.data, array.data());
    EXPECT_EQ(words.size, 3u);
    EXPECT_EQ(words.capacity, 4u);
    EXPECT_EQ(words.elementSize, 16u);
    EXPECT_EQ(words.alignmentAndKind, 0x00010008u);
    EXPECT_EQ(words.operations, nullptr);
}

TEST(Array, CapacityDoublesFromOne) {
    Array<double> array;
    std::vector<std::uint64_t> capacities;
    for (int i = 0; i < 14; ++i) {
        array.append(i);
        EXPECT_EQ(array.size(), static_cast<std::uint64_t>(i) + 1);
        capacities.push_back(array.capacity());
    }
    EXPECT_EQ(capacities,
              (std::vector<std::uint64_t>{1, 2, 4, 4, 8, 8, 8, 8, 16, 16, 16, 16, 16, 16}));
}

TEST(Array, GrowthKeepsTheElementsInOrder) {
    Array<String> array;
    std::vector<String> expected;
    for (int i = 0; i < 20; ++i) {
        const String text = String("a name of more than fifteen characters ") +
                            std::string(static_cast<std::size_t>(i), 'x').c_str();
        array.append(text);
        expected.push_back(text);
    }
    ASSERT_EQ(array.size(), expected.size());
    EXPECT_TRUE(std::equal(array.begin(), array.end(), expected.begin()));
}

TEST(Array, ClearKeepsTheStorage) {
    Array<double> array = arrayOf({1, 2, 3});
    const double* storage = array.data();
    const AllocationCount count;
    array.clear();
    EXPECT_EQ(array.size(), 0u);
    EXPECT_EQ(array.capacity(), 4u);
    array.append(9);
    EXPECT_EQ(array.data(), storage);
    EXPECT_EQ(count.allocations(), 0u);
    EXPECT_EQ(count.deallocations(), 0u);
    EXPECT_EQ(contentOf(array), std::vector<double>{9});
}

TEST(Array, ClearReleasesWhatTheElementsHold) {
    const AllocationCount count;
    Array<String> array;
    array.append("a name of more than fifteen characters");
    array.clear();
    EXPECT_EQ(count.outstanding(), 1) << "the storage of the array alone";
}

TEST(Array, SwapExchangesAllFiveWordsAndTouchesNoElement) {
    Array<double> full = arrayOf({1, 2, 3});
    Array<double> empty;
    const double* storage = full.data();
    const AllocationCount count;
    full.swap(empty);
    EXPECT_EQ(count.allocations(), 0u);
    EXPECT_EQ(empty.data(), storage);
    EXPECT_EQ(empty.size(), 3u);
    EXPECT_EQ(empty.capacity(), 4u);
    EXPECT_EQ(full.data(), nullptr);
    EXPECT_EQ(full.size(), 0u);
    EXPECT_EQ(full.capacity(), 0u);
}

// A library of another making may describe the same elements differently; its storage has to go
// back through its own description.
TEST(Array, SwapExchangesTheDescriptions) {
    Array<double> array, foreign;
    auto* description =
        reinterpret_cast<Pelmor::Internal::UntypedTypeRep*>(reinterpret_cast<char*>(&foreign) + 24);
    description->alignmentAndKind = 0x00050008;
    array.swap(foreign);
    EXPECT_EQ(array.elementRep().kindCode(), 5u);
    EXPECT_EQ(foreign.elementRep().kindCode(), 0u);
}

TEST(Array, CopyHasElementsOfItsOwnInExactlyTheStorageTheyTake) {
    const Array<double> original = arrayOf({1, 2, 3});
    Array<double> copy(original);
    EXPECT_EQ(copy.capacity(), 3u);
    copy[0] = 9;
    EXPECT_EQ(contentOf(original), (std::vector<double>{1, 2, 3}));
    EXPECT_EQ(contentOf(copy), (std::vector<double>{9, 2, 3}));
}

TEST(Array, MoveTakesTheStorageAndLeavesTheSourceEmpty) {
    Array<double> source = arrayOf({1, 2, 3});
    const double* storage = source.data();
    const AllocationCount count;
    Array<double> destination(std::move(source));
    EXPECT_EQ(destination.data(), storage);
    EXPECT_EQ(source.data(), nullptr);
    EXPECT_EQ(source.capacity(), 0u);
    source.swap(destination);
    destination = std::move(source);
    EXPECT_EQ(destination.data(), storage);
    EXPECT_TRUE(source.empty());
    EXPECT_EQ(count.allocations(), 0u);
}

TEST(Array, AssignmentReplacesTheElements) {
    const AllocationCount count;
    {
        Array<double> array = arrayOf({1, 2, 3});
        const Array<double> other = arrayOf({4, 5});
        array = other;
        EXPECT_EQ(contentOf(array), (std::vector<double>{4, 5}));
        EXPECT_EQ(contentOf(other), (std::vector<double>{4, 5}));
    }
    EXPECT_EQ(count.outstanding(), 0);
}

TEST(Array, AssignmentToItselfKeepsTheElements) {
    Array<double> array = arrayOf({1, 2, 3});
    const Array<double>& same = array;
    array = same;
    EXPECT_EQ(contentOf(array), (std::vector<double>{1, 2, 3}));
}

TEST(Array, AppendTakesAnElementOfTheArrayItself) {
    Array<String> array;
    array.append("a name of more than fifteen characters");
    for (int i = 0; i < 4; ++i) array.append(array[0]);
    ASSERT_EQ(array.size(), 5u);
    for (const String& string : array)
        EXPECT_TRUE(string == "a name of more than fifteen characters");
}

TEST(Array, ElementsCanBeChangedByIndexAndIterator) {
    Array<double> array = arrayOf({1, 2});
    array[1] = 5;
    *array.begin() = 4;
    EXPECT_EQ(contentOf(array), (std::vector<double>{4, 5}));
    EXPECT_EQ(array.data() + 2, array.end());
}

}  // namespace
