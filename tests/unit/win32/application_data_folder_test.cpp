#include <gtest/gtest.h>

#include "platform/files.h"
#include "platform/folders.h"

namespace NScrivolt::Platform {
namespace {

TEST(ApplicationDataFolder, BothScopesNameExistingFolders) {
  for (FolderScope scope : {FolderScope::PerUser, FolderScope::AllUsers}) {
    WString folder;
    ASSERT_TRUE(ApplicationDataFolder(scope, folder));
    EXPECT_TRUE(FileExists(folder));
  }
  WString perUser, allUsers;
  ASSERT_TRUE(ApplicationDataFolder(FolderScope::PerUser, perUser));
  ASSERT_TRUE(ApplicationDataFolder(FolderScope::AllUsers, allUsers));
  EXPECT_NE(perUser, allUsers);
}
}  // namespace
}  // namespace NScrivolt::Platform
