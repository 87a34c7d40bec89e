#include "platform/folders.h"

#include <gtest/gtest.h>

#include "platform/files.h"
#include "scratch_folder.h"

namespace NScrivolt::Platform {
namespace {

TEST(CreateFolder, MakesOneLevelAndNotAnExistingOne) {
  Testing::CScratchFolder scratch;
  EXPECT_TRUE(CreateFolder(scratch.Path("settings")));
  EXPECT_TRUE(FileExists(scratch.Path("settings")));
  EXPECT_FALSE(CreateFolder(scratch.Path("settings")));
  EXPECT_FALSE(CreateFolder(scratch.Path("missing/below")));
}

}  // namespace
}  // namespace NScrivolt::Platform
