// Values at the edges of what texts and numbers can be: each crosses as it is, in both directions.
#include "tests/support/CallRecorder.h"
#include "tests/support/HeldTranslators.h"
#include "tests/support/HostPort.h"
#include "tests/support/RecordLeaves.h"

#include <cstdint>
#include <cstring>
#include <limits>
#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace {

using namespace TestSupport;

// Of `length` characters, no two next to each other equal.
std::string textOf(std::size_t length) {
    std::string text;
    while (text.size() < length) text += static_cast<char>('a' + text.size() * 7 % 26);
    return text;
}

std::vector<std::string> oddTexts() {
    std::vector<std::string> texts{"", " ", "  two blanks around  ", "\tand\n ends\r\n"};
    for (const std::size_t length :
         {15u, 16u, 63u, 64u, 65u, 127u, 128u, 255u, 256u, 300u, 70000u}) {
        texts.push_back(textOf(length));
        texts.push_back(' ' + textOf(length - 2) + ' ');
    }
    std::string everyByte;
    for (int byte = 1; byte < 256; ++byte) everyByte += static_cast<char>(byte);
    texts.push_back(everyByte);
    return texts;
}

double doubleOf(std::uint64_t bits) {
    double value;
    std::memcpy(&value, &bits, sizeof value);
    return value;
}

// Leaves are compared to the bit.
const std::vector<double> kOddNumbers{0.1,
                                      -0.0,
                                      1e300,
                                      std::numeric_limits<double>::denorm_min(),
                                      -std::numeric_limits<double>::min() / 2,
                                      std::numeric_limits<double>::infinity(),
                                      16777217.0,
                                      doubleOf(0x7ff8000000000123u),
                                      doubleOf(0xfff00000000ffff1u)};

Math::double4x4 matrixOf(const std::vector<double>& numbers, std::size_t first) {
    Math::double4x4 matrix;
    for (std::size_t i = 0; i < 16; ++i)
        matrix.rows[i / 4][i % 4] = numbers[(first + i) % numbers.size()];
    return matrix;
}

template <typename Element>
std::vector<Element> oddElements();
template <>
std::vector<Pelmor::String> oddElements() {
    std::vector<Pelmor::String> elements;
    for (const std::string& text : oddTexts()) elements.emplace_back(text.c_str());
    return elements;
}
template <>
std::vector<double> oddElements() {
    return kOddNumbers;
}
template <>
std::vector<Math::double4x4> oddElements() {
    std::vector<Math::double4x4> elements;
    for (std::size_t i = 0; i < kOddNumbers.size(); ++i)
        elements.push_back(matrixOf(kOddNumbers, i));
    return elements;
}

void setLeaf(VDataHandle handle, const Pelmor::String& text) { handle.setString(text.c_str()); }
void setLeaf(VDataHandle handle, double number) { handle.setDouble(number); }
void setLeaf(VDataHandle handle, const Math::double4x4& matrix) {
    std::memcpy(handle.asMatrix().matrix, matrix.rows, sizeof matrix.rows);
}

template <typename Element>
class OddValues : public testing::Test {
protected:
    OddValues() {
        array = Pelmor::makePtr<Pelmor::Array<Element>>();
        for (const Element& element : oddElements<Element>()) {
            array->append(element);
            indices.push_back(static_cast<unsigned>(indices.size()));
        }
    }

    Pelmor::SharedArray<Element> array;
    std::vector<unsigned> indices;
};
using PlainElements = testing::Types<Pelmor::String, double, Math::double4x4>;
TYPED_TEST_SUITE(OddValues, PlainElements, NameOfType);

TYPED_TEST(OddValues, AreReadAsTheyAre) {
    auto port = HostPort::ofArray<TypeParam>(this->indices);
    for (const unsigned k : this->indices) setLeaf(elementOf(port.handle, k), (*this->array)[k]);
    Pelmor::SharedArray<TypeParam> read;
    Translators<TypeParam>::readArray(port.handle, port.plug, read);
    EXPECT_EQ(leavesOf(read), leavesOf(this->array));
}

