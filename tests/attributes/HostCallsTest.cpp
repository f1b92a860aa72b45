// The host's calls in their order: the host and whoever reads its traces see nothing else.
#include "attributes/PortAttribute.h"
#include "tests/support/AttributeTree.h"
#include "tests/support/CallRecorder.h"

#include <Pelmor/Library.h>

#include <algorithm>
#include <string>

#include <gtest/gtest.h>

namespace {

using namespace Tolvane;
using TestSupport::CallRecorder;
using Lines = CallRecorder::Lines;

// A struct with one member of each kind, some of them arrays.
class HostCalls : public testing::Test {
protected:
    HostCalls() {
        const Pelmor::Type mode = library.defineEnum("Rigging::Mode", {{"off", 0}, {"on", 70000}});
        const Pelmor::Type part =
            library.defineStruct("Rigging::Part", {{"weights", library.getType("double")}});
        library.defineStruct("Rigging::Rig", {{"names", library.getType("array<string>")},
                                              {"root", library.getType("Math::double4x4")},
                                              {"values", library.getType("array<array<double>>")},
                                              {"parts", Pelmor::Library::arrayOf(part)},
                                              {"mode", mode},
                                              {"objects", library.getType("array<Object>")},
                                              {"flags", library.getType("array<bool>")},
                                              {"count", library.getType("int")}});
    }

    VObject create(const char* type, bool isInput) {
        return createPortAttribute(library.getType(type), "port", isInput);
    }

