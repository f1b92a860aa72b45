// What is left in the host where a write fails, and which failures of the host a writer looks at.
#include "tests/convert/ErrorMessage.h"
#include "tests/convert/SharedArrays.h"
#include "tests/convert/Translators.h"
#include "tests/support/AllocationCount.h"
#include "tests/support/CallRecorder.h"
#include "tests/support/HostPort.h"
#include "tests/support/RecordLeaves.h"

#include <algorithm>
#include <iterator>
#include <stdexcept>
#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace {

using namespace TestSupport;

constexpr const char* kNoHandle = "Cannot get handle on array element !";
constexpr const char* kNoRemoval = "Cannot remove element from array";
constexpr VStatus::Code kFailures[] = {VStatus::kFailure, VStatus::kInvalidParameter,
                                       VStatus::kNotFound};

bool has(const CallRecorder& calls, const std::string& line) {
    return std::count(calls.lines().begin(), calls.lines().end(), line) > 0;
}

template <typename Element>
class WriteArrayFailure : public testing::Test {
protected:
    const Pelmor::SharedArray<Element> m_array = numberedElements<Element>(3);

    std::string write(HostPort& port) const {
        return errorMessageOf(
            [&] { Translators<Element>::writeArray(m_array, port.handle, port.plug); });
    }

    // Which call for an element's handle is that for element k of the array itself, where the
    // arrays in the elements are written in place as well.
    unsigned callForElement(unsigned k) const {
        unsigned calls = 1;
        for (unsigned before = 0; before < k; ++before) {
            Element element = (*m_array)[before];
            for (const SharedArrayState& inside : sharedArraysOf(element))
                calls += static_cast<unsigned>(inside.size);
            ++calls;
        }
        return calls;
    }
};
TYPED_TEST_SUITE(WriteArrayFailure, ElementTypes, NameOfType);

TYPED_TEST(WriteArrayFailure, OfAnElementsHandleKeepsTheElementsBefore) {
    for (unsigned failing = 0; failing < 3; ++failing) {
        auto port = HostPort::ofNumberedArray<TypeParam>({0, 1, 2}, 500);
        auto expected = numberedElements<TypeParam>(3, 500);
        std::copy_n(this->m_array->begin(), failing, expected->begin());
        CallRecorder calls;
        calls.fail("VArrayDataHandle::outputValue", this->callForElement(failing));
        EXPECT_EQ(this->write(port), kNoHandle);
        EXPECT_FALSE(has(calls, "VArrayDataHandle::setAllClean value"));
        EXPECT_EQ(port.leaves(), leavesOf(expected));
        EXPECT_FALSE(port.isClean());
    }
}

TYPED_TEST(WriteArrayFailure, OfAnElementsHandleIsAnyStatusButSuccess) {
    for (const VStatus::Code code : kFailures) {
        auto port = HostPort::ofNumberedArray<TypeParam>({0, 1, 2}, 500);
        CallRecorder calls;
        calls.fail("VArrayDataHandle::outputValue", 1, code);
        EXPECT_EQ(this->write(port), kNoHandle);
    }
}

TYPED_TEST(WriteArrayFailure, OfARemovalLeavesTheArrayAsItWas) {
    for (unsigned failing = 1; failing <= 2; ++failing) {
        auto port = HostPort::ofNumberedArray<TypeParam>({0, 1, 2, 3, 4}, 500);
        const Leaves before = port.leaves();
        CallRecorder calls;
        calls.fail("VArrayDataBuilder::removeElement", failing);
        EXPECT_EQ(this->write(port), kNoRemoval);
        EXPECT_FALSE(has(calls, "VArrayDataHandle::set value value"));
        EXPECT_FALSE(has(calls, "VArrayDataHandle::setAllClean value"));
        EXPECT_EQ(calls.count("VArrayDataBuilder::removeElement"), failing);
        EXPECT_EQ(port.leaves(), before);
        EXPECT_EQ(port.indices(), (std::vector<unsigned>{0, 1, 2, 3, 4}));
        EXPECT_FALSE(port.isClean());
    }
}

