// The host's calls in their order: the host and whoever reads its traces see nothing else.
#include "tests/support/AttributeTree.h"
#include "tests/support/CallRecorder.h"

#include <Pelmor/Library.h>
#include <Tolvane/attributes/PortAttribute.h>

#include <algorithm>
#include <string>

#include <gtest/gtest.h>

namespace {

using TestSupport::CallRecorder;
using Lines = CallRecorder::Lines;

// A struct with one member of each kind, some of them arrays.
class PortAttributeCalls : public testing::Test {
protected:
    PortAttributeCalls() {
        const Pelmor::Type mode = library.defineEnum("Rigging::Mode", {{"off", 0}, {"on", 70000}});
        const Pelmor::Type part =
            library.defineStruct("Rigging::Part", {{"weights", library.getType("double")}});
        library.defineStruct("Rigging::Rig", {{"name", library.getType("string")},
                                              {"roots", library.getType("array<Math::double4x4>")},
                                              {"part", part},
                                              {"mode", mode},
                                              {"object", library.getType("Object")},
                                              {"flag", library.getType("bool")},
                                              {"count", library.getType("int")}});
    }

    VObject create(const char* type, bool isInput = true) {
        return Tolvane::createPortAttribute(library.getType(type), "port", isInput);
    }
    // The last calls for a compound: each child, by its index, gets its flag.
    static void appendFlagging(Lines& lines, const std::string& compound, const Lines& children) {
        lines.push_back("VFnCompoundAttribute::numChildren " + compound);
        for (std::size_t i = 0; i < children.size(); ++i) {
            lines.push_back("VFnCompoundAttribute::child " + compound + ' ' + std::to_string(i));
            lines.push_back("VFnAttribute::VFnAttribute " + children[i]);
            lines.push_back("VFnAttribute::setEnforcingUniqueName " + children[i] + " false");
            lines.push_back("VFnCompoundAttribute::numChildren " + compound);
        }
    }

    Pelmor::Library library;
};

TEST_F(PortAttributeCalls, MakeEachChildBeforeTheNextAndFlagThemAtTheEnd) {
    Lines expected{"VFnCompoundAttribute::create port, port",
                   "VFnAttribute::setReadable port false",
                   "VFnAttribute::setWritable port true",
                   "VFnAttribute::setKeyable port true",
                   "VFnAttribute::setArray port false",
                   "VFnTypedAttribute::create name, name, 4, ",
                   "VFnAttribute::setArray name false",
                   "VFnCompoundAttribute::addChild port name",
                   "VFnMatrixAttribute::create roots, roots, 1",
                   "VFnAttribute::setArray roots true",
                   "VFnCompoundAttribute::addChild port roots",
                   "VFnCompoundAttribute::create part, part",
                   "VFnAttribute::setReadable part false",
                   "VFnAttribute::setWritable part true",
                   "VFnAttribute::setKeyable part true",
                   "VFnAttribute::setArray part false",
                   "VFnNumericAttribute::create weights_A, weights_A, 14, 0",
                   "VFnAttribute::setArray weights_A false",
                   "VFnCompoundAttribute::addChild part weights_A"};
    appendFlagging(expected, "part", {"weights_A"});
    const Lines others{"VFnCompoundAttribute::addChild port part",
                       "VFnEnumAttribute::create mode, mode, 0",
                       "VFnAttribute::setReadable mode false",
                       "VFnAttribute::setWritable mode true",
                       "VFnAttribute::setKeyable mode true",
                       "VFnAttribute::setArray mode false",
                       "VFnEnumAttribute::addField mode off, 0",
                       "VFnEnumAttribute::addField mode on, 4464",
                       "VFnCompoundAttribute::addChild port mode",
                       "VFnGenericAttribute::create object, object",
                       "VFnAttribute::setArray object false",
                       "VFnCompoundAttribute::addChild port object",
                       "VFnNumericAttribute::create flag, flag, 1, 0",
                       "VFnCompoundAttribute::addChild port flag",
                       "VFnNumericAttribute::create count, count, 7, 0",
                       "VFnCompoundAttribute::addChild port count"};
    expected.insert(expected.end(), others.begin(), others.end());
    appendFlagging(expected, "port", {"name", "roots", "part", "mode", "object", "flag", "count"});
    CallRecorder calls;
    create("Rigging::Rig");
    EXPECT_EQ(calls.take(), expected);
}

TEST_F(PortAttributeCalls, SetEachFlagOfAnArrayOfAnEnumForAnOutputBeforeTheFields) {
    CallRecorder calls;
    create("array<Rigging::Mode>", false);
    EXPECT_EQ(
        calls.lines(),
        (Lines{"VFnEnumAttribute::create port, port, 0", "VFnAttribute::setReadable port true",
               "VFnAttribute::setWritable port false", "VFnAttribute::setKeyable port false",
               "VFnAttribute::setArray port true", "VFnEnumAttribute::addField port off, 0",
               "VFnEnumAttribute::addField port on, 4464"}));
}

TEST_F(PortAttributeCalls, AreNoneForALeafType) {
    CallRecorder calls;
    create("double");
    create("array<string>");
    EXPECT_EQ(calls.take(), Lines());
}

TEST_F(PortAttributeCalls, GoOnWhereAFlagOrAFieldIsRefused) {
    CallRecorder calls;
    create("Rigging::Rig");
    const Lines undisturbed = calls.take();
    for (const char* operation :
         {"VFnAttribute::setReadable", "VFnAttribute::setWritable", "VFnAttribute::setKeyable",
          "VFnAttribute::setArray", "VFnAttribute::setEnforcingUniqueName",
          "VFnEnumAttribute::addField"}) {
        calls.fail(operation);
        EXPECT_FALSE(create("Rigging::Rig").isNull()) << operation;
        EXPECT_EQ(calls.take(), undisturbed) << operation;
    }
}

TEST_F(PortAttributeCalls, HandOverAChildThatTheHostFailedToMakeAndGoOn) {
    CallRecorder calls;
    calls.fail("VFnTypedAttribute::create");
    const VObject rig = create("Rigging::Rig");
    const Lines lines = calls.take();
    const auto created =
        std::find(lines.begin(), lines.end(), "VFnTypedAttribute::create name, name, 4, ");
    ASSERT_GE(lines.end() - created, 4);
    EXPECT_EQ(Lines(created + 1, created + 4),
              (Lines{"VFnAttribute::setArray false", "VFnCompoundAttribute::addChild port",
                     "VFnMatrixAttribute::create roots, roots, 1"}));
    EXPECT_EQ(VFnCompoundAttribute(rig).numChildren(), 6u);
}

TEST_F(PortAttributeCalls, GoOnWhereAChildIsRefused) {
    CallRecorder calls;
    calls.fail("VFnCompoundAttribute::addChild");
    const VObject rig = create("Rigging::Rig");
    EXPECT_EQ(calls.count("VFnCompoundAttribute::addChild"), 8u);
    EXPECT_EQ(VFnCompoundAttribute(rig).numChildren(), 6u);
    EXPECT_EQ(TestSupport::treeOf(rig)[1], "  roots: matrix 1 rw-a-");
}

}  // namespace
