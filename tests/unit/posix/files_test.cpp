#include <gtest/gtest.h>

#include <sys/stat.h>
#include <sys/sysmacros.h>
#include <unistd.h>

#include <fstream>
#include <thread>

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

bool RunsAsRoot() { return geteuid() == 0; }

struct stat StatOf(const std::filesystem::path& path) {
  struct stat info {};
  EXPECT_EQ(stat(path.c_str(), &info), 0) << path;
  return info;
}

TEST_F(PosixFiles, HardLinksStayLinked) {
  folder_.Put("one.txt", "old");
  fs::create_hard_link(folder_.Native("one.txt"), folder_.Native("two.txt"));
  ASSERT_TRUE(Platform::WriteWholeFile(folder_.Path("one.txt"), "new content"));
  EXPECT_EQ(folder_.Get("two.txt"), "new content");
  EXPECT_EQ(StatOf(folder_.Native("one.txt")).st_nlink, 2u);
  EXPECT_EQ(folder_.Names(), (std::set<std::string>{"one.txt", "two.txt"}));
}

TEST_F(PosixFiles, ShorterContentLeavesNothingOfTheOld) {
  for (const char* name : {"single.txt", "linked.txt"}) {
    folder_.Put(name, "a long old content");
    if (std::string(name) == "linked.txt") fs::create_hard_link(folder_.Native(name), folder_.Native("other.txt"));
    ASSERT_TRUE(Platform::WriteWholeFile(folder_.Path(name), "new"));
    EXPECT_EQ(folder_.Get(name), "new") << name;
  }
}

TEST_F(PosixFiles, LinkToAFileNotYetThereCreatesItAndStaysALink) {
  fs::create_symlink("made.txt", folder_.Native("link.txt"));
  ASSERT_TRUE(Platform::WriteWholeFile(folder_.Path("link.txt"), "new"));
  EXPECT_TRUE(fs::is_symlink(folder_.Native("link.txt")));
  EXPECT_EQ(folder_.Get("made.txt"), "new");
}

TEST_F(PosixFiles, OwnerAndGroupAreKept) {
  if (!RunsAsRoot()) GTEST_SKIP() << "only root can give a file away";
  folder_.Put("out.txt", "old");
  ASSERT_EQ(chown(folder_.Native("out.txt").c_str(), 65534, 65534), 0);
  ASSERT_TRUE(Platform::WriteWholeFile(folder_.Path("out.txt"), "new"));
  const struct stat info = StatOf(folder_.Native("out.txt"));
  EXPECT_EQ(info.st_uid, 65534u);
  EXPECT_EQ(info.st_gid, 65534u);
  EXPECT_EQ(folder_.Get("out.txt"), "new");
}

TEST_F(PosixFiles, WritableFileInAFolderThatTakesNoNewFileIsWrittenInPlace) {
  folder_.Put("out.txt", "old");
  fs::permissions(folder_.Native(""), fs::perms(0555));
  const bool written = Platform::WriteWholeFile(folder_.Path("out.txt"), "new");
  fs::permissions(folder_.Native(""), fs::perms(0755));
  EXPECT_TRUE(written);
  EXPECT_EQ(folder_.Get("out.txt"), "new");
  EXPECT_EQ(folder_.Names(), std::set<std::string>{"out.txt"});
}

// Root writes device nodes of its own, so that a fault could never replace
// the system's; other users write the system's, which they cannot replace.
TEST_F(PosixFiles, DevicesAreWrittenAndStayDevices) {
  WString null = u"/dev/null";
  WString full = u"/dev/full";
  if (RunsAsRoot()) {
    ASSERT_EQ(mknod(folder_.Native("null").c_str(), S_IFCHR | 0666, makedev(1, 3)), 0);
    ASSERT_EQ(mknod(folder_.Native("full").c_str(), S_IFCHR | 0666, makedev(1, 7)), 0);
    null = folder_.Path("null");
    full = folder_.Path("full");
  }
  EXPECT_TRUE(Platform::WriteWholeFile(null, "into nothing"));
  EXPECT_FALSE(Platform::WriteWholeFile(full, "no space")) << "a failed write is reported";
  for (const WString& device : {null, full}) {
    EXPECT_TRUE(S_ISCHR(StatOf(std::filesystem::path(device)).st_mode));
  }
  if (RunsAsRoot()) {
    EXPECT_EQ(folder_.Names(), (std::set<std::string>{"full", "null"}));
  }
}

TEST_F(PosixFiles, PipeIsWrittenAndStaysAPipe) {
  ASSERT_EQ(mkfifo(folder_.Native("pipe").c_str(), 0600), 0);
  std::string received;
  std::thread reader([&] { received = folder_.Get("pipe"); });
  EXPECT_TRUE(Platform::WriteWholeFile(folder_.Path("pipe"), "through the pipe"));
  reader.join();
  EXPECT_EQ(received, "through the pipe");
  EXPECT_TRUE(S_ISFIFO(StatOf(folder_.Native("pipe")).st_mode));
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
