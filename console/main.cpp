// Entry point of the POSIX console program.
#include <cstdio>

#include "text/text.h"
#include "text/utf8.h"

int main() {
  using namespace NScrivolt;
  std::printf("%s\n%s\n", WideToUtf8(CText(MsgVersion).str()).c_str(),
              WideToUtf8(CText(MsgReleaseDate).str()).c_str());
  return 0;
}
