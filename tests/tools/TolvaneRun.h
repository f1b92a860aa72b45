// What the tests of `tolvane run` share: a folder of their own, and a small rig in it.
#pragma once

#include "tests/support/TolvaneProcess.h"
#include "tests/tools/SampleRigs.h"

#include <string>

#include <gtest/gtest.h>

class TolvaneRun : public testing::Test {
protected:
    std::string rig() const { return folder.write("rig.bvh", sampleBvh()); }

    TemporaryFolder folder;
};
