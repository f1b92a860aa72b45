#include "tests/types/SharedMembers.h"

#include <Pelmor/DefaultClass.h>

#include <numeric>
#include <optional>
#include <set>
#include <thread>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

namespace {

using namespace TypesTests;
using Pelmor::Ptr;
using Rigging::Module::Inputs;
using Rigging::Module::Outputs;
using Tavrik::Object;

const Ptr<Object>& defaultObject() { return Pelmor::Internal::getDefaultClass<Object>(); }

template <typename Record>
class SharingRecord : public testing::Test {};
TYPED_TEST_SUITE(SharingRecord, SharingRecords, );

// The places of all shared members, from the last to the first.
template <typename Record>
Releases lastToFirst() {
    Releases places(kSharedMembers<Record>);
    std::iota(places.rbegin(), places.rend(), 0);
    return places;
}

TYPED_TEST(SharingRecord, HasEmptyArraysOfItsOwnWhenNew) {
    const TypeParam record, other;
    std::set<const void*> arrays;
    expectNewArrays(record, arrays);
    expectNewArrays(other, arrays);
    EXPECT_EQ(arrays.size(), 2 * kArrays<TypeParam>);
}

TYPED_TEST(SharingRecord, SharesEverythingWithItsCopyAndNothingMoreOnceTheCopyIsGone) {
    WatchedPointees watched;
    TypeParam record;
    watched.putInto(record);
    EXPECT_EQ(watched.counts(), everyCount<TypeParam>(1));
    {
        const TypeParam copy(record);
        EXPECT_EQ(pointees(copy), pointees(record));
        EXPECT_EQ(watched.counts(), everyCount<TypeParam>(2));
    }
    EXPECT_EQ(watched.counts(), everyCount<TypeParam>(1));
    EXPECT_EQ(watched.releases(), Releases());
}

TYPED_TEST(SharingRecord, IsLeftNullByAMoveAndThenReleasesNothing) {
    WatchedPointees watched;
    std::optional<TypeParam> source(std::in_place);
    watched.putInto(*source);
    const Pointees before = pointees(*source);
    const TypeParam destination(std::move(*source));
    EXPECT_EQ(pointees(destination), before);
    EXPECT_EQ(pointees(*source), allNull<TypeParam>());
    EXPECT_EQ(useCounts(*source), everyCount<TypeParam>(0));
    EXPECT_EQ(watched.counts(), everyCount<TypeParam>(1));
    source.reset();
    EXPECT_EQ(watched.counts(), everyCount<TypeParam>(1));
    EXPECT_EQ(watched.releases(), Releases());
}

TYPED_TEST(SharingRecord, CopyAssignmentSharesTheSourcesBeforeItReleasesItsOwn) {
    WatchedPointees former, next;
    TypeParam destination, source;
    former.putInto(destination);
    next.putInto(source);
    UseCounts sourceCountsAtRelease;
    former.onRelease(
        [&](std::size_t place) { sourceCountsAtRelease.push_back(next.counts()[place]); });
    destination = source;
    EXPECT_EQ(pointees(destination), pointees(source));
    EXPECT_EQ(next.counts(), everyCount<TypeParam>(2));
    EXPECT_EQ(former.releases().size(), kSharedMembers<TypeParam>);
    EXPECT_EQ(former.counts(), everyCount<TypeParam>(0));
    EXPECT_EQ(sourceCountsAtRelease, everyCount<TypeParam>(2));
}

TYPED_TEST(SharingRecord, CopyAssignmentToItselfChangesNoCount) {
    WatchedPointees watched;
    TypeParam record;
    watched.putInto(record);
    const Pointees before = pointees(record);
    const TypeParam& same = record;
    record = same;
    EXPECT_EQ(pointees(record), before);
    EXPECT_EQ(watched.counts(), everyCount<TypeParam>(1));
    EXPECT_EQ(watched.releases(), Releases());
}

TYPED_TEST(SharingRecord, CopyAssignmentOfWhatItSharesAlreadyChangesNoCount) {
    WatchedPointees watched;
    TypeParam record;
    watched.putInto(record);
    TypeParam copy(record);
    copy = record;
    EXPECT_EQ(watched.counts(), everyCount<TypeParam>(2));
    EXPECT_EQ(watched.releases(), Releases());
}

TYPED_TEST(SharingRecord, MoveAssignmentTakesTheSourcesAndReleasesItsOwn) {
    WatchedPointees former, next;
    TypeParam destination, source;
    former.putInto(destination);
    next.putInto(source);
    const Pointees before = pointees(source);
    Pointees destinationAtRelease, sourceAtRelease;
    former.onRelease([&](std::size_t place) {
        destinationAtRelease.push_back(pointees(destination)[place]);
        sourceAtRelease.push_back(pointees(source)[place]);
    });
    destination = std::move(source);
    EXPECT_EQ(pointees(destination), before);
    EXPECT_EQ(pointees(source), allNull<TypeParam>());
    EXPECT_EQ(next.counts(), everyCount<TypeParam>(1));
    EXPECT_EQ(former.counts(), everyCount<TypeParam>(0));
    EXPECT_EQ(destinationAtRelease, before);
    EXPECT_EQ(sourceAtRelease, allNull<TypeParam>());
}

TYPED_TEST(SharingRecord, MoveAssignmentToItselfChangesNothing) {
    WatchedPointees watched;
    TypeParam record;
    watched.putInto(record);
    const Pointees before = pointees(record);
    TypeParam& same = record;
    record = std::move(same);
    EXPECT_EQ(pointees(record), before);
    EXPECT_EQ(watched.counts(), everyCount<TypeParam>(1));
    EXPECT_EQ(watched.releases(), Releases());
}

TYPED_TEST(SharingRecord, ReleasesItsMembersFromTheLastToTheFirst) {
    WatchedPointees watched;
    {
        TypeParam record;
        watched.putInto(record);
    }
    EXPECT_EQ(watched.releases(), lastToFirst<TypeParam>());
}

TYPED_TEST(SharingRecord, IsCopiedAndDestroyedOnManyThreadsAtOnce) {
    WatchedPointees watched;
    {
        TypeParam record;
        watched.putInto(record);
        std::vector<std::thread> threads;
        for (int i = 0; i < 4; ++i)
            threads.emplace_back([own = record] {
                for (int round = 0; round < 500; ++round) {
                    TypeParam copy(own);
                    TypeParam assigned;
                    assigned = std::move(copy);
                }
            });
        for (std::thread& thread : threads) thread.join();
        threads.clear();
        EXPECT_EQ(watched.counts(), everyCount<TypeParam>(1));
        EXPECT_EQ(watched.releases(), Releases());
    }
    EXPECT_EQ(watched.releases(), lastToFirst<TypeParam>());
}

template <typename Record>
class RecordWithObjects : public testing::Test {};
using RecordsWithObjects = testing::Types<Inputs, Outputs>;
TYPED_TEST_SUITE(RecordWithObjects, RecordsWithObjects, );

TYPED_TEST(RecordWithObjects, SharesTheDefaultObjectTwiceWhenNew) {
    const std::uint64_t before = defaultObject().useCount();
    {
        const TypeParam record;
        EXPECT_EQ(record.object0.get(), defaultObject().get());
        EXPECT_EQ(record.object1.get(), defaultObject().get());
        EXPECT_EQ(defaultObject().useCount(), before + 2);
    }
    EXPECT_EQ(defaultObject().useCount(), before);
}

TYPED_TEST(RecordWithObjects, DestroysAnObjectThatNothingElseShares) {
    struct Counted : Object {
        explicit Counted(int& destructions) : count(destructions) {}
        ~Counted() override { ++count; }
        int& count;
    };
    int destructions = 0;
    {
        TypeParam record;
        record.object0 = Pelmor::makePtr<Counted>(destructions);
        const TypeParam copy(record);
        record.object0 = nullptr;
        EXPECT_EQ(destructions, 0);
    }
    EXPECT_EQ(destructions, 1);
}

constexpr const char* kLongName = "a name that is too long to be kept in place";

TEST(OutputsName, IsEmptyWhenNew) { EXPECT_TRUE(Outputs().name == ""); }

TEST(OutputsName, IsCopied) {
    for (const char* name : {"walk", kLongName}) {
        Outputs record;
        record.name = name;
        const Outputs copy(record);
        Outputs assigned;
        assigned = record;
        record.name = "other";
        EXPECT_TRUE(copy.name == name);
        EXPECT_TRUE(assigned.name == name);
    }
}

TEST(OutputsName, IsMoved) {
    Outputs record;
    record.name = kLongName;
    const char* characters = record.name.asChar();
    Outputs moved(std::move(record));
    EXPECT_EQ(moved.name.asChar(), characters);
    Outputs assigned;
    assigned = std::move(moved);
    EXPECT_EQ(assigned.name.asChar(), characters);
    EXPECT_TRUE(assigned.name == kLongName);
}

}  // namespace
