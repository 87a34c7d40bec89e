#include "platform/current_directory.h"

#include <unistd.h>

#include <cerrno>
#include <string>

#include "platform/paths.h"
#include "text/base/utf8.h"

namespace NScrivolt::Platform {

namespace {

constexpr size_t kFirstBufferSize = 256;

}  // namespace

bool CurrentDirectory(WString& directory) {
  std::string buffer(kFirstBufferSize, '\0');
  while (getcwd(&buffer[0], buffer.size()) == nullptr) {
    if (errno != ERANGE) return false;
    buffer.resize(buffer.size() * 2);
  }
  buffer.resize(buffer.find('\0'));
  directory = Utf8ToWide(buffer);
  return true;
}

bool ChangeCurrentDirectory(const WString& directory) {
  return IsWholePath(directory) && chdir(WideToUtf8(directory).c_str()) == 0;
}

}  // namespace NScrivolt::Platform