TYPED_TEST(WriteArrayFailure, OfARemovalIsAnyStatusButSuccess) {
    for (const VStatus::Code code : kFailures) {
        auto port = HostPort::ofNumberedArray<TypeParam>({0, 1, 2, 3}, 500);
        CallRecorder calls;
        calls.fail("VArrayDataBuilder::removeElement", 1, code);
        EXPECT_EQ(this->write(port), kNoRemoval);
    }
}

TYPED_TEST(WriteArrayFailure, GivesBackAllThatItTook) {
    auto port = HostPort::ofNumberedArray<TypeParam>({0, 5, 9, 12}, 500);
    bool hasThrown = false;
    const AllocationCount count;
    try {
        Translators<TypeParam>::writeArray(this->m_array, port.handle, port.plug);
    } catch (const std::runtime_error&) {
        hasThrown = true;
    }
    EXPECT_EQ(count.outstanding(), 0);
    EXPECT_TRUE(hasThrown);
}

TYPED_TEST(WriteArrayFailure, OfAnyOtherCallIsNotLookedAtInPlace) {
    for (const char* operation :
         {"VArrayDataHandle::VArrayDataHandle", "VArrayDataHandle::elementCount",
          "VArrayDataHandle::next", "VArrayDataHandle::setAllClean",
          "VPlug::elementByLogicalIndex"}) {
        auto port = HostPort::ofNumberedArray<TypeParam>({0, 1, 2}, 500);
        CallRecorder calls;
        calls.fail(operation);
        EXPECT_EQ(this->write(port), "nothing thrown") << operation;
        EXPECT_TRUE(has(calls, "VArrayDataHandle::setAllClean value") ||
                    has(calls, "VArrayDataHandle::setAllClean"))
            << operation;
    }
}

TYPED_TEST(WriteArrayFailure, OfAnyOtherCallIsNotLookedAtWhenItRebuilds) {
    for (const char* operation :
         {"VArrayDataHandle::VArrayDataHandle", "VArrayDataHandle::elementCount",
          "VArrayDataHandle::builder", "VArrayDataBuilder::addElement",
          "VArrayDataBuilder::elementCount", "VArrayDataHandle::set",
          "VArrayDataHandle::setAllClean", "VPlug::elementByLogicalIndex"}) {
        auto port = HostPort::ofNumberedArray<TypeParam>({0, 1}, 500);
        CallRecorder calls;
        calls.fail(operation);
        EXPECT_EQ(this->write(port), "nothing thrown") << operation;
        EXPECT_TRUE(has(calls, "VArrayDataHandle::setAllClean value") ||
                    has(calls, "VArrayDataHandle::setAllClean"))
            << operation;
    }
}

TEST(WriteDoubleArrayFailure, OfSetLeavesTheArrayAndMarksItClean) {
    auto port = HostPort::ofNumberedArray<double>({0, 1}, 500);
    const Leaves before = port.leaves();
    {
        CallRecorder calls;
        calls.fail("VArrayDataHandle::set");
        writeDoubleArray(numberedElements<double>(3), port.handle, port.plug);
    }
    EXPECT_EQ(port.leaves(), before);
    EXPECT_TRUE(port.isClean());
}

TEST(WritePinsFailure, KeepsTheNewNamesAndTheOldMatricesAndMarksTheNamesCleanAlone) {
    auto port = HostPort::ofRecord<Pins>();
    Numbers numbers(500, {2});
    number(numbers, port.handle, port.plug);
    const Pins record = numbered<Pins>(Numbers(1, {2}));
    Pins expected = numbered<Pins>(Numbers(500, {2}));
    expected.names = record.names;
    CallRecorder calls;
    calls.fail("VArrayDataHandle::outputValue", 3);
    EXPECT_EQ(errorMessageOf([&] { writePins(record, port.handle, port.plug); }), kNoHandle);
    EXPECT_EQ(port.leaves(), leavesOf(expected));
    EXPECT_TRUE(port.block.isClean(port.child(0).attribute()));
    EXPECT_FALSE(port.block.isClean(port.child(1).attribute()));
}

