#include "plugin/Records.h"
#include "tests/plugin/HostPort.h"
#include "tests/plugin/ScriptedTranslators.h"
#include "tests/plugin/Translation.h"
#include "tests/support/CallRecorder.h"
#include "tests/support/ShownErrors.h"

#include <new>
#include <stdexcept>
#include <string>
#include <string_view>
#include <system_error>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

namespace {

using namespace PluginTests;
using namespace Rigging::Module;
using Pelmor::AnyValue;
using Pelmor::SharedArray;
using TestSupport::CallRecorder;
using TestSupport::ShownErrors;
using Names = std::vector<std::string>;

class TranslateToHost : public testing::Test {
protected:
    bool translate(const AnyValue& value) {
        return translation->translateToHost(value, port.context);
    }
    bool translatePins() { return translate(AnyValue::holding(Pins())); }

    template <typename Held>
    std::string writerOf() {
        const AnyValue value = AnyValue::holding(Held());
        const void* written = nullptr;
        translators.write = [&](const void* held, VDataHandle&, VPlug) { written = held; };
        EXPECT_TRUE(translate(value));
        EXPECT_EQ(written, value.getIf<Held>());
        EXPECT_EQ(translators.called.size(), 1u);
        return std::exchange(translators.called, {}).at(0);
    }

    template <typename Exception>
    void letTheWriterThrow(Exception exception) {
        translators.write = [exception](const void*, VDataHandle&, VPlug) { throw exception; };
    }

