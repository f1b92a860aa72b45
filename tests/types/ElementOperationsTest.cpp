#include "tests/types/SharedMembers.h"
#include "tests/types/TransformNumbers.h"

#include <cstring>
#include <new>
#include <set>
#include <vector>

#include <gtest/gtest.h>

namespace {

using namespace TypesTests;
using Core::Transform::Transform;
using Pelmor::Internal::ElementOperation;

constexpr std::uint64_t kCount = 3;

// Asks the entry of `Element`, by the code that the graph library passes.
template <typename Element>
void operate(std::uint32_t code, Element* destination, Element* source, std::uint64_t count) {
    Pelmor::Array<Element>().elementRep().operations(static_cast<ElementOperation>(code),
                                                     destination, source, count);
}

// Storage for a few elements, full of ones, in which nothing is destroyed by itself.
template <typename Element>
class RawElements {
public:
    RawElements() { std::memset(m_bytes, 0xff, sizeof m_bytes); }

    Element* get() { return std::launder(reinterpret_cast<Element*>(m_bytes)); }
    Element& operator[](std::uint64_t index) { return get()[index]; }
    std::vector<char> bytes() const {
        const auto* first = reinterpret_cast<const char*>(m_bytes);
        return std::vector<char>(first, first + sizeof m_bytes);
    }

private:
    alignas(Element) std::byte m_bytes[kCount * sizeof(Element)];
};

template <typename Record>
class RecordElements : public testing::Test {
protected:
    using Watched = WatchedPointees[kCount];

    // Default elements that share nothing but with `watched`.
    static void construct(RawElements<Record>& elements, Watched& watched) {
        operate<Record>(0, elements.get(), nullptr, kCount);
        for (std::uint64_t i = 0; i < kCount; ++i) watched[i].putInto(elements[i]);
    }
    static void destroy(RawElements<Record>& elements) {
        operate<Record>(6, elements.get(), nullptr, kCount);
    }
    static UseCounts every(std::uint64_t count) { return everyCount<Record>(count); }
};
TYPED_TEST_SUITE(RecordElements, SharingRecords, );

TYPED_TEST(RecordElements, Code0MakesNewRecords) {
    RawElements<TypeParam> elements;
    operate<TypeParam>(0, elements.get(), nullptr, kCount);
    std::set<const void*> arrays;
    for (std::uint64_t i = 0; i < kCount; ++i) expectNewArrays(elements[i], arrays);
    EXPECT_EQ(arrays.size(), kCount * kArrays<TypeParam>);
    this->destroy(elements);
}

TYPED_TEST(RecordElements, Code1MakesCopiesOfOneRecord) {
    WatchedPointees watched;
    TypeParam source;
    watched.putInto(source);
    RawElements<TypeParam> copies;
    operate(1, copies.get(), &source, kCount);
    for (std::uint64_t i = 0; i < kCount; ++i) EXPECT_EQ(pointees(copies[i]), pointees(source));
    EXPECT_EQ(watched.counts(), this->every(1 + kCount));
    this->destroy(copies);
    EXPECT_EQ(watched.counts(), this->every(1));
}

TYPED_TEST(RecordElements, Code2MakesCopiesPositionByPosition) {
    typename TestFixture::Watched watched;
    RawElements<TypeParam> sources, copies;
    this->construct(sources, watched);
    operate(2, copies.get(), sources.get(), kCount);
    for (std::uint64_t i = 0; i < kCount; ++i) {
        EXPECT_EQ(pointees(copies[i]), pointees(sources[i]));
        EXPECT_EQ(watched[i].counts(), this->every(2));
    }
    this->destroy(copies);
    this->destroy(sources);
}

TYPED_TEST(RecordElements, Code3MovesIntoNewRecordsPositionByPosition) {
    typename TestFixture::Watched watched;
    RawElements<TypeParam> sources, moved;
    this->construct(sources, watched);
    Pointees before[kCount];
    for (std::uint64_t i = 0; i < kCount; ++i) before[i] = pointees(sources[i]);
    operate(3, moved.get(), sources.get(), kCount);
    for (std::uint64_t i = 0; i < kCount; ++i) {
        EXPECT_EQ(pointees(moved[i]), before[i]);
        EXPECT_EQ(pointees(sources[i]), allNull<TypeParam>());
        EXPECT_EQ(watched[i].counts(), this->every(1));
    }
    this->destroy(moved);
    this->destroy(sources);
}

TYPED_TEST(RecordElements, Code4AssignsCopiesPositionByPosition) {
    typename TestFixture::Watched former, next;
    RawElements<TypeParam> sources, destinations;
    this->construct(destinations, former);
    this->construct(sources, next);
    operate(4, destinations.get(), sources.get(), kCount);
    for (std::uint64_t i = 0; i < kCount; ++i) {
        EXPECT_EQ(pointees(destinations[i]), pointees(sources[i]));
        EXPECT_EQ(next[i].counts(), this->every(2));
        EXPECT_EQ(former[i].counts(), this->every(0));
    }
    this->destroy(destinations);
    this->destroy(sources);
}

TYPED_TEST(RecordElements, Code5MovesIntoRecordsThatAreThere) {
    typename TestFixture::Watched former, next;
    RawElements<TypeParam> sources, destinations;
    this->construct(destinations, former);
    this->construct(sources, next);
    Pointees before[kCount];
    for (std::uint64_t i = 0; i < kCount; ++i) before[i] = pointees(sources[i]);
    operate(5, destinations.get(), sources.get(), kCount);
    for (std::uint64_t i = 0; i < kCount; ++i) {
        EXPECT_EQ(pointees(destinations[i]), before[i]);
        EXPECT_EQ(pointees(sources[i]), allNull<TypeParam>());
        EXPECT_EQ(next[i].counts(), this->every(1));
        EXPECT_EQ(former[i].counts(), this->every(0));
    }
    this->destroy(destinations);
    this->destroy(sources);
}

TYPED_TEST(RecordElements, Code6DestroysEachRecord) {
    typename TestFixture::Watched watched;
    RawElements<TypeParam> elements;
    this->construct(elements, watched);
    operate<TypeParam>(6, elements.get(), nullptr, kCount);
    for (const WatchedPointees& pointeesOfOne : watched)
        EXPECT_EQ(pointeesOfOne.counts(), this->every(0));
}

TYPED_TEST(RecordElements, AnyOtherCodeDoesNothing) {
    typename TestFixture::Watched watched;
    RawElements<TypeParam> sources;
    this->construct(sources, watched);
    RawElements<TypeParam> raw;
    const std::vector<char> rawBefore = raw.bytes(), sourcesBefore = sources.bytes();
    for (const std::uint32_t code : {7u, 8u, 255u, 0x80000000u, 0xffffffffu})
        operate(code, raw.get(), sources.get(), kCount);
    EXPECT_EQ(raw.bytes(), rawBefore);
    EXPECT_EQ(sources.bytes(), sourcesBefore);
    for (const WatchedPointees& pointeesOfOne : watched)
        EXPECT_EQ(pointeesOfOne.counts(), this->every(1));
    this->destroy(sources);
}

TYPED_TEST(RecordElements, AreUsedByAnArrayOfThem) {
    WatchedPointees watched;
    TypeParam record;
    watched.putInto(record);
    {
        Pelmor::Array<TypeParam> array(2);
        array[0] = record;
        array.append(record);
        EXPECT_EQ(pointees(array[0]), pointees(record));
        EXPECT_EQ(pointees(array[2]), pointees(record));
        EXPECT_EQ(watched.counts(), this->every(3));
        const Pelmor::Array<TypeParam> copy(array);
        EXPECT_EQ(watched.counts(), this->every(5));
    }
    EXPECT_EQ(watched.counts(), this->every(1));
}

class TransformElements : public testing::Test {
protected:
    TransformElements() {
        for (int i = 0; i < static_cast<int>(kCount); ++i) sources[i] = numbered(i + 1);
    }

