#include "app/settings/settings.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <set>
#include <string>
#include <tuple>

#include "app/settings/install_settings.h"
#include "app/settings/user_settings.h"
#include "platform/paths.h"
#include "scratch_folder.h"

namespace NScrivolt {
namespace {

using Platform::FolderScope;
using Testing::CScratchFolder;

// The settings of one program start, with the scratch folder standing in for
// the application-data folder of the user.
struct CProgramSettings {
  explicit CProgramSettings(const CScratchFolder& appData)
      : settings([&appData](FolderScope scope, WString& folder) {
          folder = appData.Folder();
          return scope == FolderScope::PerUser;
        }) {
    settings.Add(install);
    settings.Add(user);
  }
  bool Load() { return settings.Load(kSettingsFolderName, FolderScope::PerUser, kSettingsFileName); }

  CSettings settings;
  CInstallSettings install;
  CUserSettings user;
};

// `path` as the system writes it in full: "\" between the parts on Windows.
WString Full(const WString& path) {
  WString full;
  EXPECT_TRUE(Platform::FullPath(path, full));
  return full;
}

std::string SettingsFile(const CScratchFolder& appData) { return appData.Get("Scrivolt 11.3.3/Settings.ini"); }

const char kDefaultFile[] =
    "[Dialogs]"
    "\r\nPositionXDlg0=-2147483648\r\nPositionXDlg1=-2147483648\r\nPositionXDlg2=-2147483648"
    "\r\nPositionXDlg3=-2147483648\r\nPositionXDlg4=-2147483648"
    "\r\nPositionYDlg0=-2147483648\r\nPositionYDlg1=-2147483648\r\nPositionYDlg2=-2147483648"
    "\r\nPositionYDlg3=-2147483648\r\nPositionYDlg4=-2147483648"
    "\r\nSizeXDlg0=0\r\nSizeXDlg1=0\r\nSizeXDlg2=0\r\nSizeXDlg3=0\r\nSizeXDlg4=0"
    "\r\nSizeYDlg0=0\r\nSizeYDlg1=0\r\nSizeYDlg2=0\r\nSizeYDlg3=0\r\nSizeYDlg4=0"
    "\r\n\r\n[Settings]\r\nLanguage=";

TEST(Settings, AFirstStartMakesTheFolderAndSavesEveryKeyWithItsDefault) {
  CScratchFolder appData;
  CProgramSettings program(appData);
  ASSERT_TRUE(program.Load());
  EXPECT_EQ(program.settings.GetFolderPath(), Full(appData.Path("Scrivolt 11.3.3")));
  EXPECT_EQ(program.settings.GetFilePath(), Full(appData.Path("Scrivolt 11.3.3/Settings.ini")));
  EXPECT_EQ(program.install.GetLanguage(), u"EN");
  EXPECT_EQ(program.user.GetLanguage(), u"");
  EXPECT_EQ(program.user.GetWindowRecord(0).positionX, kNoStoredPosition);
  EXPECT_EQ(program.user.GetWindowRecord(4).sizeY, 0);
  EXPECT_EQ(SettingsFile(appData), "") << "loading writes nothing";

  ASSERT_TRUE(program.settings.Save());
  EXPECT_EQ(SettingsFile(appData), kDefaultFile);
}

TEST(Settings, StoredValuesComeBackAndUnknownEntriesAreKept) {
  CScratchFolder appData;
  CProgramSettings first(appData);
  ASSERT_TRUE(first.Load());
  first.user.SetLanguage(u"NL");
  first.user.SetWindowRecord(kMainWindowRecord, {10, -20, 300, 150});
  first.user.SetWindowRecord(3, {1, 2, 3, 4});
  ASSERT_TRUE(first.settings.Save());

  const std::string saved = SettingsFile(appData);
  appData.Put("Scrivolt 11.3.3/Settings.ini", saved + "\r\n\r\n[Other]\r\nKept=yes");
  CProgramSettings second(appData);
  ASSERT_TRUE(second.Load());
  EXPECT_EQ(second.install.GetLanguage(), u"NL");
  EXPECT_EQ(second.user.GetLanguage(), u"NL");
  const CWindowRecord main = second.user.GetWindowRecord(kMainWindowRecord);
  EXPECT_EQ(std::tie(main.positionX, main.positionY, main.sizeX, main.sizeY), std::make_tuple(10, -20, 300, 150));
  EXPECT_EQ(second.user.GetWindowRecord(3).sizeY, 4);
  ASSERT_TRUE(second.settings.Save());
  EXPECT_EQ(SettingsFile(appData), saved.substr(0, saved.find("\r\n\r\n[Settings]")) +
                                       "\r\n\r\n[Other]\r\nKept=yes\r\n\r\n[Settings]\r\nLanguage=NL");
}

TEST(Settings, ALowerCaseFileReadsAndIsWrittenBackInItsSpelling) {
  CScratchFolder appData;
  std::filesystem::create_directory(appData.Native("Scrivolt 11.3.3"));
  appData.Put("Scrivolt 11.3.3/Settings.ini", "[settings]\r\nlanguage = NL\r\n[dialogs]\r\npositionxdlg0=5px");
  CProgramSettings program(appData);
  ASSERT_TRUE(program.Load());
  EXPECT_EQ(program.user.GetLanguage(), u"NL");
  EXPECT_EQ(program.user.GetWindowRecord(0).positionX, 5);
  ASSERT_TRUE(program.settings.Save());
  const std::string saved = SettingsFile(appData);
  EXPECT_EQ(saved.substr(0, 26), "[dialogs]\r\npositionxdlg0=5");
  EXPECT_NE(saved.find("\r\n\r\n[settings]\r\nlanguage=NL"), std::string::npos) << saved;
}

TEST(Settings, WithoutAnApplicationDataFolderNothingIsLoadedOrSaved) {
  CSettings settings([](FolderScope, WString&) { return false; });
  CUserSettings user;
  settings.Add(user);
  EXPECT_FALSE(settings.Load(kSettingsFolderName, FolderScope::PerUser, kSettingsFileName));
  EXPECT_EQ(settings.GetFilePath(), u"");
  EXPECT_EQ(settings.GetFolderPath(), u"");
  EXPECT_TRUE(settings.Save()) << "nothing loaded, nothing to save";
}

TEST(Settings, AFolderThatCannotBeMadeFailsTheLoadAndTheObjectsKeepTheirDefaults) {
  CScratchFolder appData;
  appData.Put("not-a-folder", "x");
  CSettings settings([&appData](FolderScope, WString& folder) {
    folder = appData.Path("not-a-folder/below");
    return true;
  });
  CUserSettings user;
  user.SetLanguage(u"DE");
  settings.Add(user);
  EXPECT_FALSE(settings.Load(kSettingsFolderName, FolderScope::PerUser, kSettingsFileName));
  EXPECT_EQ(user.GetLanguage(), u"DE");
  EXPECT_TRUE(settings.Save());
  EXPECT_EQ(appData.Names(), std::set<std::string>{"not-a-folder"});
}

TEST(Settings, ASaveThatCannotWriteFails) {
  CScratchFolder appData;
  CProgramSettings program(appData);
  ASSERT_TRUE(program.Load());
  std::filesystem::create_directory(appData.Native("Scrivolt 11.3.3/Settings.ini"));
  EXPECT_FALSE(program.settings.Save());
}

}  // namespace
}  // namespace NScrivolt