    Translation translation = newTranslation();
    HostPort port;
    ScriptedTranslators translators;
    ShownErrors errors;
};

TEST_F(TranslateToHost, HandsTheHeldValueToTheWriterOfItsType) {
    EXPECT_EQ(writerOf<Transform>(), "writeTransform");
    EXPECT_EQ(writerOf<NamedTransforms>(), "writeNamedTransforms");
    EXPECT_EQ(writerOf<Pins>(), "writePins");
    EXPECT_EQ(writerOf<InputsJoints>(), "writeInputsJoints");
    EXPECT_EQ(writerOf<InputsControls>(), "writeInputsControls");
    EXPECT_EQ(writerOf<Inputs>(), "writeInputs");
    EXPECT_EQ(writerOf<Outputs>(), "writeOutputs");
    EXPECT_EQ(writerOf<SharedArray<Transform>>(), "writeTransformArray");
    EXPECT_EQ(writerOf<SharedArray<NamedTransforms>>(), "writeNamedTransformsArray");
    EXPECT_EQ(writerOf<SharedArray<Pins>>(), "writePinsArray");
    EXPECT_EQ(writerOf<SharedArray<InputsJoints>>(), "writeInputsJointsArray");
    EXPECT_EQ(writerOf<SharedArray<InputsControls>>(), "writeInputsControlsArray");
    EXPECT_EQ(writerOf<SharedArray<Inputs>>(), "writeInputsArray");
    EXPECT_EQ(writerOf<SharedArray<Outputs>>(), "writeOutputsArray");
}

TEST_F(TranslateToHost, HandsOverThePortsDataAndItsPlug) {
    VPlug plug;
    translators.write = [&](const void*, VDataHandle& handle, VPlug ofPort) {
        handle.setDouble(6.5);
        plug = ofPort;
    };
    EXPECT_TRUE(translatePins());
    EXPECT_EQ(plug, port.plug);
    EXPECT_EQ(port.block.outputValue(port.plug).asDouble(), 6.5);
}

TEST_F(TranslateToHost, TakesTheOutputThenWritesThenMarksThePortClean) {
    CallRecorder calls;
    CallRecorder::Lines before;
    translators.write = [&](const void*, VDataHandle&, VPlug) { before = calls.take(); };
    EXPECT_TRUE(translatePins());
    EXPECT_EQ(before, CallRecorder::Lines{"VDataBlock::outputValue rig rig.port"});
    EXPECT_EQ(calls.take(),
              (CallRecorder::Lines{"VPlug::attribute rig.port", "VDataBlock::setClean rig port"}));
}

TEST_F(TranslateToHost, LeavesThePortClean) {
    EXPECT_FALSE(port.isClean());
    EXPECT_TRUE(translatePins());
    EXPECT_TRUE(port.isClean());
    EXPECT_EQ(errors.messages(), ShownErrors::Messages());
}

TEST_F(TranslateToHost, IsFalseForAnEmptyHolderAfterTheOutputIsTaken) {
    CallRecorder calls;
    EXPECT_FALSE(translate(AnyValue()));
    EXPECT_EQ(calls.take(), CallRecorder::Lines{"VDataBlock::outputValue rig rig.port"});
    EXPECT_EQ(translators.called, Names());
    EXPECT_FALSE(port.isClean());
    EXPECT_EQ(errors.messages(), ShownErrors::Messages());
}

TEST_F(TranslateToHost, IsFalseForAValueThatItDoesNotCarry) {
    CallRecorder calls;
    EXPECT_FALSE(translate(AnyValue::holding(Pelmor::String("walk"))));
    EXPECT_FALSE(translate(AnyValue::holding(2.5)));
    EXPECT_FALSE(translate(AnyValue::holding(SharedArray<double>())));
    EXPECT_FALSE(translate(AnyValue::holding(Math::double4x4())));
    EXPECT_EQ(calls.take(), CallRecorder::Lines(4, "VDataBlock::outputValue rig rig.port"));
    EXPECT_EQ(translators.called, Names());
    EXPECT_FALSE(port.isClean());
    EXPECT_EQ(errors.messages(), ShownErrors::Messages());
}

TEST_F(TranslateToHost, ShowsAWritersFailureOnceAndIsTrue) {
    letTheWriterThrow(std::runtime_error("Internal error !"));
    CallRecorder calls;
    EXPECT_TRUE(translatePins());
    EXPECT_EQ(calls.take(), (CallRecorder::Lines{"VDataBlock::outputValue rig rig.port",
                                                 "VGlobal::displayError Internal error !"}));
    EXPECT_EQ(errors.messages(), ShownErrors::Messages{"Internal error !"});
    EXPECT_FALSE(port.isClean());
}

TEST_F(TranslateToHost, ShowsTheTextOfADerivedFailureToo) {
    letTheWriterThrow(std::overflow_error("too much of it"));
    EXPECT_TRUE(translatePins());
    const std::system_error systemError(std::make_error_code(std::errc::io_error), "disk");
    letTheWriterThrow(systemError);
    EXPECT_TRUE(translatePins());
    EXPECT_EQ(errors.messages(), (ShownErrors::Messages{"too much of it", systemError.what()}));
    EXPECT_FALSE(port.isClean());
}

TEST_F(TranslateToHost, KeepsWhatAFailingWriterWrote) {
    translators.write = [](const void*, VDataHandle& handle, VPlug) {
        handle.setDouble(6.5);
        throw std::runtime_error("then it failed");
    };
    EXPECT_TRUE(translatePins());
    EXPECT_EQ(port.block.outputValue(port.plug).asDouble(), 6.5);
}

TEST_F(TranslateToHost, WritesOnceItHasFailed) {
    letTheWriterThrow(std::runtime_error("once"));
    EXPECT_TRUE(translatePins());
    translators.write = [](const void*, VDataHandle&, VPlug) {};
    EXPECT_TRUE(translatePins());
    EXPECT_TRUE(port.isClean());
    EXPECT_EQ(errors.messages(), ShownErrors::Messages{"once"});
}

TEST_F(TranslateToHost, DoesNotLookAtTheStatusOfMarkingClean) {
    CallRecorder calls;
    calls.fail("VDataBlock::setClean");
    EXPECT_TRUE(translatePins());
    EXPECT_EQ(errors.messages(), ShownErrors::Messages());
}

TEST_F(TranslateToHost, WritesOnWhereTheHostHasNoOutput) {
    CallRecorder calls;
    calls.fail("VDataBlock::outputValue");
    bool isNull = false;
    translators.write = [&](const void*, VDataHandle& handle, VPlug) { isNull = handle.isNull(); };
    EXPECT_TRUE(translatePins());
    EXPECT_TRUE(isNull);
    EXPECT_EQ(errors.messages(), ShownErrors::Messages());
}

// A host whose call of one operation throws.
class ThrowingHost : public OpenVornik::Testing::CallObserver {
public:
    explicit ThrowingHost(std::string_view operation) : m_operation(operation) {}

private:
    VStatus::Code called(const OpenVornik::Testing::Call& call) override {
        if (call.operation == m_operation) throw std::runtime_error("thrown by the host");
        return VStatus::kSuccess;
    }

    std::string_view m_operation;
};

TEST_F(TranslateToHost, ShowsWhatMarkingCleanThrows) {
    for (const char* operation : {"VPlug::attribute", "VDataBlock::setClean"}) {
        const ThrowingHost host(operation);
        EXPECT_TRUE(translatePins()) << operation;
    }
    EXPECT_EQ(errors.messages(),
              (ShownErrors::Messages{"thrown by the host", "thrown by the host"}));
}

using TranslateToHostDeathTest = TranslateToHost;

TEST_F(TranslateToHostDeathTest, EndsTheProcessWhereAWriterThrowsAnythingElse) {
    letTheWriterThrow(std::logic_error("no runtime error"));
    EXPECT_DEATH(translatePins(), "terminate called");
    letTheWriterThrow(std::bad_alloc());
    EXPECT_DEATH(translatePins(), "terminate called");
    letTheWriterThrow(42);
    EXPECT_DEATH(translatePins(), "terminate called");
}

TEST_F(TranslateToHostDeathTest, EndsTheProcessWhereTakingTheOutputThrows) {
    EXPECT_DEATH(
        {
            const ThrowingHost host("VDataBlock::outputValue");
            translatePins();
        },
        "terminate called");
}

}  // namespace
