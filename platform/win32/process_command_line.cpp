#include "platform/win32/process_command_line.h"

#include "platform/win32/wide_cast.h"

namespace NScrivolt::Platform {

WString ProcessCommandLine() {
  const wchar_t* line = GetCommandLineW();
  return line != nullptr ? WString(FromWin(line)) : WString();
}

}  // namespace NScrivolt::Platform
