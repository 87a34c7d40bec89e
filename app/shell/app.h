// CApp: the running program itself, made once at start-up and reachable
// from everywhere until shutdown: its module handle, its file and the folder
// it is installed in.
#pragma once

#include <windows.h>

#include "text/base/wide_string.h"

namespace NScrivolt {

class CApp {
 public:
  // A null `instance` means the executable's own module.
  explicit CApp(HINSTANCE instance);
  CApp(const CApp&) = delete;
  CApp& operator=(const CApp&) = delete;
  virtual ~CApp();

  // The object made at start-up; null before and after.
  static CApp* Get() { return current_; }

  HINSTANCE GetInstance() const { return instance_; }
  // Read from the system on first use (at most 260 characters).
  const WString& GetExePath();
  // The executable's folder, without the last backslash.
  const WString& GetInstallPath();

 private:
  static CApp* current_;
  HINSTANCE instance_;
  WString exePath_;
  WString installPath_;
};

}  // namespace NScrivolt
