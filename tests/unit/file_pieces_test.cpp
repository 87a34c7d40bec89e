#include <gtest/gtest.h>

#include <set>
#include <string>

#include "platform/files.h"
#include "unit/scratch_folder.h"

namespace NScrivolt {
namespace {

class FilePieces : public ::testing::Test {
 protected:
  Testing::CScratchFolder folder_;
};

// Neither a folder nor a missing file opens; a file is handed out in pieces
// of the asked size to its end.
TEST_F(FilePieces, AReaderOpensOnlyFilesAndReadsThemInPieces) {
  folder_.Put("in.txt", "0123456789");
  Platform::CFileReader reader;
  EXPECT_FALSE(reader.Open(folder_.Folder()));
  EXPECT_FALSE(reader.Open(folder_.Path("missing.txt")));
  ASSERT_TRUE(reader.Open(folder_.Path("in.txt")));
  EXPECT_EQ(reader.SizeHint(), 10u);
  std::string pieces;
  char buffer[4];
  for (size_t count = 1; count != 0;) {
    ASSERT_TRUE(reader.Read(buffer, sizeof buffer, count));
    if (count != 0) pieces += "[" + std::string(buffer, count) + "]";
  }
  EXPECT_EQ(pieces, "[0123][4567][89]");
}

// While the pieces are written the target keeps its old content.
TEST_F(FilePieces, AReplacementShowsOnlyWhenCommitted) {
  folder_.Put("out.txt", "old");
  Platform::CFileReplacement file;
  ASSERT_TRUE(file.Open(folder_.Path("out.txt")));
  EXPECT_TRUE(file.Write("new "));
  EXPECT_TRUE(file.Write(""));
  EXPECT_TRUE(file.Write("content"));
  EXPECT_EQ(folder_.Get("out.txt"), "old");
  EXPECT_TRUE(file.Commit());
  EXPECT_EQ(folder_.Get("out.txt"), "new content");
  EXPECT_EQ(folder_.Names(), std::set<std::string>{"out.txt"});
  EXPECT_FALSE(file.Commit());
  EXPECT_FALSE(file.Write("more"));
}

TEST_F(FilePieces, AnUncommittedReplacementLeavesNothingBehind) {
  folder_.Put("kept.txt", "old");
  for (const char* name : {"kept.txt", "new.txt"}) {
    Platform::CFileReplacement file;
    ASSERT_TRUE(file.Open(folder_.Path(name)));
    EXPECT_TRUE(file.Write("new"));
  }
  EXPECT_EQ(folder_.Get("kept.txt"), "old");
  EXPECT_EQ(folder_.Names(), std::set<std::string>{"kept.txt"});
}

}  // namespace
}  // namespace NScrivolt
