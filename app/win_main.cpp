// Entry point of the Windows program. Start-up brings the services up in a
// fixed order: the message texts, the handler of processor faults, the
// application object, the settings, the interface language and the marker
// that Scrivolt runs. Then a start without arguments shows the main window
// and one with arguments performs a command-line run, whose feedback goes to
// message boxes or the feedback file. Shutdown takes them down in reverse.
#include <windows.h>

#include <commctrl.h>

#include "app/services/help_topic.h"
#include "app/services/unhandled_error.h"
#include "app/settings/install_settings.h"
#include "app/settings/settings.h"
#include "app/settings/user_settings.h"
#include "app/shell/app.h"
#include "app/shell/dup_app_preventer.h"
#include "app/shell/interface_language.h"
#include "app/shell/resource_ids.h"
#include "app/shell/windows_version.h"
#include "app/windows/main_dlg.h"
#include "app/windows/program_dialog.h"
#include "cmdline/cmd_line_processor.h"
#include "cmdline/command_line_arguments.h"
#include "engine/process_context.h"
#include "platform/win32/process_command_line.h"
#include "text/format.h"
#include "text/resource_module.h"
#include "text/text.h"
#include "ui/win32/message_box.h"

namespace {

using namespace NScrivolt;

constexpr int kWindowsTooOldExitCode = 254;
constexpr WStringView kRunningMutexName = u"Scrivolt_Run_Check";
constexpr WStringView kMainWindowClass = u"ScrivoltMain";

HINSTANCE programInstance = nullptr;
CResourceModule* resources = nullptr;

void ShowBox(const CText& text, MessageId title, UINT icon) { Ui::ShowMessage(nullptr, text, title, MB_OK | icon); }

void OpenHelpTopic(MessageId topicId) { ShowHelpTopic(nullptr, topicId); }

// A settings file that cannot be reached leaves the defaults in force.
void LoadSettings(CSettings& settings) {
  if (settings.Load(kSettingsFolderName, Platform::FolderScope::PerUser, kSettingsFileName)) return;
  CText text(MsgSettingsAccessError);
  FormatWindowsErrorText(text, u"[ERROR]", CText(MsgUnknownErrorOccurred));
  text.Replace(u"[FILEPATH]", settings.GetFilePath());
  ShowBox(text, MsgSettingsAccessErrorTitle, MB_ICONWARNING);
}

int RunMainWindow(CSettings& settings, CUserSettings& user, CLanguageModules& languages) {
  INITCOMMONCONTROLSEX controls = {sizeof controls, 0xFF};
  InitCommonControlsEx(&controls);
  CMainDlg mainWindow(settings, user, languages);
  Ui::CDialogParams params = ProgramDialog(IDD_MAIN, nullptr, Ui::DialogMode::Modeless);
  params.className = WString(kMainWindowClass);
  if (!mainWindow.Create(params)) return 0;
  HACCEL accelerators = LoadAcceleratorsW(programInstance, MAKEINTRESOURCEW(IDR_MAIN_ACCELERATORS));
  mainWindow.RunMessageLoop(accelerators);
  return mainWindow.GetExitCode();
}

int RunCommandLine(WString arguments) {
  CPlatformRunScreen screen(OpenHelpTopic);
  CCmdLineProcessor processor(screen);
  const bool succeeded = processor.Run(std::move(arguments));
  KeepTreesUntilProcessEnds(processor.Context());
  return succeeded ? 0 : 1;
}

int RunProgram() {
  CApp app(programInstance);
  CSettings settings;
  CInstallSettings installSettings;
  settings.Add(installSettings);
  CUserSettings userSettings;
  settings.Add(userSettings);
  LoadSettings(settings);

  CLanguageModules languages;
  SelectInterfaceLanguage(languages, userSettings, installSettings, *resources);
  CDupAppPreventer runningMarker(WString(kRunningMutexName), WString(kMainWindowClass), CheckNow::Yes,
                                 CreateIfAbsent::Yes);
  ShowBox(CText(MsgBetaNotice), MsgBetaNoticeTitle, MB_ICONWARNING);

  WString arguments = GetCommandLineArguments(Platform::ProcessCommandLine());
  if (arguments.empty()) return RunMainWindow(settings, userSettings, languages);
  return RunCommandLine(std::move(arguments));
}

}  // namespace

int WINAPI wWinMain(HINSTANCE instance, HINSTANCE, PWSTR, int) {
  if (CurrentWindowsVersion() < kOldestSupportedWindows) {
    ShowBox(CText(MsgWindowsTooOld), MsgWindowsTooOldTitle, MB_ICONERROR);
    return kWindowsTooOldExitCode;
  }
  // Messages come from the executable until a language module is chosen.
  static CResourceModule programResources(instance, instance);
  SetCurrentResourceModule(&programResources);
  InstallUnhandledErrorHandler(ShowUnhandledError);
  programInstance = instance;
  resources = &programResources;
  return RunWithLastResort(RunProgram);
}
