// Where the persistent objects keep their values in the settings file: the
// section and key names, shared by the objects that read the same entry.
#pragma once

#include <cstdint>
#include <limits>

#include "app/settings/ini_file.h"

namespace NScrivolt {

constexpr WStringView kSettingsSection = u"Settings";
constexpr WStringView kLanguageKey = u"Language";
constexpr WStringView kDialogsSection = u"Dialogs";

constexpr WStringView kDefaultInstallLanguage = u"EN";

// A window position of this value means that none is stored.
constexpr std::int32_t kNoStoredPosition = std::numeric_limits<std::int32_t>::min();

// "Settings"/"Language", both made when missing.
CINISetting& LanguageSetting(CINIFile& file);

}  // namespace NScrivolt
