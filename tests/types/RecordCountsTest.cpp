// The use counts of all that a record shares in the course of an operation, member by member, and
// when a record takes memory.
#include "tests/support/AllocationCount.h"
#include "tests/support/AllocationFailure.h"
#include "tests/types/SharedMembers.h"

#include <Pelmor/DefaultClass.h>

#include <cstdint>
#include <new>
#include <optional>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

namespace {

using namespace TypesTests;
using TestSupport::AllocationCount;
using TestSupport::AllocationFailure;

using Course = std::vector<UseCounts>;

// The first `places` places have one count, the others another.
template <typename Record>
UseCounts firstPlaces(std::size_t places, std::uint64_t first, std::uint64_t others) {
    UseCounts counts(kSharedMembers<Record>, others);
    for (std::size_t i = 0; i < places; ++i) counts[i] = first;
    return counts;
}

template <typename Record>
class CountsInTheCourse : public testing::Test {
protected:
    CountsInTheCourse() {
        former.putInto(*destination);
        next.putInto(*source);
        former.onRelease([this](std::size_t) {
            ofFormer.push_back(former.counts());
            ofNext.push_back(next.counts());
        });
    }

    // At the release of each member, from the first to the last.
    static Course course(std::uint64_t doneAlready, std::uint64_t notYet) {
        Course course;
        for (std::size_t place = 0; place < kSharedMembers<Record>; ++place)
            course.push_back(firstPlaces<Record>(place + 1, doneAlready, notYet));
        return course;
    }

    WatchedPointees former, next;
    std::optional<Record> destination{std::in_place}, source{std::in_place};
    Course ofFormer, ofNext;
};
TYPED_TEST_SUITE(CountsInTheCourse, SharingRecords, );

TYPED_TEST(CountsInTheCourse, OfACopyAssignmentChangeMemberByMember) {
    *this->destination = *this->source;
    EXPECT_EQ(this->ofFormer, this->course(0, 1));
    EXPECT_EQ(this->ofNext, this->course(2, 1));
}

TYPED_TEST(CountsInTheCourse, OfAMoveAssignmentFallMemberByMemberAndStayForTheSource) {
    *this->destination = std::move(*this->source);
    EXPECT_EQ(this->ofFormer, this->course(0, 1));
    EXPECT_EQ(this->ofNext, this->course(1, 1));
}

TYPED_TEST(CountsInTheCourse, OfTheEndFallFromTheLastMemberToTheFirst) {
    this->destination.reset();
    Course expected;
    for (std::size_t left = kSharedMembers<TypeParam>; left-- > 0;)
        expected.push_back(firstPlaces<TypeParam>(left, 1, 0));
    EXPECT_EQ(this->ofFormer, expected);
}

TYPED_TEST(CountsInTheCourse, OfACopyThatIsNotTheLastReleaseNothing) {
    std::optional<TypeParam> copy(*this->destination);
    this->destination.reset();
    EXPECT_EQ(this->former.counts(), everyCount<TypeParam>(1));
    EXPECT_EQ(this->ofFormer, Course());
    copy.reset();
    EXPECT_EQ(this->ofFormer.size(), kSharedMembers<TypeParam>);
}

using AllRecords = testing::Types<Rigging::Module::Transform, Rigging::Module::NamedTransforms,
                                  Rigging::Module::Pins, Rigging::Module::InputsJoints,
                                  Rigging::Module::InputsControls, Rigging::Module::Inputs,
                                  Rigging::Module::Outputs>;

template <typename Record>
class RecordMemory : public testing::Test {
protected:
    // Whoever first asks for the default object makes it, for good: that is no record's memory.
    RecordMemory() { usesOfTheDefaultObject(); }

    static std::uint64_t usesOfTheDefaultObject() {
        return Pelmor::Internal::getDefaultClass<Tavrik::Object>().useCount();
    }
};
TYPED_TEST_SUITE(RecordMemory, AllRecords, );

TYPED_TEST(RecordMemory, IsTakenForEachArrayOfANewRecordAndGivenBack) {
    const AllocationCount count;
    {
        [[maybe_unused]] const TypeParam record{};
        EXPECT_EQ(count.allocations(), kArrays<TypeParam>);
    }
    EXPECT_EQ(count.allocations(), kArrays<TypeParam>);
    EXPECT_EQ(count.outstanding(), 0);
}

TYPED_TEST(RecordMemory, IsNotTakenByCopiesMovesAndAssignments) {
    TypeParam record{}, other{};
    if constexpr (std::is_same_v<TypeParam, Rigging::Module::Outputs>)
        record.name = "a name that is too long to be kept in place";
    const AllocationCount count;
    TypeParam copy(record);
    TypeParam moved(std::move(copy));
    other = moved;
    copy = std::move(moved);
    const TypeParam& same = other;
    other = same;
    EXPECT_EQ(count.allocations(), 0u);
}

TYPED_TEST(RecordMemory, IsGivenBackWhereANewRecordGetsTooLittle) {
    const std::uint64_t uses = this->usesOfTheDefaultObject();
    const AllocationCount count;
    for (std::uint64_t nth = 1; nth <= kArrays<TypeParam>; ++nth) {
        const AllocationFailure failure(nth);
        EXPECT_THROW(static_cast<void>(TypeParam{}), std::bad_alloc) << nth;
        EXPECT_EQ(count.outstanding(), 0) << nth;
        EXPECT_EQ(this->usesOfTheDefaultObject(), uses) << nth;
    }
}

TYPED_TEST(RecordMemory, IsGivenBackWhereANewArrayGetsTooLittle) {
    constexpr std::uint64_t kElements = 3;
    const std::uint64_t uses = this->usesOfTheDefaultObject();
    const AllocationCount count;
    // The storage, then the arrays of each element.
    for (std::uint64_t nth = 1; nth <= 1 + kElements * kArrays<TypeParam>; ++nth) {
        const AllocationFailure failure(nth);
        EXPECT_THROW(Pelmor::Array<TypeParam>{kElements}, std::bad_alloc) << nth;
        EXPECT_EQ(count.outstanding(), 0) << nth;
        EXPECT_EQ(this->usesOfTheDefaultObject(), uses) << nth;
    }
}

}  // namespace
