#include "ui/win32/shell_open.h"

#include <shellapi.h>

#include "platform/win32/wide_cast.h"
#include "text/format.h"
#include "text/text.h"
#include "ui/win32/message_box.h"

namespace NScrivolt::Ui {

bool OpenWithShell(HWND owner, const WString& verb, const WString& target, MessageId errorMessage,
                   MessageId title) {
  const auto result = reinterpret_cast<std::intptr_t>(
      ShellExecuteW(owner, Platform::AsWin(verb), Platform::AsWin(target), nullptr, nullptr, SW_SHOWNORMAL));
  if (result > 32) return true;
  CText text(errorMessage);
  text.Replace(u"[FILEPATH]", target).Replace(u"[ERROR]", CText(ShellExecuteErrorMessageId(result)));
  ShowMessage(owner, text, title, MB_OK | MB_ICONERROR);
  return false;
}

}  // namespace NScrivolt::Ui