// Every call that is looked at is made to fail, one after the other, in a record that has most of
// the others in it.
template <typename Record>
class WriteRecordFailureSweep : public testing::Test {
protected:
    struct Outcome {
        std::string message;
        Leaves leaves;
        // How many leaves were written before the failure.
        std::size_t written;
    };

    static Outcome writeFailing(const char* operation, unsigned nth, const Numbers& hostNumbers) {
        auto port = HostPort::ofRecord<Record>();
        Numbers numbers = hostNumbers;
        number(numbers, port.handle, port.plug);
        Outcome outcome;
        {
            CallRecorder calls;
            calls.fail(operation, nth);
            outcome.message = errorMessageOf(
                [&] { Translators<Record>::write(numbered<Record>(), port.handle, port.plug); });
            outcome.written = calls.count("VDataHandle::setString") +
                              calls.count("VDataHandle::asMatrix") +
                              calls.count("VDataHandle::setDouble");
        }
        outcome.leaves = port.leaves();
        return outcome;
    }

    static bool isLength(const std::string& line) {
        const std::string ending = " elements";
        return line.size() > ending.size() &&
               line.compare(line.size() - ending.size(), ending.size(), ending) == 0;
    }

    // The leaves array by array, and first what stands before any array. No array of a record
    // holds arrays.
    static std::vector<std::vector<std::string>> partsOf(const Leaves& leaves) {
        std::vector<std::vector<std::string>> parts(1);
        for (const std::string& line : leaves.lines()) {
            if (isLength(line)) parts.emplace_back();
            parts.back().push_back(line);
        }
        return parts;
    }

    static std::vector<std::string> valuesOf(const Leaves& leaves) {
        std::vector<std::string> values;
        std::remove_copy_if(leaves.lines().begin(), leaves.lines().end(),
                            std::back_inserter(values), isLength);
        return values;
    }
};
TYPED_TEST_SUITE(WriteRecordFailureSweep, RecordTypesWithArrays, NameOfType);

TYPED_TEST(WriteRecordFailureSweep, OfElementHandlesLeavesNewValuesBeforeAndOldBehind) {
    const auto newValues = this->valuesOf(leavesOf(numbered<TypeParam>()));
    const auto oldValues = this->valuesOf(leavesOf(numbered<TypeParam>(Numbers(500))));
    TypeParam record = numbered<TypeParam>();
    unsigned elements = 0;
    for (const SharedArrayState& array : sharedArraysOf(record))
        elements += static_cast<unsigned>(array.size);
    ASSERT_GT(elements, 0u);
    for (unsigned nth = 1; nth <= elements; ++nth) {
        const auto outcome = this->writeFailing("VArrayDataHandle::outputValue", nth, Numbers(500));
        ASSERT_EQ(outcome.message, kNoHandle) << nth;
        auto expected = oldValues;
        std::copy_n(newValues.begin(), outcome.written, expected.begin());
        ASSERT_EQ(this->valuesOf(outcome.leaves), expected) << nth;
    }
    const auto outcome =
        this->writeFailing("VArrayDataHandle::outputValue", elements + 1, Numbers(500));
    EXPECT_EQ(outcome.message, "nothing thrown");
    EXPECT_EQ(this->valuesOf(outcome.leaves), newValues);
}

TYPED_TEST(WriteRecordFailureSweep, OfRemovalsReplacesTheArraysBeforeAndNoOther) {
    // Each of the host's arrays is longer by one, so that each takes one removal.
    const Numbers hostNumbers(500, {3, 4, 2});
    const auto newParts = this->partsOf(leavesOf(numbered<TypeParam>()));
    const auto oldParts = this->partsOf(leavesOf(numbered<TypeParam>(hostNumbers)));
    ASSERT_EQ(newParts.size(), oldParts.size());
    for (unsigned nth = 1; nth < newParts.size(); ++nth) {
        const auto outcome =
            this->writeFailing("VArrayDataBuilder::removeElement", nth, hostNumbers);
        ASSERT_EQ(outcome.message, kNoRemoval) << nth;
        auto expected = oldParts;
        std::copy_n(newParts.begin(), nth, expected.begin());
        ASSERT_EQ(this->partsOf(outcome.leaves), expected) << nth;
    }
}

}  // namespace
