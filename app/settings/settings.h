// CSettings: finds the settings file in the application-data folder, and
// loads and saves the registered persistent objects from and to it.
#pragma once

#include <functional>
#include <vector>

#include "app/settings/ini_file.h"
#include "app/settings/persistent_object.h"
#include "platform/folders.h"

namespace NScrivolt {

// The folder and file the program keeps its settings in.
constexpr WStringView kSettingsFolderName = u"Scrivolt 11.3.3";
constexpr WStringView kSettingsFileName = u"Settings.ini";

class CSettings {
 public:
  // Asks for the application-data folder of a scope; the system's own by
  // default, a stand-in in tests.
  using FolderLookup = std::function<bool(Platform::FolderScope, WString&)>;

  explicit CSettings(FolderLookup lookup = Platform::ApplicationDataFolder);
  CSettings(const CSettings&) = delete;
  CSettings& operator=(const CSettings&) = delete;
  virtual ~CSettings() = default;

  // Registers `object`, which must outlive the use of this holder. Objects
  // load and save in the order of registration.
  void Add(IPersistentObject& object);

  // Locates "<application data>\<folderName>\<fileName>", making the folder
  // when it is missing, reads the file when there is one and lets every
  // object load. False, with the objects untouched, when the application-data
  // folder is unknown or the settings folder cannot be made; an unreadable
  // file counts as empty.
  bool Load(WStringView folderName, Platform::FolderScope scope, WStringView fileName);

  // Lets every object save and writes the file; true without writing when
  // Load did not succeed. False when the file cannot be written.
  bool Save();

  const WString& GetFolderPath() const { return folderPath_; }
  const WString& GetFilePath() const { return filePath_; }

 private:
  FolderLookup lookup_;
  WString folderPath_;
  WString filePath_;
  CINIFile file_;
  bool loaded_ = false;
  std::vector<IPersistentObject*> objects_;
};

}  // namespace NScrivolt
