#include "tools/rig/CrashGuard.h"

#include <csignal>
#include <cstdio>
#include <cstdlib>

#include <gtest/gtest.h>

namespace {

using Tolvane::Tools::CrashGuard;

TEST(CrashGuardDeathTest, TurnsACrashIntoOneLineAndStatus2) {
    EXPECT_EXIT(
        {
            const CrashGuard guard("rig.bvh: is\nso damaged");
            std::raise(SIGSEGV);
        },
        testing::ExitedWithCode(2), "^tolvane: rig.bvh: is so damaged\n$");
}

TEST(CrashGuardDeathTest, TurnsAnAbortIntoOneLineAndStatus2) {
    EXPECT_EXIT(
        {
            const CrashGuard guard("rig.bvh: is so damaged");
            std::abort();
        },
        testing::ExitedWithCode(2), "^tolvane: rig.bvh: is so damaged\n$");
}

TEST(CrashGuardDeathTest, SilencesWhatIsPrintedBeforeTheCrash) {
    EXPECT_EXIT(
        {
            const CrashGuard guard("rig.bvh: is so damaged");
            std::fputs("double free or corruption\n", stderr);
            std::abort();
        },
        testing::ExitedWithCode(2), "^tolvane: rig.bvh: is so damaged\n$");
}

TEST(CrashGuardDeathTest, RestoresStandardErrorAtItsEnd) {
    EXPECT_EXIT(
        {
            { const CrashGuard guard("rig.bvh: is so damaged"); }
            std::fputs("heard", stderr);
            std::exit(0);
        },
        testing::ExitedWithCode(0), "^heard$");
}

TEST(CrashGuardDeathTest, RestoresCrashesAtItsEnd) {
    EXPECT_EXIT(
        {
            { const CrashGuard guard("rig.bvh: is so damaged"); }
            std::raise(SIGSEGV);
        },
        testing::KilledBySignal(SIGSEGV), "^$");
}

}  // namespace
