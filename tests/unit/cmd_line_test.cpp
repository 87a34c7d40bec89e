#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "cmdline/cmd_line.h"
#include "cmdline/command_line_arguments.h"
#include "text/base/utf8.h"

namespace NScrivolt {
namespace {

using Platform::SwitchSyntax;

// The tokens as "S<text>" for a switch and "O<text>" for an option, in order.
std::string Describe(const CCmdLineEntries& entries) {
  std::string description;
  for (const CCmdLineEntry& entry : entries) {
    description += (entry.isSwitch ? "S<" : "O<") + WideToUtf8(entry.text) + ">";
  }
  return description;
}

struct ParseCase {
  const char* name;
  const WChar* text;
  const char* tokens;
};

// Splitting with the Windows rule, where every "/" token is a switch.
const ParseCase kParseCases[] = {
    {"empty text", u"", ""},
    {"blanks only", u" \t  ", ""},
    {"tabs and runs of blanks separate", u"\t/in\t\ta.txt   /go ", "S</in>O<a.txt>S</go>"},
    {"line breaks do not separate", u"a\r\nb", "O<a\r\nb>"},
    {"quotes inside a token join its parts", u"a\"b c\"d", "O<ab cd>"},
    {"empty quotes give no token", u"/set x \"\" /go", "S</set>O<x>S</go>"},
    {"unclosed quote runs to the end", u"\"a b", "O<a b>"},
    {"two backslashes before a quote halve and quote", u"\"a\\\\\" b", "O<a\\>O<b>"},
    {"four backslashes before a quote", u"x\\\\\\\\\"y z\"", "O<x\\\\y z>"},
    {"trailing backslashes stay", u"dir\\\\", "O<dir\\\\>"},
    {"any slash token is a switch", u"/var/www -x --in", "S</var/www>O<-x>O<--in>"},
};

TEST(CmdLine, ParseSplitsWithQuotesAndBackslashes) {
  for (const ParseCase& c : kParseCases) {
    CCmdLine commandLine(SwitchSyntax::Slash);
    commandLine.Parse(c.text);
    EXPECT_EQ(Describe(commandLine.Entries()), c.tokens) << c.name;
  }
}

// Which tokens are switches where absolute paths begin with "/" too.
TEST(CmdLine, KnownNameOrDashSyntax) {
  const ParseCase cases[] = {
      {"dashes", u"--in --HELP --version --", "S<--in>S<--HELP>S<--version>S<-->"},
      {"paths are options", u"/var/www /tmp/x.txt / /in/x /inx", "O</var/www>O</tmp/x.txt>O</>O</in/x>O</inx>"},
      {"no abbreviations", u"/se /feedback", "O</se>O</feedback>"},
      {"one dash is not enough", u"-in", "O<-in>"},
  };
  for (const ParseCase& c : cases) {
    CCmdLine commandLine(SwitchSyntax::KnownNameOrDash);
    commandLine.Parse(c.text);
    EXPECT_EQ(Describe(commandLine.Entries()), c.tokens) << c.name;
  }
}

TEST(CmdLine, SetArgumentsTakesElementsWhole) {
  CCmdLine commandLine(SwitchSyntax::KnownNameOrDash);
  commandLine.SetArguments({u"/set", u"", u"Dir", u"/var/www", u"a \"b\" \\c", u"--go"});
  EXPECT_EQ(Describe(commandLine.Entries()), "S</set>O<Dir>O</var/www>O<a \"b\" \\c>S<--go>");
}

struct ArgumentsCase {
  const char* name;
  const WChar* commandLine;
  const WChar* arguments;
};

const ArgumentsCase kArgumentsCases[] = {
    {"empty", u"", u""},
    {"plain name only", u"scrivolt.exe", u""},
    {"plain name and arguments", u"scrivolt.exe /in a.txt", u"/in a.txt"},
    {"separators after the name are skipped", u"scrivolt.exe \t\r\n /go  ", u"/go  "},
    {"a tab ends a plain name", u"scrivolt.exe\t/go", u"/go"},
    {"a line feed ends a plain name", u"scrivolt.exe\n/go", u"/go"},
    {"quoted name with spaces", u"\"C:\\Program Files\\Scrivolt.exe\" /go", u"/go"},
    {"nothing behind a quoted name", u"\"C:\\a b\\Scrivolt.exe\"", u""},
    {"arguments right behind the closing quote", u"\"x.exe\"/go", u"/go"},
    {"doubled quotes belong to the name", u"\"a\"\"b.exe\" /go \"c d\"", u"/go \"c d\""},
    {"unclosed quoted name means no arguments", u"\"C:\\x.exe /go", u""},
    {"doubled quote at the end leaves the name open", u"\"x.exe\"\" /go", u""},
    {"rest is kept as it stands", u"x \"/set\"  a\\\"b ", u"\"/set\"  a\\\"b "},
};

TEST(CommandLineArguments, ProgramNameIsRemoved) {
  for (const ArgumentsCase& c : kArgumentsCases) {
    EXPECT_EQ(GetCommandLineArguments(c.commandLine), c.arguments) << c.name;
  }
}

}  // namespace
}  // namespace NScrivolt
