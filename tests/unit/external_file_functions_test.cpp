#include <gtest/gtest.h>

#include <string>

#include "unit/scratch_folder_run.h"

namespace NScrivolt {
namespace {

using Testing::CScratchFolderRun;

// A failed processing leaves the current directory as it was, so the paths
// after it are still taken from the including template's folder.
TEST(ExternalFiles, TheCurrentDirectoryIsBackAfterAFailedProcessing) {
  CScratchFolderRun run;
  run.Put({{"sub/a.txt", "<# use param: \"missing\" #>"}, {"b.txt", "top b"}});
  EXPECT_NE(run.Run(u"<# process file: \"sub/a.txt\" #>").errors, u"");
  EXPECT_EQ(WideToUtf8(run.Run(u"<# input file: \"b.txt\" #>").output), "top b");
}

// Each nested processing is one level deeper: a file that processes itself
// stops at the nesting limit, with one line for every call on the way out.
TEST(ExternalFiles, AFileThatProcessesItselfStopsAtTheNestingLimit) {
  CScratchFolderRun run;
  run.Put({{"self.txt", "<# process file: \"self.txt\" #>"}});
  std::string expected = "- Too many nested function calls (1000) at line 1, column 1, file \"self.txt\"";
  for (int level = 0; level < kMaxNestingDepth; ++level) {
    expected += "\n- Error processing function \"process\" at line 1, column 4, file \"self.txt\"";
  }
  expected += CALL_FAILED("process", 1, 4);
  EXPECT_EQ(Lines(run.Run(u"<# process file: \"self.txt\" #>").errors), expected);
}

}  // namespace
}  // namespace NScrivolt
