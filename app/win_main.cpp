// Entry point of the Windows program. With arguments it performs a
// command-line run, whose feedback goes to message boxes or the feedback
// file; without arguments it ends at once until the main window exists.
#include <windows.h>

#include <cstdint>
#include <exception>

#include "cmdline/cmd_line_processor.h"
#include "cmdline/command_line_arguments.h"
#include "cmdline/unexpected_error.h"
#include "platform/help.h"
#include "platform/win32/process_command_line.h"
#include "text/base/utf8.h"

namespace {

void OpenHelpTopic(std::uint32_t topicId) { NScrivolt::Platform::ShowHelpTopic(nullptr, topicId); }

int RunProgram() {
  using namespace NScrivolt;
  WString arguments = GetCommandLineArguments(Platform::ProcessCommandLine());
  if (arguments.empty()) return 0;
  CPlatformRunScreen screen(OpenHelpTopic);
  CCmdLineProcessor processor(screen);
  return processor.Run(std::move(arguments)) ? 0 : 1;
}

}  // namespace

int WINAPI wWinMain(HINSTANCE, HINSTANCE, PWSTR, int) {
  try {
    return RunProgram();
  } catch (const std::exception& error) {
    NScrivolt::ShowUnexpectedError(NScrivolt::Utf8ToWide(error.what()));
  } catch (...) {
    NScrivolt::ShowUnexpectedError(NScrivolt::WStringView());
  }
  return NScrivolt::kUnexpectedErrorExitCode;
}
