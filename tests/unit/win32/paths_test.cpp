#include <gtest/gtest.h>

#include <windows.h>

#include "platform/current_directory.h"
#include "platform/files.h"
#include "platform/paths.h"
#include "text/file_io.h"
#include "text/base/utf8.h"
#include "unit/scratch_folder.h"

namespace NScrivolt {
namespace {

WString Cwd() {
  WString directory;
  EXPECT_TRUE(Platform::CurrentDirectory(directory));
  return directory;
}

// The current directory with exactly one "\" behind it.
WString CwdFolder() {
  const WString cwd = Cwd();
  return cwd.back() == u'\\' ? cwd : cwd + u'\\';
}

struct ResolveCase {
  const WChar* path;
  const WChar* basePath;
  WString expected;
};

TEST(Win32ResolveFilePath, OneLeadingBackslashLiesBelowTheBasePath) {
  const ResolveCase cases[] = {
      {u"\\a.txt", u"D:\\data\\", u"D:\\data\\a.txt"},
      {u"\\a.txt", u"D:\\data", u"D:\\data\\a.txt"},
      {u"\\a.txt", u"D:\\data\\\\\\", u"D:\\data\\a.txt"},
      {u"\\t\\a.txt", u"C:\\work\\", u"C:\\work\\t\\a.txt"},
      {u"\\a.txt", u"", CwdFolder() + u"a.txt"},
      {u"\\\\server\\share\\a.txt", u"D:\\data", u"\\\\server\\share\\a.txt"},
      {u"C:\\x\\..\\y.txt", u"D:\\data", u"C:\\y.txt"},
      {u"C:/x/./y.txt", u"D:\\data", u"C:\\x\\y.txt"},
      {u"rel.txt", u"D:\\data", CwdFolder() + u"rel.txt"},
  };
  for (const ResolveCase& c : cases) {
    EXPECT_EQ(ResolveFilePath(c.path, c.basePath), c.expected)
        << WideToUtf8(c.path) << " below " << WideToUtf8(c.basePath);
  }
}

// Longer than the first buffer of MAX_PATH units: asked again with the size.
TEST(Win32FullPath, LongPathsAreComplete) {
  const WString path = u"C:\\" + WString(300, u'x') + u"\\a.txt";
  WString full;
  ASSERT_TRUE(Platform::FullPath(path, full));
  EXPECT_EQ(full, path);
}

TEST(Win32FolderPart, EverythingBeforeTheLastBackslash) {
  const std::pair<const WChar*, const WChar*> cases[] = {
      {u"C:\\data\\in\\a.txt", u"C:\\data\\in"}, {u"C:\\a.txt", u"C:"}, {u"a.txt", u""},
      {u"C:\\data/a.txt", u"C:"},                  {u"", u""},
  };
  for (const auto& [path, folder] : cases) EXPECT_EQ(Platform::FolderPart(path), folder) << WideToUtf8(path);
  EXPECT_TRUE(Platform::IsPathSeparator(u'\\'));
  EXPECT_FALSE(Platform::IsPathSeparator(u'/'));
}

TEST(Win32Files, ReadOnlyTargetIsNotReplaced) {
  Testing::CScratchFolder folder;
  folder.Put("out.txt", "old");
  const WString path = folder.Path("out.txt");
  SetFileAttributesW(reinterpret_cast<const wchar_t*>(path.c_str()), FILE_ATTRIBUTE_READONLY);
  EXPECT_FALSE(Platform::WriteWholeFile(path, "new"));
  SetFileAttributesW(reinterpret_cast<const wchar_t*>(path.c_str()), FILE_ATTRIBUTE_NORMAL);
  EXPECT_EQ(folder.Get("out.txt"), "old");
  EXPECT_EQ(folder.Names(), std::set<std::string>{"out.txt"});
}

TEST(Win32Files, DevicesAreWrittenInPlace) {
  EXPECT_TRUE(Platform::WriteWholeFile(u"NUL", "into nothing"));
  EXPECT_TRUE(Platform::WriteWholeFile(u"nul", ""));
}

TEST(Win32Files, HardLinksStayLinked) {
  Testing::CScratchFolder folder;
  folder.Put("one.txt", "a longer old content");
  const WString one = folder.Path("one.txt");
  const WString two = folder.Path("two.txt");
  ASSERT_TRUE(CreateHardLinkW(reinterpret_cast<const wchar_t*>(two.c_str()), reinterpret_cast<const wchar_t*>(one.c_str()),
                              nullptr));
  ASSERT_TRUE(Platform::WriteWholeFile(one, "new"));
  EXPECT_EQ(folder.Get("two.txt"), "new");
  EXPECT_EQ(folder.Names(), (std::set<std::string>{"one.txt", "two.txt"}));
}

TEST(Win32Files, ReplacingKeepsTheAttributes) {
  Testing::CScratchFolder folder;
  folder.Put("out.txt", "old");
  const WString target = folder.Path("out.txt");
  const auto* native = reinterpret_cast<const wchar_t*>(target.c_str());
  ASSERT_TRUE(SetFileAttributesW(native, FILE_ATTRIBUTE_HIDDEN));
  ASSERT_TRUE(Platform::WriteWholeFile(target, "new"));
  EXPECT_NE(GetFileAttributesW(native) & FILE_ATTRIBUTE_HIDDEN, 0u);
  EXPECT_EQ(folder.Get("out.txt"), "new");
  EXPECT_EQ(folder.Names(), std::set<std::string>{"out.txt"});
}

}  // namespace
}  // namespace NScrivolt
