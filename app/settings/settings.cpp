#include "app/settings/settings.h"

#include <utility>

#include "platform/files.h"
#include "platform/paths.h"

namespace NScrivolt {

namespace {

// "folder\name", made absolute so that the POSIX build, where "\" is not
// what the system separates with, names the same place.
WString JoinPath(const WString& folder, WStringView name) {
  WString joined = folder + u'\\' + WString(name);
  WString full;
  return Platform::FullPath(joined, full) ? full : joined;
}

}  // namespace

CSettings::CSettings(FolderLookup lookup) : lookup_(std::move(lookup)) {}

void CSettings::Add(IPersistentObject& object) { objects_.push_back(&object); }

bool CSettings::Load(WStringView folderName, Platform::FolderScope scope, WStringView fileName) {
  WString base;
  if (!lookup_(scope, base)) return false;
  folderPath_ = JoinPath(base, folderName);
  filePath_ = JoinPath(folderPath_, fileName);
  if (!Platform::FileExists(folderPath_) && !Platform::CreateFolder(folderPath_)) return false;
  // A missing or unreadable file leaves the settings empty: defaults apply.
  file_.Read(filePath_, EncodingType::Ascii);
  loaded_ = true;
  for (IPersistentObject* object : objects_) object->Load(file_);
  return true;
}

bool CSettings::Save() {
  if (!loaded_) return true;
  for (IPersistentObject* object : objects_) object->Save(file_);
  return file_.Write();
}

}  // namespace NScrivolt
