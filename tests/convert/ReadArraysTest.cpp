// The array readers: what a shared array holds after it was read from the host's array.
#include "tests/convert/SharedArrays.h"
#include "tests/convert/ThrowOnCall.h"
#include "tests/convert/Translators.h"
#include "tests/support/AllocationCount.h"
#include "tests/support/CallRecorder.h"
#include "tests/support/HostPort.h"
#include "tests/support/RecordLeaves.h"

#include <Pelmor/DefaultClass.h>

#include <algorithm>
#include <numeric>
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

TYPED_TEST(ReadArray, MakesOfSparseElementsADenseArray) {
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

TYPED_TEST(ReadArray, GivesArraysInElementsOneReferenceEach) {
    auto port = HostPort::ofNumberedArray<TypeParam>({0, 1, 2});
    auto array = read<TypeParam>(port);
    for (const SharedArrayState& state : sharedArraysOf(array)) EXPECT_EQ(state.useCount, 1u);
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

TYPED_TEST(ReadArray, TakesNoElementOfAnEmptyHostArray) {
    auto port = HostPort::ofArray<TypeParam>();
    CallRecorder calls;
    read<TypeParam>(port);
    EXPECT_EQ(calls.lines(), (CallRecorder::Lines{"VArrayDataHandle::VArrayDataHandle value",
                                                  "VArrayDataHandle::elementCount value"}));
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

TYPED_TEST(ReadArray, TwiceGivesArraysThatShareNothing) {
    auto port = HostPort::ofNumberedArray<TypeParam>({0, 1, 2});
    auto first = read<TypeParam>(port);
    Numbers others(500);
    numberElements(others, port.handle, port.plug);
    auto second = read<TypeParam>(port);
    for (const SharedArrayState& a : sharedArraysOf(first))
        for (const SharedArrayState& b : sharedArraysOf(second)) EXPECT_NE(a.address, b.address);
    EXPECT_EQ(leavesOf(first), leavesOf(numberedElements<TypeParam>(3)));
    EXPECT_EQ(leavesOf(second), leavesOf(numberedElements<TypeParam>(3, 500)));
}

template <typename Element>
class ReadLargeArray : public testing::Test {};
using ElementsWithoutArrays = testing::Types<double, Math::double4x4, Transform>;
TYPED_TEST_SUITE(ReadLargeArray, ElementsWithoutArrays, NameOfType);

TYPED_TEST(ReadLargeArray, TakesEachOfMoreElementsThanCachesHold) {
    constexpr unsigned kCount = (1u << 21) / sizeof(TypeParam);
    std::vector<unsigned> indices(kCount);
    std::iota(indices.begin(), indices.end(), 0u);
    auto port = HostPort::ofNumberedArray<TypeParam>(indices);
    EXPECT_TRUE(leavesOf(read<TypeParam>(port)) == leavesOf(numberedElements<TypeParam>(kCount)));
}

template <typename Element>
class ReadArrayWalk : public testing::Test {};
TYPED_TEST_SUITE(ReadArrayWalk, ElementTypes, NameOfType);

TYPED_TEST(ReadArrayWalk, StopsWhenNextFailsAndKeepsDefaults) {
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

TYPED_TEST(ReadArrayWalk, StopsAtAnyStatusButSuccess) {
    for (const auto code : {VStatus::kFailure, VStatus::kInvalidParameter, VStatus::kNotFound}) {
        auto port = HostPort::ofArray<TypeParam>({0, 1, 2});
        CallRecorder calls;
        calls.fail("VArrayDataHandle::next", 1, code);
        EXPECT_EQ(read<TypeParam>(port)->size(), 3u);
        EXPECT_EQ(calls.count("VArrayDataHandle::inputValue"), 1u);
    }
}

TYPED_TEST(ReadArrayWalk, GivesElementsThatItDoesNotReachFreshDefaults) {
    auto port = HostPort::ofArray<TypeParam>({0, 1, 2});
    CallRecorder calls;
    calls.fail("VArrayDataHandle::next");
    auto array = read<TypeParam>(port);
    EXPECT_EQ(leavesOf((*array)[2]), leavesOf(TypeParam{}));
    std::vector<const void*> addresses;
    for (const SharedArrayState& state : sharedArraysOf(array)) {
        ASSERT_NE(state.address, nullptr);
        EXPECT_EQ(state.useCount, 1u);
        EXPECT_EQ(std::count(addresses.begin(), addresses.end(), state.address), 0);
        addresses.push_back(state.address);
    }
}

TYPED_TEST(ReadArrayWalk, AsksForNoStatus) {
    auto port = HostPort::ofNumberedArray<TypeParam>({0, 1});
    CallRecorder calls;
    read<TypeParam>(port);
    for (const std::string& line : calls.lines())
        EXPECT_EQ(line.find("with status"), std::string::npos) << line;
}

// Of the plugs of a record's elements, those at the positions.
TYPED_TEST(ReadArrayWalk, TakesElementPlugsByPositionAndOnlyForRecords) {
    auto port = HostPort::ofArray<TypeParam>({0, 3, 7});
    CallRecorder calls;
    read<TypeParam>(port);
    CallRecorder::Lines plugs;
    for (const std::string& line : calls.lines())
        if (line.find("VPlug::elementByLogicalIndex") == 0) plugs.push_back(line);
    EXPECT_EQ(plugs, kIsPlain<TypeParam>
                         ? CallRecorder::Lines{}
                         : (CallRecorder::Lines{"VPlug::elementByLogicalIndex node.value 0",
                                                "VPlug::elementByLogicalIndex node.value 1",
                                                "VPlug::elementByLogicalIndex node.value 2"}));
    EXPECT_EQ(calls.count("VArrayDataHandle::elementIndex"), 0u);
}

TEST(ReadPinsArray, ReadsSparseElementsInTheirOrder) {
    auto port = HostPort::ofArray<Pins>({0, 3, 7});
    VPlug names = port.plug.elementByLogicalIndex(0).child(0);
    for (const unsigned index : {0u, 3u, 7u}) {
        const VDataHandle element = elementOf(port.handle, index).child(names);
        setIndices(element, {0});
        elementOf(element, 0).setString(("pin " + std::to_string(index)).c_str());
    }
    const auto array = read<Pins>(port);
    ASSERT_EQ(array->size(), 3u);
    EXPECT_EQ((*(*array)[0].names)[0], "pin 0");
    EXPECT_EQ((*(*array)[1].names)[0], "pin 3");
    EXPECT_EQ((*(*array)[2].names)[0], "pin 7");
}

TEST(ReadStringArray, LeavesUnreachedElementsEmpty) {
    auto port = HostPort::ofNumberedArray<Pelmor::String>({0, 1, 2});
    CallRecorder calls;
    calls.fail("VArrayDataHandle::next");
    const auto array = read<Pelmor::String>(port);
    EXPECT_EQ((*array)[0], "text 1");
    EXPECT_TRUE((*array)[1].empty());
    EXPECT_TRUE((*array)[2].empty());
}

TEST(ReadDoubleArray, LeavesUnreachedElementsZero) {
    auto port = HostPort::ofNumberedArray<double>({0, 1});
    CallRecorder calls;
    calls.fail("VArrayDataHandle::next");
    const auto array = read<double>(port);
    EXPECT_EQ((*array)[0], 1.25);
    EXPECT_EQ((*array)[1], 0.0);
}

TEST(ReadMatrixArray, LeavesUnreachedElementsZero) {
    auto port = HostPort::ofNumberedArray<Math::double4x4>({0, 1});
    CallRecorder calls;
    calls.fail("VArrayDataHandle::next");
    const auto array = read<Math::double4x4>(port);
    for (const auto& row : (*array)[1].rows)
        for (const double element : row) EXPECT_EQ(element, 0.0);
}

template <typename Record>
class ReadArrayOfRecordsWithObjects : public testing::Test {};
TYPED_TEST_SUITE(ReadArrayOfRecordsWithObjects, TypesWithObjects, NameOfType);

TYPED_TEST(ReadArrayOfRecordsWithObjects, LeavesTheDefaultObjectInEachElement) {
    const auto& defaultObject = Pelmor::Internal::getDefaultClass<Tavrik::Object>();
    auto port = HostPort::ofNumberedArray<TypeParam>({0, 1, 2});
    const std::uint64_t usesBefore = defaultObject.useCount();
    const auto array = read<TypeParam>(port);
    for (const TypeParam& record : *array) {
        EXPECT_EQ(record.object0, defaultObject);
        EXPECT_EQ(record.object1, defaultObject);
    }
    EXPECT_EQ(defaultObject.useCount(), usesBefore + 6);
}

TYPED_TEST(ReadArrayOfRecordsWithObjects, NeverTouchesTheirChildren) {
    auto port = HostPort::ofNumberedArray<TypeParam>({0, 1});
    CallRecorder calls;
    read<TypeParam>(port);
    for (const std::string& line : calls.lines())
        EXPECT_EQ(line.find("object"), std::string::npos) << line;
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

TYPED_TEST(ReadArrayWalk, LeavesTheArrayAsItWasWhenAnExceptionPasses) {
    auto port = HostPort::ofNumberedArray<TypeParam>({0, 1, 2});
    auto array = numberedElements<TypeParam>(1, 500);
    const auto before = array;
    read<TypeParam>(port);  // The host evaluates its data, and keeps memory for that, once.
    const AllocationCount count;
    {
        ThrowOnCall thrower("VArrayDataHandle::inputValue", 2);
        EXPECT_THROW(Translators<TypeParam>::readArray(port.handle, port.plug, array), Thrown);
    }
    EXPECT_EQ(count.outstanding(), 0);
    EXPECT_EQ(array, before);
    EXPECT_EQ(leavesOf(array), leavesOf(numberedElements<TypeParam>(1, 500)));
}

}  // namespace
