// Entry point of the Windows program. It sets up the message texts and the
// handler of processor faults first; with arguments it then performs a
// command-line run, whose feedback goes to message boxes or the feedback
// file; without arguments it ends at once until the main window exists.
#include <windows.h>

#include "app/services/help_topic.h"
#include "app/services/unhandled_error.h"
#include "cmdline/cmd_line_processor.h"
#include "cmdline/command_line_arguments.h"
#include "platform/win32/process_command_line.h"
#include "text/resource_module.h"

namespace {

void OpenHelpTopic(std::uint32_t topicId) { NScrivolt::ShowHelpTopic(nullptr, NScrivolt::MessageId(topicId)); }

int RunProgram() {
  using namespace NScrivolt;
  WString arguments = GetCommandLineArguments(Platform::ProcessCommandLine());
  if (arguments.empty()) return 0;
  CPlatformRunScreen screen(OpenHelpTopic);
  CCmdLineProcessor processor(screen);
  return processor.Run(std::move(arguments)) ? 0 : 1;
}

}  // namespace

int WINAPI wWinMain(HINSTANCE instance, HINSTANCE, PWSTR, int) {
  // Messages come from the executable until a language module is chosen.
  static NScrivolt::CResourceModule resources(instance, instance);
  NScrivolt::SetCurrentResourceModule(&resources);
  NScrivolt::InstallUnhandledErrorHandler(NScrivolt::ShowUnhandledError);
  return NScrivolt::RunWithLastResort(RunProgram);
}
