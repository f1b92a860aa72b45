#include "tests/support/AttributeTree.h"
#include "tests/support/CallRecorder.h"

#include <Tolvane/attributes/LeafAttributes.h>

#include <string>

#include <gtest/gtest.h>

namespace {

using namespace Tolvane;
using Lines = TestSupport::AttributeLines;

// What is not set here stays at the host's defaults. An array's flag is set either way.
void expectLeaf(VObject (*create)(const VString&, bool), const std::string& creation,
                const std::string& kind) {
    for (const bool isArray : {false, true}) {
        TestSupport::CallRecorder calls;
        const VObject leaf = create("leaf", isArray);
        EXPECT_EQ(calls.take(), (Lines{creation, isArray ? "VFnAttribute::setArray leaf true"
                                                         : "VFnAttribute::setArray leaf false"}));
        EXPECT_EQ(TestSupport::treeOf(leaf),
                  Lines{"leaf: " + kind + (isArray ? " rw-au" : " rw--u")});
    }
}

TEST(LeafAttribute, OfAStringIsTypedAsTheHostsStringData) {
    expectLeaf(createStringAttribute, "VFnTypedAttribute::create leaf, leaf, 4, ", "typed 4");
}

TEST(LeafAttribute, OfAMatrixIsDoublePrecision) {
    expectLeaf(createMatrixAttribute, "VFnMatrixAttribute::create leaf, leaf, 1", "matrix 1");
}

TEST(LeafAttribute, OfADoubleIsNumericAndStartsAtZero) {
    expectLeaf(createDoubleAttribute, "VFnNumericAttribute::create leaf, leaf, 14, 0",
               "numeric 14 of 0.000000");
}

TEST(LeafAttribute, OfAnObjectIsGenericAndAcceptsNoData) {
    expectLeaf(createObjectAttribute, "VFnGenericAttribute::create leaf, leaf", "generic 0");
}

TEST(LeafAttribute, OfABoolOrAnIntIsNumericAndNeverAnArray) {
    TestSupport::CallRecorder calls;
    const VObject ofBool = createBoolAttribute("leaf"), ofInt = createIntAttribute("leaf");
    EXPECT_EQ(calls.take(), (Lines{"VFnNumericAttribute::create leaf, leaf, 1, 0",
                                   "VFnNumericAttribute::create leaf, leaf, 7, 0"}));
    EXPECT_EQ(TestSupport::treeOf(ofBool), Lines{"leaf: numeric 1 of 0.000000 rw--u"});
    EXPECT_EQ(TestSupport::treeOf(ofInt), Lines{"leaf: numeric 7 of 0.000000 rw--u"});
}

}  // namespace
