#include "app/settings/settings_layout.h"

namespace NScrivolt {

CINISetting& LanguageSetting(CINIFile& file) {
  return *file.GetSection(kSettingsSection, Lookup::Create)->GetSetting(kLanguageKey, Lookup::Create);
}

}  // namespace NScrivolt
