// CDupAppPreventer: the marker that Scrivolt runs. It holds a named mutex for
// as long as it lives, so other programs (an installer, a second Scrivolt)
// can tell; and it finds the main window of an instance that runs already.
#pragma once

#include <windows.h>

#include "text/base/wide_string.h"
#include "ui/win32/handle_traits.h"

namespace NScrivolt {

enum class CheckNow { No, Yes };
enum class CreateIfAbsent { No, Yes };

class CDupAppPreventer {
 public:
  CDupAppPreventer(WString mutexName, WString windowClassName, CheckNow checkNow, CreateIfAbsent createIfAbsent);
  virtual ~CDupAppPreventer() = default;

  // Opens the mutex, or creates and owns it when it is absent and
  // `createIfAbsent` says so. True when another instance's main window was
  // found.
  bool Check(CreateIfAbsent createIfAbsent);

  bool IsOwner() const { return owner_; }
  HWND GetOtherWindow() const { return otherWindow_; }

 private:
  WString mutexName_;
  WString windowClassName_;
  Ui::CHandle<Ui::CMutexHandleTraits> mutex_;
  bool owner_ = false;
  HWND otherWindow_ = nullptr;
};

}  // namespace NScrivolt
