#include "tools/rig/Limbs.h"

#include <gtest/gtest.h>

namespace {

using Tolvane::Tools::Limb;
using Tolvane::Tools::Rig;
using Tolvane::Tools::splitIntoLimbs;

constexpr int kRoot = -1;

Rig rigWithParents(const std::vector<int>& parents) {
    Rig rig;
    for (const int parent : parents) {
        rig.joints.emplace_back();
        if (parent != kRoot) rig.joints.back().parent = static_cast<std::size_t>(parent);
    }
    return rig;
}

TEST(SplitIntoLimbs, MakesOneLimbOfAChain) {
    EXPECT_EQ(splitIntoLimbs(rigWithParents({kRoot, 0, 1, 2})), (std::vector<Limb>{{0, 1, 2, 3}}));
}

TEST(SplitIntoLimbs, MakesALimbOfASingleJoint) {
    EXPECT_EQ(splitIntoLimbs(rigWithParents({kRoot})), (std::vector<Limb>{{0}}));
}

TEST(SplitIntoLimbs, EndsALimbAtABranchingAndBeginsOneForEachChild) {
    // 0 - 1 - 2 - 3
    //      \- 4 - 5
    EXPECT_EQ(splitIntoLimbs(rigWithParents({kRoot, 0, 1, 2, 1, 4})),
              (std::vector<Limb>{{0, 1}, {2, 3}, {4, 5}}));
}

TEST(SplitIntoLimbs, BeginsALimbAtEachRoot) {
    EXPECT_EQ(splitIntoLimbs(rigWithParents({kRoot, 0, kRoot, 2})),
              (std::vector<Limb>{{0, 1}, {2, 3}}));
}

TEST(SplitIntoLimbs, KeepsAChainTogetherWhoseJointsAreNotNeighboursInTheRig) {
    EXPECT_EQ(splitIntoLimbs(rigWithParents({kRoot, 0, 0, 1, 2})),
              (std::vector<Limb>{{0}, {1, 3}, {2, 4}}));
}

}  // namespace