    Pelmor::Library library;
};

TEST_F(HostCalls, MakeEachChildBeforeTheNextAndFreeItsNameAtTheEnd) {
    CallRecorder calls;
    create("Rigging::Rig", true);
    EXPECT_EQ(calls.take(), (Lines{"VFnCompoundAttribute::create port, port",
                                   "VFnAttribute::setReadable port false",
                                   "VFnAttribute::setWritable port true",
                                   "VFnAttribute::setKeyable port true",
                                   "VFnAttribute::setArray port false",
                                   "VFnTypedAttribute::create names, names, 4, ",
                                   "VFnAttribute::setArray names true",
                                   "VFnCompoundAttribute::addChild port names",
                                   "VFnMatrixAttribute::create root, root, 1",
                                   "VFnAttribute::setArray root false",
                                   "VFnCompoundAttribute::addChild port root",
                                   "VFnCompoundAttribute::create parts, parts",
                                   "VFnAttribute::setReadable parts false",
                                   "VFnAttribute::setWritable parts true",
                                   "VFnAttribute::setKeyable parts true",
                                   "VFnAttribute::setArray parts false",
                                   "VFnNumericAttribute::create weights_A, weights_A, 14, 0",
                                   "VFnAttribute::setArray weights_A false",
                                   "VFnCompoundAttribute::addChild parts weights_A",
                                   "VFnCompoundAttribute::numChildren parts",
                                   "VFnCompoundAttribute::child parts 0",
                                   "VFnAttribute::VFnAttribute weights_A",
                                   "VFnAttribute::setEnforcingUniqueName weights_A false",
                                   "VFnCompoundAttribute::numChildren parts",
                                   "VFnCompoundAttribute::addChild port parts",
                                   "VFnEnumAttribute::create mode, mode, 0",
                                   "VFnAttribute::setReadable mode false",
                                   "VFnAttribute::setWritable mode true",
                                   "VFnAttribute::setKeyable mode true",
                                   "VFnAttribute::setArray mode false",
                                   "VFnEnumAttribute::addField mode off, 0",
                                   "VFnEnumAttribute::addField mode on, 4464",
                                   "VFnCompoundAttribute::addChild port mode",
                                   "VFnGenericAttribute::create objects, objects",
                                   "VFnAttribute::setArray objects true",
                                   "VFnCompoundAttribute::addChild port objects",
                                   "VFnNumericAttribute::create flags, flags, 1, 0",
                                   "VFnCompoundAttribute::addChild port flags",
                                   "VFnNumericAttribute::create count, count, 7, 0",
                                   "VFnCompoundAttribute::addChild port count",
                                   "VFnCompoundAttribute::numChildren port",
                                   "VFnCompoundAttribute::child port 0",
                                   "VFnAttribute::VFnAttribute names",
                                   "VFnAttribute::setEnforcingUniqueName names false",
                                   "VFnCompoundAttribute::numChildren port",
                                   "VFnCompoundAttribute::child port 1",
                                   "VFnAttribute::VFnAttribute root",
                                   "VFnAttribute::setEnforcingUniqueName root false",
                                   "VFnCompoundAttribute::numChildren port",
                                   "VFnCompoundAttribute::child port 2",
                                   "VFnAttribute::VFnAttribute parts",
                                   "VFnAttribute::setEnforcingUniqueName parts false",
                                   "VFnCompoundAttribute::numChildren port",
                                   "VFnCompoundAttribute::child port 3",
                                   "VFnAttribute::VFnAttribute mode",
                                   "VFnAttribute::setEnforcingUniqueName mode false",
                                   "VFnCompoundAttribute::numChildren port",
                                   "VFnCompoundAttribute::child port 4",
                                   "VFnAttribute::VFnAttribute objects",
                                   "VFnAttribute::setEnforcingUniqueName objects false",
                                   "VFnCompoundAttribute::numChildren port",
                                   "VFnCompoundAttribute::child port 5",
                                   "VFnAttribute::VFnAttribute flags",
                                   "VFnAttribute::setEnforcingUniqueName flags false",
                                   "VFnCompoundAttribute::numChildren port",
                                   "VFnCompoundAttribute::child port 6",
                                   "VFnAttribute::VFnAttribute count",
                                   "VFnAttribute::setEnforcingUniqueName count false",
                                   "VFnCompoundAttribute::numChildren port"}));
}

TEST_F(HostCalls, ForAnArrayOfAnEnumSetTheFlagsBeforeTheFields) {
    CallRecorder calls;
    create("array<Rigging::Mode>", false);
    EXPECT_EQ(
        calls.take(),
        (Lines{"VFnEnumAttribute::create port, port, 0", "VFnAttribute::setReadable port true",
               "VFnAttribute::setWritable port false", "VFnAttribute::setKeyable port false",
               "VFnAttribute::setArray port true", "VFnEnumAttribute::addField port off, 0",
               "VFnEnumAttribute::addField port on, 4464"}));
}

TEST_F(HostCalls, ForAStructWithoutMembersAskForItsChildrenOnce) {
    library.defineStruct("Rigging::Empty", {});
    CallRecorder calls;
    create("array<Rigging::Empty>", true);
    EXPECT_EQ(
        calls.take(),
        (Lines{"VFnCompoundAttribute::create port, port", "VFnAttribute::setReadable port false",
               "VFnAttribute::setWritable port true", "VFnAttribute::setKeyable port true",
               "VFnAttribute::setArray port true", "VFnCompoundAttribute::numChildren port"}));
}

TEST_F(HostCalls, AreNoneForALeafType) {
    CallRecorder calls;
    create("double", true);
    create("array<string>", false);
    EXPECT_EQ(calls.take(), Lines());
}

TEST_F(HostCalls, GoOnWhereAFlagOrAFieldIsRefused) {
    CallRecorder calls;
    create("Rigging::Rig", true);
    const Lines undisturbed = calls.take();
    for (const char* operation :
         {"VFnAttribute::setReadable", "VFnAttribute::setWritable", "VFnAttribute::setKeyable",
          "VFnAttribute::setArray", "VFnAttribute::setEnforcingUniqueName",
          "VFnEnumAttribute::addField"}) {
        calls.fail(operation);
        EXPECT_FALSE(create("Rigging::Rig", true).isNull()) << operation;
        EXPECT_EQ(calls.take(), undisturbed) << operation;
    }
}

TEST_F(HostCalls, HandOverAChildThatTheHostFailedToMakeAndGoOn) {
    CallRecorder calls;
    calls.fail("VFnTypedAttribute::create");
    const VObject rig = create("Rigging::Rig", true);
    const Lines lines = calls.take();
    const auto created =
        std::find(lines.begin(), lines.end(), "VFnTypedAttribute::create names, names, 4, ");
    ASSERT_GE(lines.end() - created, 4);
    EXPECT_EQ(Lines(created + 1, created + 4),
              (Lines{"VFnAttribute::setArray true", "VFnCompoundAttribute::addChild port",
                     "VFnMatrixAttribute::create root, root, 1"}));
    EXPECT_EQ(VFnCompoundAttribute(rig).numChildren(), 6u);
}

TEST_F(HostCalls, GoOnWhereAChildIsRefused) {
    CallRecorder calls;
    calls.fail("VFnCompoundAttribute::addChild");
    const VObject rig = create("Rigging::Rig", true);
    EXPECT_EQ(calls.count("VFnCompoundAttribute::addChild"), 8u);
    EXPECT_EQ(VFnCompoundAttribute(rig).numChildren(), 6u);
    EXPECT_EQ(TestSupport::treeOf(rig)[1], "  root: matrix 1 rw---");
}

}  // namespace
