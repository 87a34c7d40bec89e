#include "ui/win32/message_box.h"

#include "platform/win32/standard_error.h"
#include "platform/win32/wide_cast.h"

namespace NScrivolt::Ui {

int ShowMessage(HWND owner, const CText& text, MessageId title, UINT style) {
  const WString caption = CText(title).str();
  const int pressed = MessageBoxW(owner, Platform::AsWin(text.str()), Platform::AsWin(caption), style);
  if (Platform::BoxFailed(pressed)) Platform::WriteMessageToStandardError(text.str(), caption);
  return pressed;
}

}  // namespace NScrivolt::Ui
