#include "tools/rig/CrashGuard.h"

#include <csignal>
#include <cstdio>
#include <cstdlib>

#include <gtest/gtest.h>

namespace {

using Tolvane::Tools::CrashGuard;

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

TEST(CrashGuardDeathTest, WhatIsSaidBeforeTheCrashIsLeftOut) {
    EXPECT_EXIT(
        {
            const CrashGuard guard("rig.bvh: is so damaged");
            std::fputs("double free or corruption\n", stderr);
            std::abort();
        },
        testing::ExitedWithCode(2), "^tolvane: rig.bvh: is so damaged\n$");
}

TEST(CrashGuardDeathTest, AfterTheGuardStandardErrorIsHeardAgain) {
    EXPECT_EXIT(
        {
            { const CrashGuard guard("rig.bvh: is so damaged"); }
            std::fputs("heard", stderr);
            std::exit(0);
        },
        testing::ExitedWithCode(0), "^heard$");
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
