// Entry point of the POSIX console program: each argument is one token.
// Without arguments it prints the usage text; "--version" alone prints the
// version lines. Everything else is a command-line run, whose result is the
// exit code. A help switch is a switch of the run like any other: it prints
// the usage text and the run goes on.
#include <csignal>
#include <cstdint>
#include <cstdio>
#include <exception>
#include <initializer_list>
#include <string>
#include <vector>

#include "cmdline/cmd_line_processor.h"
#include "cmdline/switch_table.h"
#include "cmdline/unexpected_error.h"
#include "engine/process_context.h"
#include "text/text.h"
#include "text/usage_text.h"
#include "text/base/utf8.h"

namespace {

using namespace NScrivolt;

void PrintToStandardOutput(const WString& text) {
  const std::string bytes = WideToUtf8(text);
  std::fwrite(bytes.data(), 1, bytes.size(), stdout);
  std::fflush(stdout);
}

// The help opener of the console program: whatever the page, the usage text.
void PrintUsageText(MessageId) { PrintToStandardOutput(UsageText()); }

bool IsBlank(const WString& argument) {
  return argument.find_first_not_of(u" \t\r\n") == WString::npos;
}

// The arguments that are not blank.
std::vector<WString> VisibleArguments(int argc, char** argv) {
  std::vector<WString> visible;
  for (int i = 1; i < argc; ++i) {
    WString argument = Utf8ToWide(argv[i]);
    if (!IsBlank(argument)) visible.push_back(std::move(argument));
  }
  return visible;
}

// "--version" and "--help" ignore case like every switch; "-V" and "-h" are
// the short forms console programs know.
bool IsOneOf(const WString& argument, std::initializer_list<WStringView> forms) {
  for (const WStringView form : forms) {
    if (form.size() > 2 ? EqualsIgnoreCase(argument, form) : argument == form) return true;
  }
  return false;
}

// After a failed run: a token that starts with "/" but names no switch, and
// is close to a switch name, was most likely that switch mistyped.
void PrintSwitchHint(const std::vector<WString>& arguments) {
  for (const WString& argument : arguments) {
    if (argument.size() < 2 || argument[0] != u'/' || FindSwitch(SwitchNameOf(argument)) != SwitchKind::Unknown) continue;
    const WStringView nearest = NearestSwitchName(SwitchNameOf(argument));
    if (nearest.empty()) continue;
    const std::string hint = "did you mean /" + WideToUtf8(nearest) + "?\n";
    std::fwrite(hint.data(), 1, hint.size(), stderr);
    return;
  }
}

int RunProgram(int argc, char** argv) {
  const std::vector<WString> visible = VisibleArguments(argc, argv);
  if (visible.empty()) {
    PrintToStandardOutput(UsageText());
    return 0;
  }
  if (visible.size() == 1 && IsOneOf(visible[0], {u"--version", u"-V"})) {
    PrintToStandardOutput(CText(MsgVersion).str() + u"\n" + CText(MsgReleaseDate).str() + u"\n");
    return 0;
  }
  if (visible.size() == 1 && IsOneOf(visible[0], {u"--help", u"-h"})) {
    PrintToStandardOutput(UsageText());
    return 0;
  }
  std::vector<WString> arguments;
  for (int i = 1; i < argc; ++i) arguments.push_back(Utf8ToWide(argv[i]));
  CPlatformRunScreen screen(PrintUsageText);
  CCmdLineProcessor processor(screen);
  const bool succeeded = processor.Run(arguments);
  KeepTreesUntilProcessEnds(processor.Context());
  if (succeeded) return 0;
  PrintSwitchHint(arguments);
  return 1;
}

}  // namespace

int main(int argc, char** argv) {
  // A file-size limit or a closed pipe then fails the write that meets it,
  // which reports "Cannot write" and keeps the old file, instead of ending
  // the program in the middle of it.
  std::signal(SIGXFSZ, SIG_IGN);
  std::signal(SIGPIPE, SIG_IGN);
  try {
    return RunProgram(argc, argv);
  } catch (const std::exception& error) {
    NScrivolt::ShowUnexpectedError(NScrivolt::Utf8ToWide(error.what()));
  } catch (...) {
    NScrivolt::ShowUnexpectedError(NScrivolt::WStringView());
  }
  return NScrivolt::kUnexpectedErrorExitCode;
}
