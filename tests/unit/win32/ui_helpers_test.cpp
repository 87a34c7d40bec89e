#include <gtest/gtest.h>

#include <windows.h>

#include <filesystem>
#include <set>
#include <utility>

#include "platform/win32/wide_cast.h"
#include "ui/win32/cur_dir_changer.h"
#include "ui/win32/dll_loader.h"
#include "ui/win32/file_finder.h"
#include "ui/win32/handle_traits.h"
#include "unit/scratch_folder.h"

namespace NScrivolt::Ui {
namespace {

using Platform::AsWin;

std::set<WString> FindAll(CFileFinder& finder) {
  std::set<WString> names;
  WString name;
  while (finder.Next(name)) names.insert(name);
  return names;
}

TEST(FileFinder, ListsTheMatchingFilesOnly) {
  Testing::CScratchFolder folder;
  for (const char* name : {"Scrivolt_NL.dll", "Scrivolt_DE.dll", "Scrivolt.exe", "Other.dll"}) folder.Put(name, "x");
  std::filesystem::create_directory(folder.Native("Scrivolt_Folder.dll"));
  struct Case {
    WString folder;
    std::set<WString> names;
    std::uint32_t error;
  };
  const Case cases[] = {
      {folder.Folder(), {u"Scrivolt_DE.dll", u"Scrivolt_NL.dll"}, 0},
      {folder.Folder() + u"\\", {u"Scrivolt_DE.dll", u"Scrivolt_NL.dll"}, 0},
      {folder.Path("Scrivolt_Folder.dll"), {}, 0},  // nothing matches: no failure
      {folder.Path("missing"), {}, ERROR_PATH_NOT_FOUND},
  };
  for (const Case& c : cases) {
    CFileFinder finder(c.folder, u"Scrivolt_*.dll");
    EXPECT_EQ(FindAll(finder), c.names);
    EXPECT_EQ(finder.ErrorCode(), c.error);
    EXPECT_EQ(finder.Failed(), c.error != 0);
    WString name;
    EXPECT_FALSE(finder.Next(name)) << "an ended enumeration stays ended";
  }
}

TEST(DLLLoader, FreesWhatItLoadedAndNeverWhatItBorrowed) {
  HMODULE borrowed = GetModuleHandleW(nullptr);
  {
    CDLLLoader loader(borrowed);
    EXPECT_FALSE(loader.Owns());
    EXPECT_EQ(loader.Get(), borrowed);
  }
  EXPECT_EQ(GetModuleHandleW(nullptr), borrowed);

  CDLLLoader missing(WString(u"scrivolt-no-such-module.dll"));
  EXPECT_FALSE(missing.IsLoaded());
  EXPECT_EQ(missing.ErrorCode(), std::uint32_t(ERROR_MOD_NOT_FOUND));

  // The help control library is not loaded by this program until asked for.
  const wchar_t* name = L"hhctrl.ocx";
  ASSERT_EQ(GetModuleHandleW(name), nullptr);
  CDLLLoader loader(WString(u"hhctrl.ocx"));
  ASSERT_TRUE(loader.IsLoaded());
  EXPECT_TRUE(loader.Owns());
  EXPECT_NE(loader.Function("HtmlHelpW"), nullptr);
  EXPECT_EQ(loader.Function("NoSuchFunction"), nullptr);
  CDLLLoader moved(std::move(loader));
  EXPECT_FALSE(loader.IsLoaded());
  EXPECT_NE(GetModuleHandleW(name), nullptr);
  moved.Free();
  EXPECT_EQ(GetModuleHandleW(name), nullptr);
}

WString CurrentDirectory() {
  wchar_t buffer[MAX_PATH * 4];
  const DWORD length = GetCurrentDirectoryW(DWORD(std::size(buffer)), buffer);
  return WString(Platform::FromWin(buffer), length);
}

TEST(CurDirChanger, ChangesBackAtItsEnd) {
  Testing::CScratchFolder folder;
  std::filesystem::create_directory(folder.Native("sub"));
  const WString before = CurrentDirectory();
  {
    CCurDirChanger changer;
    EXPECT_FALSE(changer.ChangeToFolderOf(u"no-backslash.txt"));
    EXPECT_EQ(CurrentDirectory(), before);
    EXPECT_TRUE(changer.ChangeToFolderOf(folder.Path("sub") + u"\\file.txt"));
    EXPECT_EQ(ToLowerAscii(CurrentDirectory()), ToLowerAscii(folder.Path("sub")));
    EXPECT_TRUE(changer.ChangeTo(folder.Folder()));  // back goes to the first folder
    EXPECT_FALSE(changer.ChangeTo(folder.Path("missing")));
  }
  EXPECT_EQ(CurrentDirectory(), before);
  {
    CCurDirChanger unused;
  }
  EXPECT_EQ(CurrentDirectory(), before);
}

TEST(HandleTraits, TheLastCopyClosesAKernelHandle) {
  Testing::CScratchFolder folder;
  folder.Put("file.txt", "x");
  HANDLE raw = CreateFileW(AsWin(folder.Path("file.txt")), GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr);
  ASSERT_NE(raw, INVALID_HANDLE_VALUE);
  DWORD flags = 0;
  {
    CHandle<CIHVHandleTraits> file(raw);
    CHandle<CIHVHandleTraits> copy = file;
    file.Reset();
    EXPECT_TRUE(GetHandleInformation(raw, &flags));
  }
  EXPECT_FALSE(GetHandleInformation(raw, &flags));
  // A file opened without sharing can be opened again only once it is closed.
  HANDLE again = CreateFileW(AsWin(folder.Path("file.txt")), GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr);
  EXPECT_NE(again, INVALID_HANDLE_VALUE);
  CHandle<CIHVHandleTraits> owner(again);

  CHandle<CMutexHandleTraits> mutex(CreateMutexW(nullptr, TRUE, L"Scrivolt_Test_Mutex"));
  ASSERT_TRUE(mutex.IsValid());
  mutex.Reset();
  EXPECT_EQ(OpenMutexW(SYNCHRONIZE, FALSE, L"Scrivolt_Test_Mutex"), nullptr);
}

}  // namespace
}  // namespace NScrivolt::Ui
