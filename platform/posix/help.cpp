#include "platform/help.h"

#include <cstdio>
#include <string>

#include "text/usage_text.h"
#include "text/base/utf8.h"

namespace NScrivolt::Platform {

void ShowHelpTopic(WindowHandle, std::uint32_t) {
  const std::string shown = WideToUtf8(UsageText());
  std::fwrite(shown.data(), 1, shown.size(), stdout);
  std::fflush(stdout);
}

}  // namespace NScrivolt::Platform
