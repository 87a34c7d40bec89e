#include "app/settings/install_settings.h"

#include "app/settings/settings_layout.h"

namespace NScrivolt {

void CInstallSettings::Load(CINIFile& file) {
  language_ = LanguageSetting(file).GetText(kDefaultInstallLanguage);
}

void CInstallSettings::Save(CINIFile&) {}

}  // namespace NScrivolt