    Transform sources[kCount];
    RawElements<Transform> elements;
};

TEST_F(TransformElements, Code0FillsWithZeros) {
    operate<Transform>(0, elements.get(), nullptr, kCount);
    for (std::uint64_t i = 0; i < kCount; ++i) EXPECT_TRUE(isAllZeros(elements[i]));
}

TEST_F(TransformElements, Code1CopiesTheOneSource) {
    operate(1, elements.get(), &sources[1], kCount);
    for (std::uint64_t i = 0; i < kCount; ++i) EXPECT_TRUE(sameNumbers(elements[i], numbered(2)));
}

TEST_F(TransformElements, Codes2To5CopyPositionByPosition) {
    for (const std::uint32_t code : {2u, 3u, 4u, 5u}) {
        SCOPED_TRACE(code);
        operate<Transform>(0, elements.get(), nullptr, kCount);
        operate(code, elements.get(), sources, kCount);
        for (std::uint64_t i = 0; i < kCount; ++i)
            EXPECT_TRUE(sameNumbers(elements[i], numbered(static_cast<int>(i) + 1))) << i;
        EXPECT_TRUE(sameNumbers(sources[0], numbered(1)));
    }
}

TEST_F(TransformElements, Code6AndAnyOtherDoNothing) {
    const std::vector<char> before = elements.bytes();
    for (const std::uint32_t code : {6u, 7u, 255u, 0xffffffffu})
        operate(code, elements.get(), sources, kCount);
    EXPECT_EQ(elements.bytes(), before);
}

TEST_F(TransformElements, LeaveWhatLiesBehindTheRangeAlone) {
    for (const std::uint32_t code : {0u, 1u, 2u, 3u, 4u, 5u}) {
        SCOPED_TRACE(code);
        elements[1] = numbered(9);
        operate(code, elements.get(), sources, 1);
        EXPECT_TRUE(sameNumbers(elements[1], numbered(9)));
    }
}

}  // namespace
