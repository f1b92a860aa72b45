// How often each of the fourteen types takes memory when it is read and when it is written.
#include "tests/convert/HostPort.h"
#include "tests/convert/SizedValues.h"
#include "tests/convert/Translators.h"
#include "tests/support/AllocationCount.h"

#include <Pelmor/AnyValue.h>

#include <ostream>
#include <utility>

#include <gtest/gtest.h>

namespace TestSupport {

std::ostream& operator<<(std::ostream& out, const Lengths& lengths) {
    return out << lengths.names << " names, " << lengths.matrices << " matrices, "
               << lengths.weights << " weights, " << lengths.transforms << " transforms"
               << (lengths.longTexts ? ", long texts" : "");
}

}  // namespace TestSupport

namespace {

using namespace TestSupport;
using Pelmor::AnyValue;
using Pelmor::SharedArray;

constexpr Lengths kLengths[] = {{0, 0, 0, 0}, {1, 1, 1, 1}, {2, 3, 4, 5},    {5, 0, 3, 0},
                                {0, 4, 0, 2}, {0, 0, 9, 0}, {17, 16, 15, 14}};

template <typename Operation>
Allocations allocationsOf(Operation operation) {
    const AllocationCount count;
    operation();
    return count.allocations();
}

template <typename Record>
class Allocation : public testing::Test {
protected:
    static constexpr const ArraysOf& kArrays = kArraysOf<Record>;
    using Of = Translators<Record>;

    // Calls `check` for all lengths, with short texts and with long ones.
    template <typename Check>
    static void forAllLengths(Check check) {
        for (Lengths lengths : kLengths)
            for (const bool longTexts : {false, true}) {
                lengths.longTexts = longTexts;
                SCOPED_TRACE(testing::PrintToString(lengths));
                check(lengths);
            }
    }

    static void write(const Record& record, HostPort& port) {
        Of::write(record, port.handle, port.plug);
    }
    static void write(const SharedArray<Record>& array, HostPort& port) {
        Of::writeArray(array, port.handle, port.plug);
    }
};
TYPED_TEST_SUITE(Allocation, RecordTypes, NameOfType);

TYPED_TEST(Allocation, OfARecordThatIsRead) {
    this->forAllLengths([](const Lengths& lengths) {
        auto port = HostPort::ofRecord<TypeParam>();
        TestFixture::write(sized<TypeParam>(lengths), port);
        AnyValue value;
        const auto read = [&] { TestFixture::Of::readValue(value, port.handle, port.plug); };
        EXPECT_EQ(allocationsOf(read), readRecord(TestFixture::kArrays, lengths));
        // Nothing of the first read is used again.
        EXPECT_EQ(allocationsOf(read), readRecord(TestFixture::kArrays, lengths));
    });
}

TYPED_TEST(Allocation, OfRecordsThatAreRead) {
    this->forAllLengths([](const Lengths& lengths) {
        for (const unsigned count : {0u, 1u, 3u}) {
            auto port = HostPort::ofArray<TypeParam>();
            TestFixture::write(sizedElements<TypeParam>(count, lengths), port);
            AnyValue value;
            EXPECT_EQ(allocationsOf(
                          [&] { TestFixture::Of::readArrayValue(value, port.handle, port.plug); }),
                      readRecords(TestFixture::kArrays, lengths, count));
        }
    });
}

TYPED_TEST(Allocation, OfARecordThatIsWritten) {
    this->forAllLengths([](const Lengths& lengths) {
        auto port = HostPort::ofRecord<TypeParam>();
        const AnyValue value = AnyValue::holding(sized<TypeParam>(lengths));
        const auto write = [&] { TestFixture::Of::writeValue(value, port.handle, port.plug); };
        EXPECT_EQ(allocationsOf(write), writeToEmpty(TestFixture::kArrays, lengths));
        EXPECT_EQ(allocationsOf(write), writeInPlace(TestFixture::kArrays, lengths));
    });
}

TYPED_TEST(Allocation, OfRecordsThatAreWritten) {
    this->forAllLengths([](const Lengths& lengths) {
        for (const unsigned count : {0u, 1u, 3u}) {
            auto port = HostPort::ofArray<TypeParam>();
            const AnyValue value = AnyValue::holding(sizedElements<TypeParam>(count, lengths));
            const auto write = [&] {
                TestFixture::Of::writeArrayValue(value, port.handle, port.plug);
            };
            EXPECT_EQ(allocationsOf(write),
                      changeLength(0, count) + count * writeToEmpty(TestFixture::kArrays, lengths));
            EXPECT_EQ(allocationsOf(write), count * writeInPlace(TestFixture::kArrays, lengths));
        }
    });
}

TYPED_TEST(Allocation, IsNoneWhereShortTextsAreWrittenInPlace) {
    auto port = HostPort::ofArray<TypeParam>();
    const auto array = sizedElements<TypeParam>(4, {3, 4, 5, 6});
    TestFixture::write(array, port);
    EXPECT_EQ(allocationsOf([&] { TestFixture::write(array, port); }), 0u);
}

// Reading into a record that is there makes its arrays, and gives back those that it had.
TYPED_TEST(Allocation, OfTheMembersOfARecord) {
    this->forAllLengths([](const Lengths& lengths) {
        auto port = HostPort::ofRecord<TypeParam>();
        auto record = sized<TypeParam>(lengths);
        TestFixture::write(record, port);
        const AllocationCount count;
        TestFixture::Of::read(port.handle, port.plug, record);
        EXPECT_EQ(count.allocations(), readMembers(TestFixture::kArrays, lengths));
        EXPECT_EQ(count.outstanding(), 0);
    });
}

using PlainElements =
    testing::Types<Pelmor::String, Math::double4x4, double, Core::Transform::Transform>;

template <typename Element>
class AllocationOfArray : public testing::Test {
protected:
    using Array = SharedArray<Element>;

