#include "cmdline/unexpected_error.h"

#include "platform/message_box.h"
#include "text/text.h"

namespace NScrivolt {

void ShowUnexpectedError(WStringView description) {
  const WString what = description.empty() ? CText(MsgUnknownErrorOccurred).str() : WString(description);
  const CText text = CText(MsgUnhandledError).Replace(u"[ERROR]", what);
  Platform::ShowMessageBox(text.str(), CText(MsgUnhandledErrorTitle).str(), Platform::MessageBoxIcon::Error);
}

}  // namespace NScrivolt
