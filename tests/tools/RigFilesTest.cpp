#include "tests/support/TemporaryFolder.h"
#include "tools/rig/RigFiles.h"

#include <filesystem>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <unistd.h>

namespace {

namespace fs = std::filesystem;
using namespace Tolvane::Tools;

// Nothing is closed to the superuser.
class AsAnybody {
public:
    explicit AsAnybody(const TemporaryFolder& folder) {
        if (m_former != 0) return;
        EXPECT_EQ(chown(folder.path("").c_str(), kNobody, kNobody), 0);
        EXPECT_EQ(seteuid(kNobody), 0);
    }
    AsAnybody(const AsAnybody&) = delete;
    AsAnybody& operator=(const AsAnybody&) = delete;
    ~AsAnybody() { EXPECT_EQ(seteuid(m_former), 0); }

private:
    static constexpr uid_t kNobody = 65534;
    const uid_t m_former = geteuid();
};

TEST(RigFiles, GoesOnBehindAFolderThatCannotBeRead) {
    const TemporaryFolder folder;
    fs::create_directories(folder.path("a/closed"));
    fs::create_directories(folder.path("b"));
    folder.write("a/z.bvh", "");
    folder.write("b/rig.fbx", "");
    fs::permissions(folder.path("a/closed"), fs::perms::none);
    const std::vector<FoundRig> found = [&] {
        const AsAnybody anybody(folder);
        return rigsIn(folder.path(""));
    }();
    ASSERT_EQ(found.size(), 3U);
    EXPECT_EQ(found[0].path, folder.path("a/closed"));
    ASSERT_TRUE(found[0].failure);
    EXPECT_EQ(found[0].failure->what(),
              folder.path("a/closed") + ": cannot be read: Permission denied");
    EXPECT_EQ(found[0].failure->file(), folder.path("a/closed"));
    EXPECT_EQ(found[1].path, folder.path("a/z.bvh"));
    EXPECT_EQ(found[2].path, folder.path("b/rig.fbx"));
    EXPECT_FALSE(found[1].failure || found[2].failure);
}

TEST(RigFiles, TakesAFolderWithoutRigsForOneThatFails) {
    const TemporaryFolder folder;
    fs::create_directories(folder.path("deep/er"));
    fs::create_directory_symlink(folder.path(""), folder.path("deep/round"));
    folder.write("deep/er/notes.md", "");
    const std::vector<FoundRig> found = rigsIn(folder.path("deep"));
    ASSERT_EQ(found.size(), 1U);
    EXPECT_EQ(found[0].path, folder.path("deep"));
    EXPECT_THAT(found[0].failure->what(),
                testing::HasSubstr("holds no file with the name of a rig"));
}

}  // namespace
