// CTempCursor: the wait cursor for as long as the object lives.
#pragma once

#include <windows.h>

namespace NScrivolt::Ui {

class CTempCursor {
 public:
  CTempCursor() : previous_(SetCursor(LoadCursorW(nullptr, IDC_WAIT))) {}
  CTempCursor(const CTempCursor&) = delete;
  CTempCursor& operator=(const CTempCursor&) = delete;
  virtual ~CTempCursor() { SetCursor(previous_); }

 private:
  HCURSOR previous_;
};

}  // namespace NScrivolt::Ui
