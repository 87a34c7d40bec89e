#include "platform/error_text.h"

#include <cerrno>
#include <cstring>

#include "text/base/utf8.h"

namespace NScrivolt::Platform {

std::uint32_t LastErrorCode() { return static_cast<std::uint32_t>(errno); }

bool SystemErrorDescription(std::uint32_t code, WString& description) {
  if (code == 0) return false;
  const char* text = std::strerror(static_cast<int>(code));
  if (text == nullptr || *text == '\0' || std::strncmp(text, "Unknown error", 13) == 0) return false;
  description = Utf8ToWide(text);
  return true;
}

}  // namespace NScrivolt::Platform
