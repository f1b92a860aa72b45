// The array readers: what a shared array holds after it was read from the host's array.
#include "tests/support/AllocationCount.h"
#include "tests/support/CallRecorder.h"
#include "tests/support/HeldTranslators.h"
#include "tests/support/HostPort.h"
#include "tests/support/RecordLeaves.h"
#include "tests/support/SharedArrays.h"

#include <OpenVornik/Testing/CallObserver.h>

#include <string>
#include <type_traits>
#include <vector>

#include <gtest/gtest.h>

namespace {

using namespace TestSupport;

template <typename T>
using SharedArray = Pelmor::SharedArray<T>;

template <typename Element>
SharedArray<Element> read(HostPort& port) {
    SharedArray<Element> array;
    Translators<Element>::readArray(port.handle, port.plug, array);
    return array;
}

template <typename Element>
class ReadArray : public testing::Test {};
TYPED_TEST_SUITE(ReadArray, ElementTypes, NameOfType);

TYPED_TEST(ReadArray, TakesEachElementInTheHostsOrder) {
    auto port = HostPort::ofNumberedArray<TypeParam>({0, 1, 2});
    EXPECT_EQ(leavesOf(read<TypeParam>(port)), leavesOf(numberedElements<TypeParam>(3)));
}

TYPED_TEST(ReadArray, MakesADenseArrayOfSparseElements) {
    auto port = HostPort::ofNumberedArray<TypeParam>({0, 3, 7});
    EXPECT_EQ(leavesOf(read<TypeParam>(port)), leavesOf(numberedElements<TypeParam>(3)));
}

TYPED_TEST(ReadArray, DescribesItsElementsAndHasNoRoomToSpare) {
    auto port = HostPort::ofNumberedArray<TypeParam>({0, 1, 2});
    const auto array = read<TypeParam>(port);
    EXPECT_EQ(array->size(), 3u);
    EXPECT_EQ(array->capacity(), 3u);
    EXPECT_EQ(array.useCount(), 1u);
    const std::uint32_t kind = std::is_same_v<TypeParam, Pelmor::String> ? 1u
                               : kIsPlain<TypeParam>                     ? 0u
                                                                         : 8u;
    EXPECT_EQ(array->elementRep().elementSize, sizeof(TypeParam));
    EXPECT_EQ(array->elementRep().alignment(), 8u);
    EXPECT_EQ(array->elementRep().kindCode(), kind);
    EXPECT_EQ(array->elementRep().operations != nullptr, kind == 8u);
}

TYPED_TEST(ReadArray, MakesAnEmptyArrayOfAnEmptyHostArray) {
    auto port = HostPort::ofArray<TypeParam>();
    const auto array = read<TypeParam>(port);
    ASSERT_TRUE(array);
    EXPECT_EQ(array->size(), 0u);
    EXPECT_EQ(array->capacity(), 0u);
    EXPECT_EQ(array->data(), nullptr);
    EXPECT_EQ(array.useCount(), 1u);
}

TYPED_TEST(ReadArray, ReplacesTheArrayAndReleasesTheOneBefore) {
    auto port = HostPort::ofNumberedArray<TypeParam>({0, 1});
    // Also where the one before has as many elements.
    for (const unsigned length : {2u, 3u}) {
        const auto before = numberedElements<TypeParam>(length, 500);
        auto array = before;
        Translators<TypeParam>::readArray(port.handle, port.plug, array);
        EXPECT_NE(array, before);
        EXPECT_EQ(before.useCount(), 1u);
        EXPECT_EQ(leavesOf(before), leavesOf(numberedElements<TypeParam>(length, 500)));
        EXPECT_EQ(leavesOf(array), leavesOf(numberedElements<TypeParam>(2)));
    }
}

TYPED_TEST(ReadArray, StopsWhenNextFailsAndKeepsDefaults) {
    auto port = HostPort::ofNumberedArray<TypeParam>({0, 1, 2, 3, 4});
    auto expected = numberedElements<TypeParam>(5);
    (*expected)[3] = TypeParam{};
    (*expected)[4] = TypeParam{};
    CallRecorder calls;
    // The arrays inside the elements, which end in one failing `next` each, are walked in between.
    unsigned nextOfElements = 0;
    for (unsigned k = 0; k < 3; ++k) {
        for (const SharedArrayState& inside : sharedArraysOf((*expected)[k]))
            nextOfElements += static_cast<unsigned>(inside.size);
        ++nextOfElements;
    }
    calls.fail("VArrayDataHandle::next", nextOfElements);
    auto array = read<TypeParam>(port);
    ASSERT_EQ(array->size(), 5u);
    EXPECT_EQ(array->capacity(), 5u);
    EXPECT_EQ(leavesOf(array), leavesOf(expected));
    unsigned inputValues = 0;
    for (const std::string& line : calls.lines())
        if (line == "VArrayDataHandle::inputValue value") ++inputValues;
    EXPECT_EQ(inputValues, 3u);
}

TYPED_TEST(ReadArray, StopsAtAnyStatusButSuccess) {
    for (const auto code : {VStatus::kFailure, VStatus::kInvalidParameter, VStatus::kNotFound}) {
        auto port = HostPort::ofArray<TypeParam>({0, 1, 2});
        CallRecorder calls;
        calls.fail("VArrayDataHandle::next", 1, code);
        EXPECT_EQ(read<TypeParam>(port)->size(), 3u);
        EXPECT_EQ(calls.count("VArrayDataHandle::inputValue"), 1u);
    }
}

struct Thrown {};

// Throws where the second element is read.
class ThrowsAtElement : public OpenVornik::Testing::CallObserver {
    VStatus::Code called(const OpenVornik::Testing::Call& call) override {
        if (call.operation == "VArrayDataHandle::inputValue" && ++m_elements == 2) throw Thrown();
        return VStatus::kSuccess;
    }
    unsigned m_elements = 0;
};

TYPED_TEST(ReadArray, LeavesTheArrayAsItWasWhereAnExceptionPasses) {
    auto port = HostPort::ofNumberedArray<TypeParam>({0, 1, 2});
    auto array = numberedElements<TypeParam>(1, 500);
    const auto before = array;
    read<TypeParam>(port);  // The host evaluates its data, and keeps memory for that, once.
    const AllocationCount count;
    {
        const ThrowsAtElement host;
        EXPECT_THROW(Translators<TypeParam>::readArray(port.handle, port.plug, array), Thrown);
    }
    EXPECT_EQ(count.outstanding(), 0);
    EXPECT_EQ(array, before);
    EXPECT_EQ(leavesOf(array), leavesOf(numberedElements<TypeParam>(1, 500)));
}

TEST(ReadArrayStorage, IsAllocatedOnceAtItsFinalSize) {
    const auto allocationsFor = [](const std::vector<unsigned>& indices) {
        auto port = HostPort::ofArray<double>(indices);
        SharedArray<double> array = read<double>(port);
        const AllocationCount count;
        readDoubleArray(port.handle, port.plug, array);
        return count.allocations();
    };
    std::vector<unsigned> many(1000);
    for (unsigned i = 0; i < many.size(); ++i) many[i] = i;
    EXPECT_EQ(allocationsFor(many), allocationsFor({0}));
    EXPECT_EQ(allocationsFor({0}), allocationsFor({}) + 1);
}

}  // namespace
