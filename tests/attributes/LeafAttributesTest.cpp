#include "attributes/LeafAttributes.h"
#include "tests/support/AttributeTree.h"

#include <gtest/gtest.h>

namespace {

using namespace Tolvane;
using Lines = TestSupport::AttributeLines;
using TestSupport::treeOf;

TEST(LeafAttributes, OfStringsAreTypedAsTheHostsStringData) {
    EXPECT_EQ(treeOf(createStringAttribute("leaf", false)), Lines{"leaf: typed 4 rw--u"});
    EXPECT_EQ(treeOf(createStringAttribute("leaf", true)), Lines{"leaf: typed 4 rw-au"});
}

TEST(LeafAttributes, OfMatricesAreDoublePrecision) {
    EXPECT_EQ(treeOf(createMatrixAttribute("leaf", false)), Lines{"leaf: matrix 1 rw--u"});
    EXPECT_EQ(treeOf(createMatrixAttribute("leaf", true)), Lines{"leaf: matrix 1 rw-au"});
}

TEST(LeafAttributes, OfDoublesAreNumericAndStartAtZero) {
    EXPECT_EQ(treeOf(createDoubleAttribute("leaf", false)),
              Lines{"leaf: numeric 14 of 0.000000 rw--u"});
    EXPECT_EQ(treeOf(createDoubleAttribute("leaf", true)),
              Lines{"leaf: numeric 14 of 0.000000 rw-au"});
}

TEST(LeafAttributes, OfObjectsAreGenericAndAcceptNoData) {
    EXPECT_EQ(treeOf(createObjectAttribute("leaf", false)), Lines{"leaf: generic 0 rw--u"});
    EXPECT_EQ(treeOf(createObjectAttribute("leaf", true)), Lines{"leaf: generic 0 rw-au"});
}

TEST(LeafAttributes, OfBoolsAndIntsAreNumericAndNeverArrays) {
    EXPECT_EQ(treeOf(createBoolAttribute("leaf")), Lines{"leaf: numeric 1 of 0.000000 rw--u"});
    EXPECT_EQ(treeOf(createIntAttribute("leaf")), Lines{"leaf: numeric 7 of 0.000000 rw--u"});
}

}  // namespace
