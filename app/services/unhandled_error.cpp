#include "app/services/unhandled_error.h"

#include <cstdlib>

#include "cmdline/unexpected_error.h"
#include "platform/message_box.h"
#include "text/format.h"
#include "text/text.h"

namespace NScrivolt {

namespace {

constexpr DWORD kAccessViolation = 0xC0000005;
constexpr int kExitCodeWithoutCallback = 1;
constexpr SIZE_T kReportingStackSize = SIZE_T(1) << 20;

UnhandledErrorCallback gCallback = nullptr;
// The filter that was installed before ours; kept, never called.
LPTOP_LEVEL_EXCEPTION_FILTER gPreviousFilter = nullptr;
// Set by the first fault that is reported.
LONG volatile gReporting = 0;

// Reports the fault and ends the process: the callback gives the exit code.
[[noreturn]] void ReportAndExit(const CSEHandler& fault) {
  std::exit(gCallback != nullptr ? gCallback(fault) : kExitCodeWithoutCallback);
}

DWORD WINAPI ReportingThread(void* fault) { ReportAndExit(*static_cast<const CSEHandler*>(fault)); }

// The report runs on a thread of its own with a stack of its own: after a
// stack overflow the faulting thread has too little stack left to show a
// message box. The faulting thread waits until the process ends; only when
// no thread can be made does it report itself. A fault while the report is
// under way (in the callback itself, say) ends the process at once.
LONG WINAPI UnhandledErrorFilter(EXCEPTION_POINTERS* pointers) {
  if (InterlockedExchange(&gReporting, 1) != 0) std::_Exit(kUnhandledErrorExitCode);
  CSEHandler fault(*pointers->ExceptionRecord);
  const HANDLE reporter = CreateThread(nullptr, kReportingStackSize, ReportingThread, &fault, 0, nullptr);
  if (reporter != nullptr) WaitForSingleObject(reporter, INFINITE);
  ReportAndExit(fault);
}

void ShowErrorBox(const WString& text, MessageId title) {
  Platform::ShowMessageBox(text, CText(title).str(), Platform::MessageBoxIcon::Error);
}

}  // namespace

void InstallUnhandledErrorHandler(UnhandledErrorCallback callback) {
  gCallback = callback;
  gPreviousFilter = SetUnhandledExceptionFilter(UnhandledErrorFilter);
}

WString UnhandledErrorText(const CSEHandler& fault) {
  CText text(MsgUnhandledError);
  text.Replace(u"[ERROR]", CText(MsgUnhandledErrorDetail));
  text.Replace(u"[WHAT]", fault.GetName());
  text.Replace(u"[ADDRESS]", FormatHexAddress(fault.GetAddress()));
  text.Replace(u"[MODULENAME]", fault.GetModuleName());
  text.Replace(u"[OFFSET]", FormatHexAddress(fault.GetModuleOffset()));
  if (fault.GetCode() == kAccessViolation) {
    CText access(MsgUnhandledErrorAccess);
    access.Replace(u"[TYPE]", CText(fault.GetAccessType() == 0 ? MsgRead : MsgWrite));
    access.Replace(u"[ACCESSADDRESS]", FormatHexAddress(fault.GetAccessAddress()));
    text.Replace(u"[EXTRAINFO]", access);
  }
  text.Replace(u"[EXTRAINFO]", u"");
  return text.str();
}

int ShowUnhandledError(const CSEHandler& fault) {
  const WString text = UnhandledErrorText(fault);
  ShowErrorBox(text, MsgUnhandledErrorTitle);
  return kUnhandledErrorExitCode;
}

int ShowUnknownUnhandledError() {
  ShowErrorBox(CText(MsgUnknownUnhandledError).str(), MsgUnhandledErrorTitle);
  return kUnexpectedErrorExitCode;
}

int RunWithLastResort(int (*run)()) {
  try {
    return run();
  } catch (...) {
    return ShowUnknownUnhandledError();
  }
}

}  // namespace NScrivolt
