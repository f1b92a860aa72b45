#include "tests/support/TemporaryFolder.h"
#include "tools/rig/RigFiles.h"

#include <array>
#include <filesystem>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <linux/capability.h>
#include <sys/syscall.h>
#include <unistd.h>

namespace {

namespace fs = std::filesystem;
using namespace Tolvane::Tools;

// Nothing is closed to the superuser, but for these capabilities, which the thread lays down. It
// stays the same user, who may be the only one that can reach the folder.
class WithoutCapabilities {
public:
    WithoutCapabilities() {
        EXPECT_EQ(syscall(SYS_capget, &m_header, m_former.data()), 0);
        auto none = m_former;
        for (auto& each : none) each.effective = 0;
        EXPECT_EQ(syscall(SYS_capset, &m_header, none.data()), 0);
    }
    WithoutCapabilities(const WithoutCapabilities&) = delete;
    WithoutCapabilities& operator=(const WithoutCapabilities&) = delete;
    ~WithoutCapabilities() { EXPECT_EQ(syscall(SYS_capset, &m_header, m_former.data()), 0); }

private:
    __user_cap_header_struct m_header{_LINUX_CAPABILITY_VERSION_3, 0};
    std::array<__user_cap_data_struct, _LINUX_CAPABILITY_U32S_3> m_former{};
};

TEST(RigFiles, GoesOnBehindAFolderThatCannotBeRead) {
    const TemporaryFolder folder;
    fs::create_directories(folder.path("a/closed"));
    fs::create_directories(folder.path("b"));
    folder.write("a/z.bvh", "");
    folder.write("b/rig.fbx", "");
    fs::permissions(folder.path("a/closed"), fs::perms::none);
    const std::vector<FoundRig> found = [&] {
        const WithoutCapabilities none;
        return rigsIn(folder.path(""));
    }();
    // Or else not everybody could remove it.
    fs::permissions(folder.path("a/closed"), fs::perms::owner_all);
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
