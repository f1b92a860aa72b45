// What a translation does with a value of the graph, around the writer that it calls.
#include "tests/support/AllocationCount.h"
#include "tests/support/CallRecorder.h"
#include "tests/support/ShownErrors.h"
#include "tests/support/TranslatedPort.h"
#include "tests/translation/ScriptedTranslation.h"
#include "tests/translation/SwapDuringCall.h"

#include <Math/double4x4.h>

#include <new>
#include <stdexcept>
#include <string>
#include <system_error>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

namespace {

using namespace TranslationTests;
using Pelmor::AnyValue;
using Pelmor::SharedArray;
using TestSupport::CallRecorder;
using TestSupport::ShownErrors;
using TestSupport::TranslatedPort;
using Messages = ShownErrors::Messages;

class TranslateToHost : public testing::Test {
protected:
    bool translate(const AnyValue& value) {
        return translation.translateToHost(value, port.context);
    }
    bool translateFirst() { return translate(AnyValue::holding(First())); }

    template <typename Held>
    std::string writerOf() {
        const AnyValue value = AnyValue::holding(Held());
        const void* written = nullptr;
        script.write = [&](const void* held, VDataHandle&, const VPlug&) { written = held; };
        EXPECT_TRUE(translate(value));
        EXPECT_EQ(written, value.getIf<Held>());
        EXPECT_EQ(script.called.size(), 1u);
        return std::exchange(script.called, {}).at(0);
    }

    template <typename Exception>
    void letTheWriterThrow(Exception exception) {
        script.write = [exception](const void*, VDataHandle&, const VPlug&) { throw exception; };
    }

