#include "plugin/Records.h"
#include "tests/plugin/HostPort.h"
#include "tests/plugin/ScriptedTranslators.h"
#include "tests/plugin/Translation.h"
#include "tests/support/CallRecorder.h"
#include "tests/support/ShownErrors.h"

#include <Pelmor/Library.h>

#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

namespace {

using namespace PluginTests;
using Pelmor::AnyValue;
using Rigging::Module::Pins;
using TestSupport::CallRecorder;
using TestSupport::ShownErrors;
using Names = std::vector<std::string>;

class TranslateFromHost : public testing::Test {
protected:
    bool translate(const Pelmor::Type& type) {
        return translation->translateFromHost(type, value, port.context);
    }
    bool translate(const char* type) { return translate(library.getType(type)); }

    static void store(AnyValue& holder) {
        AnyValue pins = AnyValue::holding(Pins());
        holder.moveAssign(pins);
    }

    Translation translation = newTranslation();
    Pelmor::Library library;
    HostPort port;
    AnyValue value;
    ScriptedTranslators translators;
    ShownErrors errors;
};

TEST_F(TranslateFromHost, CallsTheReaderOfTheTypesName) {
    const std::pair<const char*, const char*> records[] = {
        {"Core::Transform::Transform", "readTransform"},
        {"Rigging::Module::NamedTransforms", "readNamedTransforms"},
        {"Rigging::Module::Pins", "readPins"},
        {"Rigging::Module::InputsJoints", "readInputsJoints"},
        {"Rigging::Module::InputsControls", "readInputsControls"},
        {"Rigging::Module::Inputs", "readInputs"},
        {"Rigging::Module::Outputs", "readOutputs"}};
    for (const auto& [type, reader] : records) {
        translate(type);
        EXPECT_EQ(std::exchange(translators.called, {}), Names{std::string(reader) + "Value"});
        translate((std::string("array<") + type + ">").c_str());
        EXPECT_EQ(std::exchange(translators.called, {}), Names{std::string(reader) + "ArrayValue"});
    }
}

TEST_F(TranslateFromHost, HandsOverTheHolderThePortsDataAndItsPlug) {
    port.block.outputValue(port.plug).setDouble(6.5);
    const AnyValue* holder = nullptr;
    double number = 0;
    VPlug plug;
    translators.read = [&](AnyValue& toFill, VDataHandle& handle, VPlug ofPort) {
        holder = &toFill;
        number = handle.asDouble();
        plug = ofPort;
    };
    translate("Rigging::Module::Pins");
    EXPECT_EQ(holder, &value);
    EXPECT_EQ(number, 6.5);
    EXPECT_EQ(plug, port.plug);
}

TEST_F(TranslateFromHost, AsksForTheInputBeforeItReads) {
    CallRecorder calls;
    CallRecorder::Lines before;
    translators.read = [&](AnyValue&, VDataHandle&, VPlug) { before = calls.take(); };
    translate("Rigging::Module::Pins");
    EXPECT_EQ(before, CallRecorder::Lines{"VDataBlock::inputValue rig rig.port"});
    EXPECT_EQ(calls.take(), CallRecorder::Lines());
}

TEST_F(TranslateFromHost, AsksForTheInputOfATypeThatItDoesNotCarryAndNothingElse) {
    EXPECT_FALSE(port.isClean());
    CallRecorder calls;
    EXPECT_FALSE(translate("double"));
    EXPECT_EQ(calls.take(), CallRecorder::Lines{"VDataBlock::inputValue rig rig.port"});
    EXPECT_TRUE(port.isClean());
}

TEST_F(TranslateFromHost, IsTrueWhereTheReaderStoredAValue) {
    translators.read = [](AnyValue& holder, VDataHandle&, VPlug) { store(holder); };
    EXPECT_TRUE(translate("Rigging::Module::Pins"));
    EXPECT_NE(value.getIf<Pins>(), nullptr);
}

TEST_F(TranslateFromHost, IsTrueWhereTheReaderReplacedAValue) {
    value = AnyValue::holding(Rigging::Module::Inputs());
    translators.read = [](AnyValue& holder, VDataHandle&, VPlug) { store(holder); };
    EXPECT_TRUE(translate("Rigging::Module::Pins"));
    EXPECT_NE(value.getIf<Pins>(), nullptr);
}

TEST_F(TranslateFromHost, IsFalseWhereTheReaderLeftTheHolderEmpty) {
    EXPECT_FALSE(translate("Rigging::Module::Pins"));
    value = AnyValue::holding(Pins());
    translators.read = [](AnyValue& holder, VDataHandle&, VPlug) { holder.reset(); };
    EXPECT_FALSE(translate("Rigging::Module::Pins"));
    EXPECT_EQ(translators.called.size(), 2u);
    EXPECT_EQ(errors.messages(), ShownErrors::Messages());
}

// What the reader did is judged by nothing but the holder.
TEST_F(TranslateFromHost, IsTrueWhereTheReaderLeftTheFormerValue) {
    value = AnyValue::holding(Pins());
    EXPECT_TRUE(translate("Rigging::Module::Pins"));
}

TEST_F(TranslateFromHost, IsFalseForATypeThatItDoesNotCarryAndLeavesTheHolder) {
    value = AnyValue::holding(Pins());
    const Pins* before = value.getIf<Pins>();
    for (const char* type :
         {"double", "bool", "int", "string", "Object", "Math::double4x4", "array<double>",
          "array<string>", "array<array<Rigging::Module::Pins>>",
          "array<array<Core::Transform::Transform>>"})
        EXPECT_FALSE(translate(type)) << type;
    EXPECT_EQ(value.getIf<Pins>(), before);
    EXPECT_EQ(translators.called, Names());
    EXPECT_EQ(errors.messages(), ShownErrors::Messages());
}

TEST_F(TranslateFromHost, IsFalseForANameOfAnyOtherForm) {
    for (const char* name :
         {"Pins", "Module::Pins", "::Rigging::Module::Pins", "Other::Module::Pins",
          "Rigging::Module::pins", "Rigging::Module::Pins ", " Rigging::Module::Pins",
          "Rigging.Module.Pins", "Rigging::Module::Pins2", "Rigging::Module::Pin",
          "array< Rigging::Module::Pins>", "array<Rigging::Module::Pins >",
          "array <Rigging::Module::Pins>", "Array<Rigging::Module::Pins>",
          "array<Rigging::Module::Pins", "Rigging::Module::Pins[]", "Rigging::Module::Transform",
          "Core::Transform"})
        EXPECT_FALSE(translate(Pelmor::Library().defineStruct(name, {}))) << name;
    EXPECT_EQ(translators.called, Names());
}

TEST_F(TranslateFromHost, GoesByTheNameOfTheTypeAlone) {
    Pelmor::Library other;
    translate(other.getType("array<Rigging::Module::Pins>"));
    EXPECT_EQ(translators.called, Names{"readPinsArrayValue"});
}

TEST_F(TranslateFromHost, ReadsOnWhereTheHostHasNoInput) {
    CallRecorder calls;
    calls.fail("VDataBlock::inputValue");
    bool isNull = false;
    translators.read = [&](AnyValue&, VDataHandle& handle, VPlug) { isNull = handle.isNull(); };
    translate("Rigging::Module::Pins");
    EXPECT_TRUE(isNull);
    EXPECT_EQ(errors.messages(), ShownErrors::Messages());
}

using TranslateFromHostDeathTest = TranslateFromHost;

TEST_F(TranslateFromHostDeathTest, EndsTheProcessWhereAReaderThrows) {
    translators.read = [](AnyValue&, VDataHandle&, VPlug) {
        throw std::runtime_error("thrown by a reader");
    };
    EXPECT_DEATH(translate("Rigging::Module::Pins"), "terminate called");
}

}  // namespace
