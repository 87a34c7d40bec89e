#include <gtest/gtest.h>

#include <fstream>

#include "platform/files.h"
#include "unit/scratch_folder.h"

namespace NScrivolt {
namespace {

namespace fs = std::filesystem;

class PosixFiles : public ::testing::Test {
 protected:
  Testing::CScratchFolder folder_;
};

TEST_F(PosixFiles, ReplacingKeepsThePermissionBits) {
  folder_.Put("out.txt", "old");
  fs::permissions(folder_.Native("out.txt"), fs::perms(0640));
  ASSERT_TRUE(Platform::WriteWholeFile(folder_.Path("out.txt"), "new"));
  EXPECT_EQ(fs::status(folder_.Native("out.txt")).permissions(), fs::perms(0640));
  EXPECT_EQ(folder_.Get("out.txt"), "new");
}

TEST_F(PosixFiles, SymbolicLinkIsWrittenThrough) {
  folder_.Put("real.txt", "old");
  fs::create_symlink(folder_.Native("real.txt"), folder_.Native("link.txt"));
  ASSERT_TRUE(Platform::WriteWholeFile(folder_.Path("link.txt"), "new"));
  EXPECT_TRUE(fs::is_symlink(folder_.Native("link.txt")));
  EXPECT_EQ(folder_.Get("real.txt"), "new");
  EXPECT_EQ(folder_.Names(), (std::set<std::string>{"link.txt", "real.txt"}));
}

TEST_F(PosixFiles, ReadOnlyTargetIsNotReplaced) {
  folder_.Put("out.txt", "old");
  fs::permissions(folder_.Native("out.txt"), fs::perms(0444));
  if (std::ofstream(folder_.Native("out.txt"), std::ios::app)) {
    GTEST_SKIP() << "this user writes to read-only files (running as root)";
  }
  EXPECT_FALSE(Platform::WriteWholeFile(folder_.Path("out.txt"), "new"));
  EXPECT_EQ(folder_.Get("out.txt"), "old");
  EXPECT_EQ(folder_.Names(), std::set<std::string>{"out.txt"});
}

// Files whose size the system reports as 0 are still read to their end.
TEST_F(PosixFiles, FileWithoutAKnownSizeIsReadToItsEnd) {
  const WString path = u"/proc/self/status";
  if (!Platform::FileExists(path)) GTEST_SKIP() << "no /proc on this system";
  std::string bytes;
  ASSERT_TRUE(Platform::ReadWholeFile(path, bytes));
  EXPECT_EQ(bytes.rfind("Name:", 0), 0u);
}

}  // namespace
}  // namespace NScrivolt
