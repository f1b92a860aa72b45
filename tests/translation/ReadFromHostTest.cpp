// What a translation does with a port of the host, around the reader that it calls.
#include "tests/support/AllocationCount.h"
#include "tests/support/CallRecorder.h"
#include "tests/support/ShownErrors.h"
#include "tests/support/TranslatedPort.h"
#include "tests/translation/ScriptedTranslation.h"
#include "tests/translation/SwapDuringCall.h"

#include <Pelmor/Library.h>

#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

namespace {

using namespace TranslationTests;
using Pelmor::AnyValue;
using TestSupport::CallRecorder;
using TestSupport::ShownErrors;
using TestSupport::TranslatedPort;
using Names = std::vector<std::string>;

class TranslateFromHost : public testing::Test {
protected:
    TranslateFromHost() {
        library.defineStruct("Tests::First", {});
        library.defineStruct("Tests::Second", {});
    }

    bool translate(const Pelmor::Type& type) {
        return translation.translateFromHost(type, value, port.context);
    }
    bool translate(const char* type) { return translate(library.getType(type)); }

    ScriptedTranslation translation;
    Pelmor::Library library;
    TranslatedPort port{TestSupport::doubleAttribute("port")};
    AnyValue value;
    Script script;
    ShownErrors errors;
};

TEST_F(TranslateFromHost, CallsTheReaderOfTheTypesName) {
    for (const char* type :
         {"Tests::First", "array<Tests::First>", "Tests::Second", "array<Tests::Second>"})
        translate(type);
    EXPECT_EQ(script.called, (Names{"first", "first array", "second", "second array"}));
}

TEST_F(TranslateFromHost, HandsOverTheHolderThePortsDataAndItsPlug) {
    port.handle.setDouble(6.5);
    const AnyValue* holder = nullptr;
    double number = 0;
    VPlug plug;
    script.read = [&](AnyValue& toFill, VDataHandle& handle, const VPlug& ofPort) {
        holder = &toFill;
        number = handle.asDouble();
        plug = ofPort;
    };
    translate("Tests::First");
    EXPECT_EQ(holder, &value);
    EXPECT_EQ(number, 6.5);
    EXPECT_EQ(plug, port.plug);
}

// The framework may move its context on while the host evaluates what the port depends on.
TEST_F(TranslateFromHost, WorksOnCopiesOfTheContextsBlockAndPlug) {
    TranslatedPort other(TestSupport::doubleAttribute("other"));
    port.handle.setDouble(6.5);
    const VPlug own = port.plug;
    double number = 0;
    VPlug plug;
    script.read = [&](AnyValue&, VDataHandle& handle, const VPlug& ofPort) {
        number = handle.asDouble();
        plug = ofPort;
    };
    const SwapDuringCall swap("VDataBlock::inputValue", port, other);
    translate("Tests::First");
    EXPECT_EQ(number, 6.5);
    EXPECT_EQ(plug, own);
}

TEST_F(TranslateFromHost, AsksForTheInputAndNothingElseBeforeItReads) {
    CallRecorder calls;
    CallRecorder::Lines before;
    script.read = [&](AnyValue&, VDataHandle&, const VPlug&) { before = calls.take(); };
    translate("Tests::First");
    EXPECT_EQ(before, CallRecorder::Lines{"VDataBlock::inputValue node node.port"});
    EXPECT_EQ(calls.take(), CallRecorder::Lines());
}

TEST_F(TranslateFromHost, AsksForTheInputOfATypeThatIsNotCarriedAndNothingElse) {
    EXPECT_FALSE(port.isClean());
    CallRecorder calls;
    EXPECT_FALSE(translate("double"));
    EXPECT_EQ(calls.take(), CallRecorder::Lines{"VDataBlock::inputValue node node.port"});
    EXPECT_TRUE(port.isClean());
}

TEST_F(TranslateFromHost, TakesNoMemoryOfItsOwn) {
    translate("Tests::First");
    const Pelmor::Type carried = library.getType("Tests::First");
    const Pelmor::Type other = library.getType("double");
    script.called.reserve(2);
    const TestSupport::AllocationCount count;
    translate(carried);
    translate(other);
    EXPECT_EQ(count.allocations(), 0u);
}

TEST_F(TranslateFromHost, IsTrueWhereTheReaderStoredAValue) {
    script.read = [](AnyValue& holder, VDataHandle&, const VPlug&) {
        holder = AnyValue::holding(First());
    };
    EXPECT_TRUE(translate("Tests::First"));
    EXPECT_NE(value.getIf<First>(), nullptr);
    value = AnyValue::holding(Second());
    EXPECT_TRUE(translate("Tests::First"));
    EXPECT_NE(value.getIf<First>(), nullptr);
}

TEST_F(TranslateFromHost, IsFalseWhereTheReaderLeftTheHolderEmpty) {
    EXPECT_FALSE(translate("Tests::First"));
    value = AnyValue::holding(First());
    script.read = [](AnyValue& holder, VDataHandle&, const VPlug&) { holder.reset(); };
    EXPECT_FALSE(translate("Tests::First"));
    EXPECT_EQ(script.called.size(), 2u);
    EXPECT_EQ(errors.messages(), ShownErrors::Messages());
}

// What the reader did is judged by nothing but the holder.
TEST_F(TranslateFromHost, IsTrueWhereTheReaderLeftTheFormerValue) {
    value = AnyValue::holding(First());
    EXPECT_TRUE(translate("Tests::First"));
}

TEST_F(TranslateFromHost, IsFalseForATypeThatIsNotCarriedAndLeavesTheHolder) {
    value = AnyValue::holding(First());
    const First* before = value.getIf<First>();
    for (const char* type :
         {"double", "bool", "string", "Object", "Math::double4x4", "float", "array<double>",
          "array<array<Tests::First>>", "Core::Transform::Transform"})
        EXPECT_FALSE(translate(type)) << type;
    EXPECT_EQ(value.getIf<First>(), before);
    EXPECT_EQ(script.called, Names());
    EXPECT_EQ(errors.messages(), ShownErrors::Messages());
}

TEST_F(TranslateFromHost, IsFalseForATypeOfAnyOtherName) {
    for (const char* name :
         {"First", "::Tests::First", "x::Tests::First", "Tests::first", "TESTS::FIRST",
          "Tests::First ", " Tests::First", "Tests.First", "Tests::First2", "Tests::Firs",
          "array< Tests::First>", "array<Tests::First >", "array <Tests::First>",
          "Array<Tests::First>", "array<Tests::First", "Tests::First[]", "array<tests::First>"})
        EXPECT_FALSE(translate(Pelmor::Library().defineStruct(name, {}))) << name;
    EXPECT_EQ(script.called, Names());
}

TEST_F(TranslateFromHost, ReadsOnWhereTheHostHasNoInput) {
    CallRecorder calls;
    calls.fail("VDataBlock::inputValue");
    bool isNull = false;
    script.read = [&](AnyValue&, VDataHandle& handle, const VPlug&) { isNull = handle.isNull(); };
    translate("Tests::First");
    EXPECT_TRUE(isNull);
    EXPECT_EQ(errors.messages(), ShownErrors::Messages());
}

using TranslateFromHostDeathTest = TranslateFromHost;

TEST_F(TranslateFromHostDeathTest, EndsTheProcessWhereAReaderThrows) {
    script.read = [](AnyValue&, VDataHandle&, const VPlug&) {
        throw std::runtime_error("thrown by a reader");
    };
    EXPECT_DEATH(translate("Tests::First"), "terminate called");
}

}  // namespace
