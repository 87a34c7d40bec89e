// A program that faults on purpose, with the program's fault handler
// installed as the Windows program installs it, so that a test sees the real
// handler at work on a real structured exception.
//
//   fault_probe.exe write-null | call-nowhere | module-write-null | stack-overflow | throw | fault-in-report
//
// throw lets an exception leave the run, which the entry point's last
// resort catches; fault-in-report installs a callback that faults itself.
//
// module-write-null faults inside fault_module.dll, which lies beside it.
//
// Before faulting it registers an exit-time handler that leaves the file
// "exit-handlers-ran" in the current folder: the handler ends the process
// through the runtime's normal exit.
#include <windows.h>

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <new>
#include <string>

#include "app/services/unhandled_error.h"
#include "text/resource_module.h"

namespace {

// Read at run time, so the compiler cannot see the fault coming and replace
// it by a trap instruction of its own.
volatile std::uintptr_t gNullAddress = 0;
volatile std::uintptr_t gCodeNowhere = 0x10;
volatile bool gRecurse = true;

// Recurses until the stack is gone; the volatile buffer keeps each frame
// large and the recursion from becoming a loop.
int Deeper(int depth) {
  volatile char frame[4096];
  frame[0] = char(depth);
  return gRecurse ? Deeper(depth + 1) + frame[0] : 0;
}

void LeaveExitMarker() {
  if (std::FILE* marker = std::fopen("exit-handlers-ran", "w")) std::fclose(marker);
}

}  // namespace

int WriteNull() {
  *reinterpret_cast<volatile int*>(gNullAddress) = 1;
  return 0;
}

int FaultingReport(const NScrivolt::CSEHandler&) { return WriteNull(); }

int ThrowOutOfMemory() { throw std::bad_alloc(); }

int wmain(int argc, wchar_t** argv) {
  static NScrivolt::CResourceModule resources(GetModuleHandleW(nullptr), GetModuleHandleW(nullptr));
  NScrivolt::SetCurrentResourceModule(&resources);
  NScrivolt::InstallUnhandledErrorHandler(NScrivolt::ShowUnhandledError);
  std::atexit(LeaveExitMarker);
  const std::wstring what = argc > 1 ? argv[1] : L"";
  if (what == L"write-null") {
    return WriteNull();
  } else if (what == L"fault-in-report") {
    NScrivolt::InstallUnhandledErrorHandler(FaultingReport);
    return WriteNull();
  } else if (what == L"call-nowhere") {
    reinterpret_cast<void (*)()>(gCodeNowhere)();
  } else if (what == L"throw") {
    return NScrivolt::RunWithLastResort(ThrowOutOfMemory);
  } else if (what == L"stack-overflow") {
    return Deeper(0);
  } else if (what == L"module-write-null") {
    const HMODULE module = LoadLibraryW(L"fault_module.dll");
    const FARPROC writeNull = module != nullptr ? GetProcAddress(module, "WriteNull") : nullptr;
    if (writeNull == nullptr) {
      std::fprintf(stderr, "fault_probe: fault_module.dll cannot be used\n");
      return 3;
    }
    reinterpret_cast<void (*)()>(reinterpret_cast<void*>(writeNull))();
  } else {
    std::fprintf(stderr, "usage: fault_probe write-null | call-nowhere | module-write-null | stack-overflow | throw | fault-in-report\n");
    return 3;
  }
  return 0;
}
