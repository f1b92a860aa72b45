// Arrays of any length: as many elements cross as there are, each to its own place.
#include "tests/support/HeldTranslators.h"
#include "tests/support/HostPort.h"
#include "tests/support/RecordLeaves.h"

#include <OpenVornik/Testing/CallObserver.h>
#include <OpenVornik/VArrayDataHandle.h>
#include <Tolvane/convert/Read.h>

#include <iterator>
#include <numeric>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

namespace {

using namespace TestSupport;

std::vector<unsigned> indicesBelow(unsigned count) {
    std::vector<unsigned> indices(count);
    std::iota(indices.begin(), indices.end(), 0u);
    return indices;
}

// The logical indices that an operation of the host is given.
class IndicesPassedTo : public OpenVornik::Testing::CallObserver {
public:
    explicit IndicesPassedTo(std::string_view operation) : m_operation(operation) {}

    std::vector<unsigned> indices;

private:
    VStatus::Code called(const OpenVornik::Testing::Call& call) override {
        if (call.operation == m_operation) indices.push_back(static_cast<unsigned>(call.index));
        return VStatus::kSuccess;
    }

    std::string_view m_operation;
};

// A host array of doubles, of which the k-th is k + 0.5 at first and -k after it was written.
struct Doubles {
    explicit Doubles(unsigned hostLength) : port(HostPort::ofArray<double>()) {
        VArrayDataHandle array(port.handle);
        VArrayDataBuilder builder = array.builder();
        for (unsigned k = 0; k < hostLength; ++k) builder.addElement(k).setDouble(k + 0.5);
        array.set(builder);
    }

    void write(unsigned length) {
        auto array = Pelmor::makePtr<Pelmor::Array<double>>(length);
        for (unsigned k = 0; k < length; ++k) (*array)[k] = -1.0 * k;
        writeDoubleArray(array, port.handle, port.plug);
    }

    void expectWritten(unsigned length) {
        VArrayDataHandle array(port.handle);
        ASSERT_EQ(array.elementCount(), length);
        for (unsigned k = 0; k < length; ++k, array.next()) {
            ASSERT_EQ(array.elementIndex(), k);
            ASSERT_EQ(array.outputValue().asDouble(), -1.0 * k);
        }
        EXPECT_TRUE(port.isClean());
    }

    HostPort port;
};

constexpr unsigned kLengths[] = {0,   1,   2,   15,  16,  17,    20,    21,
                                 100, 101, 255, 256, 257, 65535, 65536, 65537};

TEST(LongArrays, AreReadInFullAndInOrder) {
    // The last one is longer than the caches that readers count on.
    std::vector<unsigned> lengths(std::begin(kLengths), std::end(kLengths));
    lengths.push_back(200'000);
    for (const unsigned length : lengths) {
        Doubles doubles(length);
        Pelmor::SharedArray<double> array;
        readDoubleArray(doubles.port.handle, doubles.port.plug, array);
        ASSERT_EQ(array->size(), length);
        EXPECT_EQ(array->capacity(), length);
        for (unsigned k = 0; k < length; ++k) ASSERT_EQ((*array)[k], k + 0.5);
    }
}

TEST(LongArrays, AreWrittenInFullWhateverTheFormerLength) {
    for (const unsigned length : kLengths)
        for (const unsigned former : {0u, 1u, length, length + 1, 257u}) {
            SCOPED_TRACE(testing::Message() << former << " to " << length);
            Doubles doubles(former);
            doubles.write(length);
            doubles.expectWritten(length);
        }
}

// Lengths whose low bytes are equal.
TEST(LongArrays, AreRebuiltWhereTheLengthsAreEqualButForHigherBits) {
    const std::pair<unsigned, unsigned> lengths[] = {{256, 0},   {0, 256},   {257, 1},  {1, 257},
                                                     {65536, 0}, {65537, 1}, {1, 65537}};
    for (const auto& [former, length] : lengths) {
        SCOPED_TRACE(testing::Message() << former << " to " << length);
        Doubles doubles(former);
        const IndicesPassedTo removed("VArrayDataBuilder::removeElement");
        doubles.write(length);
        EXPECT_EQ(removed.indices.size(), former > length ? former - length : 0u);
        EXPECT_TRUE(removed.indices.empty() || removed.indices.back() == former - 1);
        doubles.expectWritten(length);
    }
}

template <typename Record>
class LongArraysOfRecords : public testing::Test {};
TYPED_TEST_SUITE(LongArraysOfRecords, RecordTypes, NameOfType);

constexpr unsigned kRecords = 300;

TYPED_TEST(LongArraysOfRecords, CrossInBothDirections) {
    const auto array = numberedElements<TypeParam>(kRecords);
    auto inPlace = HostPort::ofArray<TypeParam>(indicesBelow(kRecords));
    auto growing = HostPort::ofArray<TypeParam>();
    for (HostPort* port : {&inPlace, &growing}) {
        Translators<TypeParam>::writeArray(array, port->handle, port->plug);
        EXPECT_EQ(port->indices(), indicesBelow(kRecords));
        EXPECT_TRUE(port->leaves() == leavesOf(array));
        Pelmor::SharedArray<TypeParam> read;
        Translators<TypeParam>::readArray(port->handle, port->plug, read);
        EXPECT_TRUE(leavesOf(read) == leavesOf(array));
    }
}

// The plug of each element is that at its position, beyond what fits a byte or two as well.
class ElementPlugs : public testing::TestWithParam<unsigned> {
protected:
    static constexpr const char* kOperation = "VPlug::elementByLogicalIndex";
};
INSTANTIATE_TEST_SUITE_P(Lengths, ElementPlugs, testing::Values(300u, 65800u));

// A record with little in it, so that there can be many.
struct Mark {
    double value;
};

}  // namespace

template <>
struct Tolvane::Page<Mark> {
    [[maybe_unused]] static constexpr const char* typeName = "Mark";
    static constexpr std::tuple members{&Mark::value};
};

namespace {

VObject marks() { return compoundAttribute("value", {doubleAttribute("value")}, true); }

Pelmor::SharedArray<Mark> marksUpTo(unsigned length) {
    auto array = Pelmor::makePtr<Pelmor::Array<Mark>>(length);
    for (unsigned k = 0; k < length; ++k) (*array)[k].value = k + 0.5;
    return array;
}

TEST_P(ElementPlugs, AreTakenAtTheirPositionWhenAnArrayIsReadOrWritten) {
    HostPort port(marks());
    const auto array = marksUpTo(GetParam());
    for (const bool isRebuilt : {true, false}) {
        const IndicesPassedTo plugs(kOperation);
        Translators<Mark>::writeArray(array, port.handle, port.plug);
        EXPECT_TRUE(plugs.indices == indicesBelow(GetParam())) << isRebuilt;
    }
    Pelmor::SharedArray<Mark> read;
    const IndicesPassedTo plugs(kOperation);
    Translators<Mark>::readArray(port.handle, port.plug, read);
    EXPECT_TRUE(plugs.indices == indicesBelow(GetParam()));
    for (unsigned k = 0; k < GetParam(); ++k) ASSERT_EQ((*read)[k].value, k + 0.5);
}

}  // namespace