TYPED_TEST(OddValues, AreWrittenAsTheyAreInPlaceAndWhileRebuilding) {
    for (const auto& former : {this->indices, {}, {0}}) {
        auto port = HostPort::ofArray<TypeParam>(former);
        Translators<TypeParam>::writeArray(this->array, port.handle, port.plug);
        EXPECT_EQ(port.leaves(), leavesOf(this->array));
    }
}

TEST(OddValuesOfMembers, CrossAsTheyAre) {
    auto port = HostPort::ofRecord<Outputs>();
    Outputs record, read;
    for (const std::string& text : oddTexts()) {
        record.name = text.c_str();
        writeOutputs(record, port.handle, port.plug);
        EXPECT_EQ(port.childHandle(0).asString(), text.c_str());
        read.name = "before";
        readOutputs(port.handle, port.plug, read);
        EXPECT_STREQ(read.name.c_str(), text.c_str());
    }
}

constexpr const char* kAccessors[] = {"VDataHandle::setString", "VDataHandle::setDouble",
                                      "VDataHandle::asMatrix"};

// What a child without data reads as is what the accessors of a null handle give.
template <typename Record>
class ChildrenWithoutData : public testing::Test {};
TYPED_TEST_SUITE(ChildrenWithoutData, RecordTypes, NameOfType);

void blank(Pelmor::String& text) { text = VDataHandle().asString().asChar(); }
void blank(double& number) { number = VDataHandle().asDouble(); }
void blank(Math::double4x4& matrix) {
    std::memcpy(matrix.rows, VDataHandle().asMatrix().matrix, sizeof matrix.rows);
}
template <typename Element>
void blank(Pelmor::SharedArray<Element>& array) {
    array = Pelmor::makePtr<Pelmor::Array<Element>>();
}
template <typename Record>
void blank(Record& record) {
    eachMember(record, [](auto& member) { blank(member); });
}

TYPED_TEST(ChildrenWithoutData, AreReadAsWhatNullHandlesGive) {
    HostPort port(compoundAttribute("value", {}));
    TypeParam record = numbered<TypeParam>();
    TypeParam expected{};
    blank(expected);
    Translators<TypeParam>::read(port.handle, port.plug, record);
    EXPECT_EQ(leavesOf(record), leavesOf(expected));
}

// The same accessors are called as if there were data.
TYPED_TEST(ChildrenWithoutData, AreWrittenToAllTheSame) {
    HostPort without(compoundAttribute("value", {}));
    auto with = HostPort::ofRecord<TypeParam>();
    CallRecorder calls;
    Translators<TypeParam>::write(numbered<TypeParam>(), with.handle, with.plug);
    std::vector<unsigned> counts;
    for (const char* accessor : kAccessors) counts.push_back(calls.count(accessor));
    calls.take();
    EXPECT_NO_THROW(
        Translators<TypeParam>::write(numbered<TypeParam>(), without.handle, without.plug));
    for (const char* accessor : kAccessors) {
        EXPECT_EQ(calls.count(accessor), counts.front()) << accessor;
        counts.erase(counts.begin());
    }
}

// Elements of which the host gives no handle.
TYPED_TEST(OddValues, AreReadAsWhatANullHandleGivesWhereAnElementHasNoData) {
    auto port = HostPort::ofNumberedArray<TypeParam>({0});
    Pelmor::SharedArray<TypeParam> read;
    CallRecorder calls;
    calls.fail("VArrayDataHandle::inputValue");
    Translators<TypeParam>::readArray(port.handle, port.plug, read);
    TypeParam expected;
    blank(expected);
    EXPECT_EQ(leavesOf((*read)[0]), leavesOf(expected));
}

}  // namespace
