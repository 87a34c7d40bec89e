#include "ui/win32/message_box.h"

#include "platform/win32/wide_cast.h"

namespace NScrivolt::Ui {

int ShowMessage(HWND owner, const CText& text, MessageId title, UINT style) {
  return MessageBoxW(owner, Platform::AsWin(text.str()), Platform::AsWin(CText(title).str()), style);
}

}  // namespace NScrivolt::Ui
