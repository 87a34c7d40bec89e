#include "app/shell/language_modules.h"

#include <algorithm>

#include "text/resource_module.h"
#include "text/text.h"
#include "ui/win32/file_finder.h"

namespace NScrivolt {

namespace {

// A message of `module` alone: a language module's own facts are never
// taken from another module.
WString OwnMessage(HMODULE module, MessageId id) {
  return CText(id, CResourceModule(module, nullptr)).str();
}

}  // namespace

CLanguageDiscovery CLanguageModules::Discover(HMODULE executable, const WString& executablePath,
                                              const WString& folder, const WString& pattern,
                                              MessageId abbreviationId, MessageId namesId) {
  modules_.clear();
  CLanguageDiscovery result;
  auto builtIn = std::make_unique<CLanguageModule>();
  builtIn->path = executablePath;
  builtIn->module = Ui::CDLLLoader(executable);
  if (!Register(std::move(builtIn), abbreviationId, namesId)) result.failedModules.push_back(executablePath);

  Ui::CFileFinder finder(folder, pattern);
  WString name;
  while (finder.Next(name)) {
    auto module = std::make_unique<CLanguageModule>();
    module->path = folder + u"\\" + name;
    const WString path = module->path;
    if (!module->module.Load(path) || !Register(std::move(module), abbreviationId, namesId)) {
      result.failedModules.push_back(path);
    }
  }
  if (finder.Failed()) {
    result.success = false;
    result.errorCode = finder.ErrorCode();
  }
  return result;
}

bool CLanguageModules::Register(std::unique_ptr<CLanguageModule> module, MessageId abbreviationId,
                                MessageId namesId) {
  const HMODULE handle = module->module.Get();
  module->abbreviation = UpperCaseLanguage(OwnMessage(handle, abbreviationId));
  if (module->abbreviation.empty()) return false;  // the module is freed with its record
  module->names = ParseLanguageNames(OwnMessage(handle, namesId));
  const WString key = module->abbreviation;
  modules_.emplace(key, std::move(module));  // a second module of a language does not replace the first
  return true;
}

const CLanguageModule* CLanguageModules::Find(WStringView abbreviation) const {
  auto found = modules_.find(UpperCaseLanguage(abbreviation));
  return found == modules_.end() ? nullptr : found->second.get();
}

WString CLanguageModules::GetDisplayName(const CLanguageModule& module, WStringView displayLanguage,
                                         bool withNative) const {
  return LanguageDisplayName(module.abbreviation, module.names, displayLanguage, withNative);
}

std::vector<const CLanguageModule*> CLanguageModules::GetSortedList(WStringView displayLanguage) const {
  std::vector<std::pair<WString, const CLanguageModule*>> named;
  for (const auto& [abbreviation, module] : modules_) {
    named.emplace_back(GetDisplayName(*module, displayLanguage, false), module.get());
  }
  std::stable_sort(named.begin(), named.end(), [](const auto& a, const auto& b) { return a.first < b.first; });
  std::vector<const CLanguageModule*> sorted;
  for (const auto& entry : named) sorted.push_back(entry.second);
  return sorted;
}

}  // namespace NScrivolt
