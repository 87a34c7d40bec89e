// Runs a Windows program and stands in for the person in front of it: every
// message box the program shows is recorded on standard output — its title on
// one line, its text below it, as the Linux program writes its message boxes
// to standard error — and then closed with its default button. The driver
// ends with the program's exit code, so a test can check all three, or with
// 125 when it cannot start the program at all.
//
//   box_driver.exe [--timeout SECONDS] PROGRAM [ARGUMENT...]
#include <fcntl.h>
#include <io.h>
#include <windows.h>

#include <cstdio>
#include <set>
#include <string>
#include <vector>

#include "driver_common.h"

namespace {

using namespace driver;

struct Search {
  DWORD processId;
  std::vector<HWND> boxes;
};

BOOL CALLBACK FindBoxes(HWND window, LPARAM data) {
  auto* search = reinterpret_cast<Search*>(data);
  DWORD owner = 0;
  GetWindowThreadProcessId(window, &owner);
  if (owner == search->processId && IsWindowVisible(window) && ClassName(window) == L"#32770") {
    search->boxes.push_back(window);
  }
  return TRUE;
}

// Records and closes the boxes that are open now; returns how many.
size_t AnswerBoxes(DWORD processId, std::set<HWND>& answered) {
  Search search{processId, {}};
  EnumWindows(FindBoxes, reinterpret_cast<LPARAM>(&search));
  size_t count = 0;
  for (HWND box : search.boxes) {
    if (!answered.insert(box).second) continue;
    const std::string record = Utf8(WindowText(box)) + "\n" + Utf8(BoxText(box)) + "\n";
    std::fwrite(record.data(), 1, record.size(), stdout);
    std::fflush(stdout);
    PostMessageW(box, WM_COMMAND, MAKEWPARAM(IDOK, BN_CLICKED), 0);
    ++count;
  }
  return count;
}

}  // namespace

int wmain(int argc, wchar_t** argv) {
  _setmode(_fileno(stdout), _O_BINARY);  // the records' line ends exactly as written
  int first = 1;
  DWORD timeoutMs = 60000;
  if (argc > 2 && std::wstring(argv[1]) == L"--timeout") {
    timeoutMs = DWORD(_wtoi(argv[2])) * 1000;
    first = 3;
  }
  if (first >= argc) {
    std::fprintf(stderr, "usage: box_driver [--timeout SECONDS] PROGRAM [ARGUMENT...]\n");
    return kDriverFailedExitCode;
  }
  std::wstring commandLine;
  for (int i = first; i < argc; ++i) commandLine += (i > first ? L" " : L"") + Quote(argv[i]);
  // The program gets the driver's standard error, so what it writes there
  // when it cannot show a box (a fault report, say) reaches the test's log.
  STARTUPINFOW startup{};
  startup.cb = sizeof startup;
  startup.dwFlags = STARTF_USESTDHANDLES;
  startup.hStdError = GetStdHandle(STD_ERROR_HANDLE);
  SetHandleInformation(startup.hStdError, HANDLE_FLAG_INHERIT, HANDLE_FLAG_INHERIT);
  PROCESS_INFORMATION process{};
  if (!CreateProcessW(nullptr, &commandLine[0], nullptr, nullptr, TRUE, 0, nullptr, nullptr, &startup, &process)) {
    std::fprintf(stderr, "box_driver: cannot start the program (error %lu)\n", GetLastError());
    return kDriverFailedExitCode;
  }
  std::set<HWND> answered;
  DWORD waited = 0;
  while (WaitForSingleObject(process.hProcess, kPollMilliseconds) == WAIT_TIMEOUT) {
    AnswerBoxes(process.dwProcessId, answered);
    waited += kPollMilliseconds;
    if (waited >= timeoutMs) {
      TerminateProcess(process.hProcess, kTimedOutExitCode);
      std::fprintf(stderr, "box_driver: the program did not end in time\n");
      return kTimedOutExitCode;
    }
  }
  DWORD exitCode = 0;
  GetExitCodeProcess(process.hProcess, &exitCode);
  CloseHandle(process.hThread);
  CloseHandle(process.hProcess);
  return int(exitCode);
}
