#include <gtest/gtest.h>

#include <iterator>
#include <string>
#include <vector>

#include "cmdline/cmd_line.h"
#include "cmdline/command_line_arguments.h"
#include "cmdline/switch_table.h"
#include "text/usage_text.h"
#include "text/utf8.h"

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
    {"switches and options", u"/set Name World /go", "S</set>O<Name>O<World>S</go>"},
    {"tabs and runs of blanks separate", u"\t/in\t\ta.txt   /go ", "S</in>O<a.txt>S</go>"},
    {"line breaks do not separate", u"a\r\nb", "O<a\r\nb>"},
    {"quoted path with spaces is one token", u"/in \"my file.txt\"", "S</in>O<my file.txt>"},
    {"quotes inside a token join its parts", u"a\"b c\"d", "O<ab cd>"},
    {"empty quotes give no token", u"/set x \"\" /go", "S</set>O<x>S</go>"},
    {"two quotes in a row add nothing", u"ab\"\"cd", "O<abcd>"},
    {"quoted switch is still a switch", u"\"/go\"", "S</go>"},
    {"unclosed quote runs to the end", u"\"a b", "O<a b>"},
    {"one backslash before a quote makes it literal", u"a\\\"b", "O<a\"b>"},
    {"three backslashes before a quote", u"\\\\\\\"", "O<\\\">"},
    {"two backslashes before a quote halve and quote", u"\"a\\\\\" b", "O<a\\>O<b>"},
    {"four backslashes before a quote", u"x\\\\\\\\\"y z\"", "O<x\\\\y z>"},
    {"backslashes elsewhere stay", u"C:\\\\dir\\file", "O<C:\\\\dir\\file>"},
    {"trailing backslashes stay", u"dir\\\\", "O<dir\\\\>"},
    {"backslashes before a blank stay", u"a\\\\ b", "O<a\\\\>O<b>"},
    {"literal quote inside quotes keeps quoting", u"\"a \\\" b\"", "O<a \" b>"},
    {"any slash token is a switch", u"/var/www -x --in", "S</var/www>O<-x>O<--in>"},
};

TEST(CmdLine, ParseSplitsWithQuotesAndBackslashes) {
  for (const ParseCase& c : kParseCases) {
    CCmdLine commandLine(SwitchSyntax::Slash);
    commandLine.Parse(c.text);
    EXPECT_EQ(Describe(commandLine.Entries()), c.tokens) << c.name;
    EXPECT_EQ(commandLine.SourceText(), c.text) << c.name;
  }
}

// Which tokens are switches where absolute paths begin with "/" too.
TEST(CmdLine, KnownNameOrDashSyntax) {
  const ParseCase cases[] = {
      {"known names", u"/in /IN /Go /? /commandFileEncoding", "S</in>S</IN>S</Go>S</?>S</commandFileEncoding>"},
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

// The usage text explains every switch the table knows, each on a line of
// its own below the heading.
TEST(UsageText, NamesEverySwitch) {
  const WString usage = UsageText();
  const WStringView names[] = {u"\n  /?",          u"/help",        u"\n  /set ",        u"\n  /setsubparams ",
                               u"\n  /unset ",     u"\n  /basepath ", u"\n  /in ",         u"\n  /out ",
                               u"\n  /commandfile ", u"\n  /feedbackdest ", u"\n  /feedbackmode ", u"\n  /inencoding ",
                               u"\n  /outencoding ", u"\n  /commandfileencoding ", u"\n  /go\n"};
  static_assert(std::size(names) == std::size_t(SwitchKind::Unknown), "one entry per switch");
  for (const WStringView name : names) {
    EXPECT_NE(usage.find(name), WString::npos) << WideToUtf8(name);
    const WStringView bare = name.substr(name.find(u'/') + 1);
    EXPECT_NE(FindSwitch(bare.substr(0, bare.find_first_of(u" \n"))), SwitchKind::Unknown) << WideToUtf8(name);
  }
}

}  // namespace
}  // namespace NScrivolt
