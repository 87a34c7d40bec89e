#include "platform/message_box.h"

#include "platform/win32/standard_error.h"
#include "platform/win32/wide_cast.h"

namespace NScrivolt::Platform {

void ShowMessageBox(WStringView text, WStringView title, MessageBoxIcon icon) {
  UINT style = MB_OK;
  if (icon == MessageBoxIcon::Warning) style |= MB_ICONWARNING;
  if (icon == MessageBoxIcon::Error) style |= MB_ICONERROR;
  const WString textCopy(text);
  const WString titleCopy(title);
  if (BoxFailed(MessageBoxW(nullptr, AsWin(textCopy), AsWin(titleCopy), style))) {
    WriteMessageToStandardError(textCopy, titleCopy);
  }
}

}  // namespace NScrivolt::Platform
