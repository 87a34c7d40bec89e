// Choosing the language of the interface at start-up.
#pragma once

#include "app/settings/install_settings.h"
#include "app/settings/user_settings.h"
#include "app/shell/language_modules.h"
#include "text/resource_module.h"

namespace NScrivolt {

// Finds the language modules beside the executable (reporting any that cannot
// be used), picks the user's language, else the installation's, else
// English, and makes its module the first source of messages in `resources`.
// The language picked is stored in `user`.
void SelectInterfaceLanguage(CLanguageModules& modules, CUserSettings& user, const CInstallSettings& install,
                             CResourceModule& resources);

}  // namespace NScrivolt
