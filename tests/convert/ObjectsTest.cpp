// Objects stay in the graph: the children that stand for them are neither read nor written,
// whatever the host has there.
#include "tests/support/CallRecorder.h"
#include "tests/support/HeldTranslators.h"
#include "tests/support/HostPort.h"
#include "tests/support/RecordLeaves.h"
#include "tests/support/SharedArrays.h"

#include <Pelmor/AnyValue.h>
#include <Pelmor/DefaultClass.h>

#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace {

using namespace TestSupport;

// What the host has where `value` is written and a text stands for each object.
template <typename T>
void appendWithTexts(Leaves& leaves, const T& value) {
    if constexpr (kIsObject<T>)
        leaves.addText("");
    else if constexpr (kIsStruct<T>)
        eachMemberAndObject(value, [&](const auto& member) { appendWithTexts(leaves, member); });
    else
        append(leaves, value);
}

void expectNothingOfObjects(const CallRecorder& calls) {
    for (const std::string& line : calls.lines())
        EXPECT_EQ(line.find("object"), std::string::npos) << line;
}

template <typename Record>
class Objects : public testing::Test {
protected:
    static std::vector<Object> objectsOf(Record& record) {
        std::vector<Object> objects;
        eachObject(record, [&](const Object& object) { objects.push_back(object); });
        return objects;
    }

    HostPort port{attributeWithTextsForObjects<Record>("value")};
    Record record = numbered<Record>();
};
TYPED_TEST_SUITE(Objects, TypesWithObjects, NameOfType);

TYPED_TEST(Objects, AreLeftAsTheyAreInARecordThatIsReadInto) {
    eachObject(this->record, [](Object& object) { object = Pelmor::makePtr<Tavrik::Object>(); });
    const auto before = this->objectsOf(this->record);
    ASSERT_FALSE(before.empty());
    Numbers numbers(500);
    number(numbers, this->port.handle, this->port.plug);
    CallRecorder calls;
    Translators<TypeParam>::read(this->port.handle, this->port.plug, this->record);
    expectNothingOfObjects(calls);
    EXPECT_EQ(this->objectsOf(this->record), before);
    for (const Object& object : before) EXPECT_EQ(object.useCount(), 2u);
    EXPECT_EQ(leavesOf(this->record), leavesOf(numbered<TypeParam>(Numbers(500))));
}

TYPED_TEST(Objects, AreNotWrittenWhateverTheyAre) {
    Leaves expected;
    appendWithTexts(expected, this->record);
    for (const Object& object : {Object(), Pelmor::makePtr<Tavrik::Object>()}) {
        eachObject(this->record, [&](Object& member) { member = object; });
        CallRecorder calls;
        Translators<TypeParam>::write(this->record, this->port.handle, this->port.plug);
        expectNothingOfObjects(calls);
        EXPECT_EQ(this->port.leaves(), expected);
    }
}

TYPED_TEST(Objects, AreTheDefaultOneInValuesThatAreRead) {
    const auto& defaultObject = Pelmor::Internal::getDefaultClass<Tavrik::Object>();
    auto array = HostPort::ofArray<TypeParam>({0, 1, 2});
    const std::uint64_t usesBefore = defaultObject.useCount();
    Pelmor::AnyValue value, values;
    Translators<TypeParam>::readValue(value, this->port.handle, this->port.plug);
    Translators<TypeParam>::readArrayValue(values, array.handle, array.plug);
    std::uint64_t objects = 0;
    const auto expectDefault = [&](const Object& object) {
        EXPECT_EQ(object, defaultObject);
        ++objects;
    };
    eachObject(*value.getIf<TypeParam>(), expectDefault);
    eachObject(*values.getIf<Pelmor::SharedArray<TypeParam>>(), expectDefault);
    EXPECT_EQ(objects, 4 * this->objectsOf(this->record).size());
    EXPECT_EQ(defaultObject.useCount(), usesBefore + objects);
}

}  // namespace
