// What becomes of a read or a write where the heap runs out, at each of its allocations in turn:
// what makes an array or stores a value ends the process, anything else throws and leaves nothing
// behind.
#include "tests/convert/HostPort.h"
#include "tests/convert/SizedValues.h"
#include "tests/convert/Translators.h"
#include "tests/support/AllocationCount.h"
#include "tests/support/AllocationFailure.h"
#include "tests/support/Endings.h"

#include <Pelmor/AnyValue.h>

#include <cstddef>
#include <new>

#include <gtest/gtest.h>

namespace {

using namespace TestSupport;
using Pelmor::AnyValue;
using Pelmor::SharedArray;

constexpr Lengths kLongTexts{2, 1, 1, 1, true};

void append(Endings& endings, std::size_t count, Ending ending) {
    endings.insert(endings.end(), count, ending);
}

template <typename Element>
class ReadArrayWithoutMemoryDeathTest : public testing::Test {
protected:
    // The first time, the host evaluates the array and the graph makes its default object.
    ReadArrayWithoutMemoryDeathTest() {
        SharedArray<Element> first;
        read(first);
    }

    void read(SharedArray<Element>& array) {
        Translators<Element>::readArray(port.handle, port.plug, array);
    }

    HostPort port = HostPort::ofArray<Element>({0, 1});
};
TYPED_TEST_SUITE(ReadArrayWithoutMemoryDeathTest, ElementTypes, NameOfType);

// The array, its storage, and what its elements begin with; then the arrays that those get instead.
// All are made where no exception may pass.
TYPED_TEST(ReadArrayWithoutMemoryDeathTest, EndsTheProcessWhereAnArrayIsMade) {
    SharedArray<TypeParam> array;
    const std::size_t expected = readRecords(kArraysOf<TypeParam>, {}, 2);
    EXPECT_EQ(endingsWithoutMemory([&] { this->read(array); }),
              times(expected, Ending::kTerminates));
}

TEST(ReadTextsWithoutMemoryDeathTest, ThrowsWhereATextIsReadAndLeavesTheArrayAsItWas) {
    auto port = HostPort::ofArray<Pelmor::String>();
    writeStringArray(sizedElements<Pelmor::String>(3, kLongTexts), port.handle, port.plug);
    SharedArray<Pelmor::String> array = sizedElements<Pelmor::String>(1);
    const auto read = [&] { readStringArray(port.handle, port.plug, array); };

    Endings expected = times(2, Ending::kTerminates);
    append(expected, 3, Ending::kThrows);
    EXPECT_EQ(endingsWithoutMemory(read), expected);

    const auto* former = array.get();
    const AllocationCount count;
    for (const unsigned nth : {3u, 4u, 5u}) {
        const AllocationFailure failure(nth);
        EXPECT_THROW(read(), std::bad_alloc);
        EXPECT_EQ(count.outstanding(), 0);
        EXPECT_EQ(array.get(), former);
    }
}

template <typename Record>
class ReadValueWithoutMemoryDeathTest : public testing::Test {
protected:
    using Of = Translators<Record>;

    ReadValueWithoutMemoryDeathTest() {
        Of::write(sized<Record>(kLongTexts), port.handle, port.plug);
        Of::readValue(value, port.handle, port.plug);
    }
    void read() { Of::readValue(value, port.handle, port.plug); }

    HostPort port = HostPort::ofRecord<Record>();
    AnyValue value;
};
TYPED_TEST_SUITE(ReadValueWithoutMemoryDeathTest, RecordTypes, NameOfType);

TYPED_TEST(ReadValueWithoutMemoryDeathTest, EndsTheProcessWhereTheRecordIsStored) {
    const Endings endings = endingsWithoutMemory([&] { this->read(); });
    ASSERT_EQ(endings.size(), readRecord(kArraysOf<TypeParam>, kLongTexts));
    EXPECT_EQ(endings.back(), Ending::kTerminates);
}

// What an exception finds on its way out is given back, and the holder holds what it held.
TYPED_TEST(ReadValueWithoutMemoryDeathTest, LeavesNothingBehindWhereItThrows) {
    const Endings endings = endingsWithoutMemory([&] { this->read(); });
    const TypeParam* held = this->value.template getIf<TypeParam>();
    std::size_t texts = 0;
    for (std::size_t i = newRecord(kArraysOf<TypeParam>); i < endings.size(); ++i) {
        if (endings[i] != Ending::kThrows) continue;
        ++texts;
        const AllocationCount count;
        const AllocationFailure failure(i + 1);
        EXPECT_THROW(this->read(), std::bad_alloc) << i;
        EXPECT_EQ(count.outstanding(), 0) << i;
        EXPECT_EQ(this->value.template getIf<TypeParam>(), held) << i;
    }
    EXPECT_EQ(texts, longTexts(kArraysOf<TypeParam>, kLongTexts));
}

template <typename Held>
class WriteWithoutMemoryDeathTest : public testing::Test {};
TYPED_TEST_SUITE(WriteWithoutMemoryDeathTest, HeldTypes, NameOfHeldType);

// A writer catches nothing: what the host throws for want of memory passes through it.
TYPED_TEST(WriteWithoutMemoryDeathTest, Throws) {
    using Of = HeldTranslators<TypeParam>;
    AnyValue value;
    if constexpr (Of::isArray)
        value = AnyValue::holding(sizedElements<typename Of::Element>(2, kLongTexts));
    else
        value = AnyValue::holding(sized<TypeParam>(kLongTexts));
    auto port = HostPort::ofHeld<TypeParam>();
    const Endings endings = endingsWithoutMemory([&] { Of::write(value, port.handle, port.plug); });
    const Allocations ofElement = writeToEmpty(kArraysOf<typename Of::Element>, kLongTexts);
    const Allocations expected = Of::isArray ? changeLength(0, 2) + 2 * ofElement : ofElement;
    EXPECT_EQ(endings, times(expected, Ending::kThrows));
}

// A builder that an exception drops is given back, and the array is not replaced.
TEST(WriteNumbersWithoutMemory, LeavesNothingBehindAndTheArrayAsItWas) {
    auto port = HostPort::ofArray<double>({0, 1, 2});
    const auto array = sizedElements<double>(2);
    // Those of the builder; the others are the host's when it replaces its elements.
    constexpr unsigned kOfTheBuilder = 5;
    for (unsigned nth = 1; nth <= kOfTheBuilder; ++nth) {
        const AllocationCount count;
        const AllocationFailure failure(nth);
        EXPECT_THROW(writeDoubleArray(array, port.handle, port.plug), std::bad_alloc) << nth;
        EXPECT_EQ(count.outstanding(), 0) << nth;
        EXPECT_EQ(port.indices(), (std::vector<unsigned>{0, 1, 2})) << nth;
        EXPECT_FALSE(port.isClean()) << nth;
    }
}

}  // namespace