    ScriptedTranslation translation;
    TranslatedPort port{TestSupport::doubleAttribute("port")};
    Script script;
    ShownErrors errors;
};

TEST_F(TranslateToHost, HandsTheHeldValueToTheWriterOfItsType) {
    EXPECT_EQ(writerOf<First>(), "first");
    EXPECT_EQ(writerOf<SharedArray<First>>(), "first array");
    EXPECT_EQ(writerOf<Second>(), "second");
    EXPECT_EQ(writerOf<SharedArray<Second>>(), "second array");
}

TEST_F(TranslateToHost, HandsOverThePortsDataAndItsPlug) {
    VPlug plug;
    script.write = [&](const void*, VDataHandle& handle, const VPlug& ofPort) {
        handle.setDouble(6.5);
        plug = ofPort;
    };
    EXPECT_TRUE(translateFirst());
    EXPECT_EQ(plug, port.plug);
    EXPECT_EQ(port.handle.asDouble(), 6.5);
}

TEST_F(TranslateToHost, WorksOnTheContextsOwnBlockAndPlug) {
    TranslatedPort other(TestSupport::doubleAttribute("other"));
    const VPlug plugOfOther = other.plug;
    VPlug plug;
    script.write = [&](const void*, VDataHandle& handle, const VPlug& ofPort) {
        handle.setDouble(6.5);
        plug = ofPort;
    };
    {
        const SwapDuringCall swap("VDataBlock::outputValue", port, other);
        EXPECT_TRUE(translateFirst());
    }
    EXPECT_EQ(plug, plugOfOther);
    EXPECT_EQ(other.handle.asDouble(), 6.5);
    EXPECT_EQ(port.handle.asDouble(), 0.0);
    EXPECT_TRUE(port.isClean()) << "which is the other by now";
    EXPECT_FALSE(other.isClean());
}

TEST_F(TranslateToHost, TakesTheOutputThenWritesThenMarksThePortClean) {
    EXPECT_FALSE(port.isClean());
    CallRecorder calls;
    CallRecorder::Lines before;
    script.write = [&](const void*, VDataHandle&, const VPlug&) { before = calls.take(); };
    EXPECT_TRUE(translateFirst());
    EXPECT_EQ(before, CallRecorder::Lines{"VDataBlock::outputValue node node.port"});
    EXPECT_EQ(calls.take(), (CallRecorder::Lines{"VPlug::attribute node.port",
                                                 "VDataBlock::setClean node port"}));
    EXPECT_TRUE(port.isClean());
    EXPECT_EQ(errors.messages(), Messages());
}

TEST_F(TranslateToHost, TakesNoMemoryOfItsOwn) {
    const AnyValue empty, carried = AnyValue::holding(First()), other = AnyValue::holding(2.5);
    translate(carried);
    script.called.reserve(2);
    const TestSupport::AllocationCount count;
    translate(carried);
    translate(empty);
    translate(other);
    EXPECT_EQ(count.allocations(), 0u);
}

TEST_F(TranslateToHost, IsFalseForAValueThatIsNotCarriedAfterTheOutputIsTaken) {
    CallRecorder calls;
    EXPECT_FALSE(translate(AnyValue()));
    EXPECT_FALSE(translate(AnyValue::holding(Pelmor::String("walk"))));
    EXPECT_FALSE(translate(AnyValue::holding(2.5)));
    EXPECT_FALSE(translate(AnyValue::holding(SharedArray<double>())));
    EXPECT_FALSE(translate(AnyValue::holding(Math::double4x4())));
    EXPECT_FALSE(translate(AnyValue::holding(Core::Transform::Transform())));
    EXPECT_EQ(calls.take(), CallRecorder::Lines(6, "VDataBlock::outputValue node node.port"));
    EXPECT_TRUE(script.called.empty());
    EXPECT_FALSE(port.isClean());
    EXPECT_EQ(errors.messages(), Messages());
}

TEST_F(TranslateToHost, ShowsAWritersFailureOnceAndIsTrueAndLeavesThePortDirty) {
    letTheWriterThrow(std::runtime_error("Internal error !"));
    CallRecorder calls;
    EXPECT_TRUE(translateFirst());
    EXPECT_EQ(calls.take(), (CallRecorder::Lines{"VDataBlock::outputValue node node.port",
                                                 "VGlobal::displayError Internal error !"}));
    EXPECT_EQ(errors.messages(), Messages{"Internal error !"});
    EXPECT_FALSE(port.isClean());
}

TEST_F(TranslateToHost, ShowsTheWholeTextOfAFailureWhateverItsLength) {
    Messages expected;
    for (const std::size_t length : {0u, 1u, 65u, 300u, 5000u}) {
        std::string text(length, 'x');
        if (length > 1) text.front() = text.back() = ' ';
        letTheWriterThrow(std::runtime_error(text));
        EXPECT_TRUE(translateFirst());
        expected.push_back(text);
    }
    letTheWriterThrow(std::runtime_error("M\xc3\xbcll ^1s %s"));
    EXPECT_TRUE(translateFirst());
    expected.push_back("M\xc3\xbcll ^1s %s");
    EXPECT_EQ(errors.messages(), expected);
}

TEST_F(TranslateToHost, ShowsTheTextOfADerivedFailureToo) {
    letTheWriterThrow(std::overflow_error("too much of it"));
    EXPECT_TRUE(translateFirst());
    const std::system_error systemError(std::make_error_code(std::errc::io_error), "disk");
    letTheWriterThrow(systemError);
    EXPECT_TRUE(translateFirst());
    EXPECT_EQ(errors.messages(), (Messages{"too much of it", systemError.what()}));
    EXPECT_FALSE(port.isClean());
}

TEST_F(TranslateToHost, IsTrueWhereTheHostDoesNotShowTheFailure) {
    letTheWriterThrow(std::runtime_error("lost"));
    CallRecorder calls;
    calls.fail("VGlobal::displayError");
    EXPECT_TRUE(translateFirst());
    EXPECT_EQ(calls.count("VGlobal::displayError"), 1u);
    EXPECT_FALSE(port.isClean());
}

TEST_F(TranslateToHost, KeepsWhatAFailingWriterWroteAndWritesAgainAfterwards) {
    script.write = [](const void*, VDataHandle& handle, const VPlug&) {
        handle.setDouble(6.5);
        throw std::runtime_error("once");
    };
    EXPECT_TRUE(translateFirst());
    EXPECT_EQ(port.handle.asDouble(), 6.5);
    script.write = [](const void*, VDataHandle&, const VPlug&) {};
    EXPECT_TRUE(translateFirst());
    EXPECT_TRUE(port.isClean());
    EXPECT_EQ(errors.messages(), Messages{"once"});
}

TEST_F(TranslateToHost, DoesNotLookAtTheStatusOfMarkingClean) {
    CallRecorder calls;
    calls.fail("VDataBlock::setClean");
    EXPECT_TRUE(translateFirst());
    EXPECT_EQ(errors.messages(), Messages());
}

TEST_F(TranslateToHost, WritesOnWhereTheHostHasNoOutput) {
    CallRecorder calls;
    calls.fail("VDataBlock::outputValue");
    bool isNull = false;
    script.write = [&](const void*, VDataHandle& handle, const VPlug&) {
        isNull = handle.isNull();
    };
    EXPECT_TRUE(translateFirst());
    EXPECT_TRUE(isNull);
    EXPECT_EQ(errors.messages(), Messages());
}

using TranslateToHostDeathTest = TranslateToHost;

TEST_F(TranslateToHostDeathTest, EndsTheProcessWhereAWriterThrowsAnythingElse) {
    letTheWriterThrow(std::logic_error("no runtime error"));
    EXPECT_DEATH(translateFirst(), "terminate called");
    letTheWriterThrow(std::bad_alloc());
    EXPECT_DEATH(translateFirst(), "terminate called");
    letTheWriterThrow(42);
    EXPECT_DEATH(translateFirst(), "terminate called");
}

}  // namespace
