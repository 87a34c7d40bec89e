#include "app/shell/interface_language.h"

#include "app/shell/app.h"
#include "text/format.h"
#include "text/text.h"
#include "ui/win32/message_box.h"

namespace NScrivolt {

namespace {

constexpr WStringView kModulePattern = u"Scrivolt_*.dll";
constexpr WStringView kBuiltInLanguage = u"EN";

void ShowWarning(const CText& text, MessageId title) { Ui::ShowMessage(nullptr, text, title, MB_OK | MB_ICONWARNING); }

// The problems of a discovery, each after a blank line; empty when none.
WString DiscoveryProblems(const CLanguageDiscovery& discovery) {
  WString problems;
  if (!discovery.success) {
    CText searchError(MsgLanguageModulesSearchError);
    FormatWindowsErrorText(searchError, u"[ERROR]", discovery.errorCode, CText(MsgUnknownErrorOccurred));
    problems += u"\n\n" + searchError.str();
  }
  if (!discovery.failedModules.empty()) {
    WString list;
    for (const WString& path : discovery.failedModules) list += u"\n- \"" + path + u"\"";
    problems += u"\n\n" + CText(MsgLanguageModulesNotLoaded).Replace(u"[MODULES]", list).str();
  }
  return problems;
}

WString WantedLanguage(const CUserSettings& user, const CInstallSettings& install) {
  if (!user.GetLanguage().empty()) return UpperCaseLanguage(user.GetLanguage());
  if (!install.GetLanguage().empty()) return UpperCaseLanguage(install.GetLanguage());
  return WString(kBuiltInLanguage);
}

}  // namespace

void SelectInterfaceLanguage(CLanguageModules& modules, CUserSettings& user, const CInstallSettings& install,
                             CResourceModule& resources) {
  CApp& app = *CApp::Get();
  const CLanguageDiscovery discovery =
      modules.Discover(app.GetInstance(), app.GetExePath(), app.GetInstallPath(), WString(kModulePattern),
                       MsgLanguageAbbreviation, MsgLanguageNames);
  const WString problems = DiscoveryProblems(discovery);
  if (!problems.empty()) {
    ShowWarning(CText(MsgLanguageModulesLoadError).Replace(u"[ERROR]", problems), MsgLanguageModulesErrorTitle);
  }

  const WString wanted = WantedLanguage(user, install);
  user.SetLanguage(wanted);
  const CLanguageModule* chosen = modules.Find(wanted);
  if (chosen == nullptr) {
    ShowWarning(CText(MsgLanguageModuleNotFound).Replace(u"[ABBREVIATION]", wanted), MsgLanguageModuleNotFoundTitle);
    chosen = modules.Find(kBuiltInLanguage);
  }
  if (chosen != nullptr) resources.SetPrimary(chosen->module.Get());
}

}  // namespace NScrivolt
