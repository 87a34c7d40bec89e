#include "platform/message_box.h"

#include <cstdio>
#include <string>

#include "text/base/utf8.h"

namespace NScrivolt::Platform {

void ShowMessageBox(WStringView text, WStringView title, MessageBoxIcon) {
  const std::string shown = WideToUtf8(title) + "\n" + WideToUtf8(text) + "\n";
  std::fwrite(shown.data(), 1, shown.size(), stderr);
  std::fflush(stderr);
}

}  // namespace NScrivolt::Platform
