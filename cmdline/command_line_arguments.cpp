#include "cmdline/command_line_arguments.h"

namespace NScrivolt {

namespace {

bool IsSeparator(WChar c) { return c == u' ' || c == u'\t' || c == u'\r' || c == u'\n'; }

// The position behind a program name that starts with a double quote;
// npos when the name is never closed.
std::size_t EndOfQuotedName(WStringView line) {
  std::size_t at = 1;
  for (;;) {
    const std::size_t quote = line.find(u'"', at);
    if (quote == WStringView::npos) return quote;
    if (quote + 1 < line.size() && line[quote + 1] == u'"') {
      at = quote + 2;
      continue;
    }
    return quote + 1;
  }
}

std::size_t EndOfPlainName(WStringView line) {
  std::size_t at = 0;
  while (at < line.size() && !IsSeparator(line[at])) ++at;
  return at < line.size() ? at + 1 : at;
}

}  // namespace

WString GetCommandLineArguments(WStringView commandLine) {
  std::size_t at = 0;
  if (!commandLine.empty() && commandLine[0] == u'"') {
    at = EndOfQuotedName(commandLine);
    if (at == WStringView::npos) return WString();
  } else {
    at = EndOfPlainName(commandLine);
  }
  while (at < commandLine.size() && IsSeparator(commandLine[at])) ++at;
  return WString(commandLine.substr(at));
}

}  // namespace NScrivolt
