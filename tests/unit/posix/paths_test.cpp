#include <gtest/gtest.h>

#include "platform/current_directory.h"
#include "platform/paths.h"
#include "text/file_io.h"
#include "text/base/utf8.h"

namespace NScrivolt {
namespace {

WString Cwd() {
  WString directory;
  EXPECT_TRUE(Platform::CurrentDirectory(directory));
  return directory;
}

// Lexically, against the current directory for a relative path.
TEST(PosixFullPath, Normalises) {
  const WString cwd = Cwd();
  const WString base = cwd == u"/" ? WString() : cwd;
  const std::pair<const WChar*, WString> cases[] = {
      {u"/a/./b/../c", u"/a/c"},   {u"\\a\\b", u"/a/b"},    {u"//a///b", u"/a/b"},
      {u"/a/b/", u"/a/b/"},         {u"/a/b/..", u"/a"},      {u"/a/b/./", u"/a/b/"},
      {u"/..", u"/"},               {u"/../../x", u"/x"},     {u"/", u"/"},
      {u"/a\\..\\b", u"/b"},        {u"/a/b/c/../../d", u"/a/d"}, {u"/.x/..y", u"/.x/..y"},
      {u"x/y", base + u"/x/y"},     {u"./x", base + u"/x"},   {u"x\\y\\", base + u"/x/y/"},
  };
  for (const auto& [path, expected] : cases) {
    WString full;
    EXPECT_TRUE(Platform::FullPath(path, full)) << WideToUtf8(path);
    EXPECT_EQ(full, expected) << WideToUtf8(path);
  }
  WString full;
  EXPECT_FALSE(Platform::FullPath(u"", full));
}

TEST(PosixFolderPart, EverythingBeforeTheLastSeparator) {
  const std::pair<const WChar*, const WChar*> cases[] = {
      {u"/data/in/a.txt", u"/data/in"}, {u"/data/in/", u"/data/in"}, {u"a\\b.txt", u"a"},
      {u"/a.txt", u"/"},                 {u"a.txt", u""},              {u"", u""},
  };
  for (const auto& [path, folder] : cases) EXPECT_EQ(Platform::FolderPart(path), folder) << WideToUtf8(path);
  EXPECT_TRUE(Platform::IsPathSeparator(u'/'));
  EXPECT_TRUE(Platform::IsPathSeparator(u'\\'));
  EXPECT_FALSE(Platform::IsPathSeparator(u':'));
}

struct ResolveCase {
  const WChar* path;
  const WChar* basePath;
  WString expected;
};

TEST(PosixResolveFilePath, OneLeadingBackslashLiesBelowTheBasePath) {
  const WString cwd = Cwd();
  const WString base = cwd == u"/" ? WString() : cwd;
  const ResolveCase cases[] = {
      {u"\\a.txt", u"/data/", u"/data/a.txt"},
      {u"\\a.txt", u"/data", u"/data/a.txt"},
      {u"\\a.txt", u"/data//\\", u"/data/a.txt"},
      {u"\\t\\a.txt", u"/data/", u"/data/t/a.txt"},
      {u"\\a.txt", u"", base + u"/a.txt"},
      {u"\\\\server\\share\\a.txt", u"/data", u"/server/share/a.txt"},
      {u"/abs/a.txt", u"/data", u"/abs/a.txt"},
      {u"rel/a.txt", u"/data", base + u"/rel/a.txt"},
      {u"\\", u"/data", u"/"},
  };
  for (const ResolveCase& c : cases) {
    EXPECT_EQ(ResolveFilePath(c.path, c.basePath), c.expected)
        << WideToUtf8(c.path) << " below " << WideToUtf8(c.basePath);
  }
}

}  // namespace
}  // namespace NScrivolt