    Allocations write(const Array& array) {
        return allocationsOf(
            [&] { Translators<Element>::writeArray(array, m_port.handle, m_port.plug); });
    }

    Allocations read() {
        Array array;
        return allocationsOf(
            [&] { Translators<Element>::readArray(m_port.handle, m_port.plug, array); });
    }

    HostPort m_port = HostPort::ofArray<Element>();
};
TYPED_TEST_SUITE(AllocationOfArray, PlainElements, NameOfType);

TYPED_TEST(AllocationOfArray, FollowsItsLength) {
    Allocations former = 0;
    for (const Allocations length : {1u, 3u, 3u, 8u, 2u, 0u, 0u, 16u, 17u, 1u}) {
        SCOPED_TRACE(testing::Message() << former << " to " << length);
        EXPECT_EQ(this->write(sizedElements<TypeParam>(length)), changeLength(former, length));
        EXPECT_EQ(this->read(), newArray(length));
        former = length;
    }
}

TYPED_TEST(AllocationOfArray, IsNoneWhereANullArrayIsWritten) {
    this->write(sizedElements<TypeParam>(3));
    EXPECT_EQ(this->write(nullptr), 0u);
}

// One for the text that goes to the host, and one for the text that the host keeps: a builder's
// copy of an old element has it already.
TEST(AllocationOfLongTexts, FollowsTheLengthOfTheArray) {
    auto port = HostPort::ofArray<Pelmor::String>();
    Lengths lengths;
    lengths.longTexts = true;
    Allocations former = 0;
    for (const Allocations length : {2u, 5u, 3u, 0u}) {
        SCOPED_TRACE(testing::Message() << former << " to " << length);
        const auto names = sizedElements<Pelmor::String>(length, lengths);
        const auto write = [&] { writeStringArray(names, port.handle, port.plug); };
        EXPECT_EQ(allocationsOf(write), changeLength(former, length) + 2 * length);
        EXPECT_EQ(allocationsOf(write), length);
        SharedArray<Pelmor::String> read;
        EXPECT_EQ(allocationsOf([&] { readStringArray(port.handle, port.plug, read); }),
                  newArray(length) + length);
        former = length;
    }
}

}  // namespace
