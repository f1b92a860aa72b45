// The constructor of an array that takes its size.
#include "tests/graph/ElementEvents.h"
#include "tests/support/AllocationCount.h"

#include <Math/double4x4.h>
#include <Pelmor/Array.h>

#include <cstdint>
#include <new>

#include <gtest/gtest.h>

namespace {

using GraphTests::CopyRefused;
using GraphTests::EnteredElement;
using GraphTests::Events;
using GraphTests::PlainElement;
using GraphTests::takeEvents;
using Pelmor::Array;
using Pelmor::String;
using TestSupport::AllocationCount;

class ArrayOfSize : public testing::Test {
protected:
    void SetUp() override {
        PlainElement::s_refused = -1;
        PlainElement::s_nextDefault = 0;
        takeEvents();
    }
};

TEST_F(ArrayOfSize, StorageIsAllocatedOnceForExactlyTheElements) {
    const AllocationCount count;
    const Array<double> empty(0);
    EXPECT_EQ(count.allocations(), 0u);
    EXPECT_EQ(empty.data(), nullptr);
    Array<double> array(3);
    EXPECT_EQ(count.allocations(), 1u);
    EXPECT_EQ(array.size(), 3u);
    EXPECT_EQ(array.capacity(), 3u);
    array.append(1);
    EXPECT_EQ(array.capacity(), 6u) << "growth goes by the capacity that there is";
}

TEST_F(ArrayOfSize, ElementsAreZerosAndEmptyStrings) {
    for (const double number : Array<double>(3)) EXPECT_EQ(number, 0);
    for (const Math::double4x4& matrix : Array<Math::double4x4>(2))
        for (const auto& row : matrix.rows)
            for (const double value : row) EXPECT_EQ(value, 0);
    for (const String& string : Array<String>(2)) EXPECT_TRUE(string.empty());
}

TEST_F(ArrayOfSize, SizeWhoseBytesCannotBeCountedIsRefused) {
    const AllocationCount count;
    // Unknown to the compiler, which would warn of the second.
    for (const volatile std::uint64_t size : {std::uint64_t{1} << 61, UINT64_MAX})
        EXPECT_THROW(Array<double>{size}, std::bad_alloc) << size;
    EXPECT_EQ(count.outstanding(), 0);
}

TEST_F(ArrayOfSize, ElementsAreMadeInOrder) {
    const Array<PlainElement> array(3);
    EXPECT_EQ(takeEvents(), (Events{"allocate 3", "default 0", "default 1", "default 2"}));
}

TEST_F(ArrayOfSize, ElementThatCannotBeMadeTakesTheOthersWithIt) {
    PlainElement::s_refused = 2;
    EXPECT_THROW(Array<PlainElement>(4), CopyRefused);
    EXPECT_EQ(takeEvents(), (Events{"allocate 4", "default 0", "default 1", "destroy 0",
                                    "destroy 1", "deallocate 4"}));
}

TEST_F(ArrayOfSize, OperationsEntryMakesTheElements) {
    const Array<EnteredElement> array(3);
    EXPECT_EQ(takeEvents(), (Events{"allocate 3", "DefaultConstruct 3"}));
    for (const EnteredElement& element : array) EXPECT_EQ(element.number(), 0);
}

}  // namespace
