// CLanguageModules: the interface languages at hand. The executable carries
// the built-in one; each "Scrivolt_*.dll" beside it carries another, and says
// which (message LanguageAbbreviation) and what it is called (message
// LanguageNames).
#pragma once

#include <windows.h>

#include <cstdint>
#include <map>
#include <memory>
#include <vector>

#include "app/languages/language_names.h"
#include "text/message_ids.h"
#include "ui/win32/dll_loader.h"

namespace NScrivolt {

struct CLanguageModule {
  WString path;
  WString abbreviation;  // upper case
  LanguageNames names;
  Ui::CDLLLoader module;
};

struct CLanguageDiscovery {
  bool success = true;
  std::uint32_t errorCode = 0;  // of a failed search of the folder
  std::vector<WString> failedModules;
};

class CLanguageModules {
 public:
  CLanguageModules() = default;
  CLanguageModules(const CLanguageModules&) = delete;
  CLanguageModules& operator=(const CLanguageModules&) = delete;
  virtual ~CLanguageModules() = default;

  // Forgets what was found, registers the executable (`executable`, whose
  // file is `executablePath`) and every module of `folder` that matches
  // `pattern`.
  CLanguageDiscovery Discover(HMODULE executable, const WString& executablePath, const WString& folder,
                              const WString& pattern, MessageId abbreviationId, MessageId namesId);

  // The module of a language, any case; null when there is none.
  const CLanguageModule* Find(WStringView abbreviation) const;

  WString GetDisplayName(const CLanguageModule& module, WStringView displayLanguage, bool withNative) const;

  // The modules ordered by their names in `displayLanguage`.
  std::vector<const CLanguageModule*> GetSortedList(WStringView displayLanguage) const;

 private:
  bool Register(std::unique_ptr<CLanguageModule> module, MessageId abbreviationId, MessageId namesId);

  std::map<WString, std::unique_ptr<CLanguageModule>> modules_;
};

}  // namespace NScrivolt
