#include "tools/CrashGuard.h"

#include <csignal>
#include <cstdlib>

#include <gtest/gtest.h>

namespace {

using Tolvane::CrashGuard;

TEST(CrashGuardDeathTest, ACrashBecomesOneLineAndStatus2) {
    EXPECT_EXIT(
        {
            const CrashGuard guard("rig.bvh: is\nso damaged");
            std::raise(SIGSEGV);
        },
        testing::ExitedWithCode(2), "^tolvane: rig.bvh: is so damaged\n$");
}

TEST(CrashGuardDeathTest, AnAbortBecomesThatToo) {
    EXPECT_EXIT(
        {
            const CrashGuard guard("rig.bvh: is so damaged");
            std::abort();
        },
        testing::ExitedWithCode(2), "^tolvane: rig.bvh: is so damaged\n$");
}

TEST(CrashGuardDeathTest, AfterTheGuardACrashIsACrash) {
    EXPECT_EXIT(
        {
            { const CrashGuard guard("rig.bvh: is so damaged"); }
            std::raise(SIGSEGV);
        },
        testing::KilledBySignal(SIGSEGV), "^$");
}

}  // namespace
