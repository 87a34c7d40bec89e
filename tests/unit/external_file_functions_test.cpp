#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "unit/ansi_samples.h"
#include "unit/file_case_run.h"

namespace NScrivolt {
namespace {

using namespace std::string_literals;
using Testing::CFileCaseRun;
using Testing::FileCase;

// ASCII text as UTF-16 with its mark, little- or big-endian.
std::string Utf16(std::string_view ascii, bool bigEndian) {
  std::string bytes = bigEndian ? "\xFE\xFF" : "\xFF\xFE";
  for (char c : ascii) {
    bytes += bigEndian ? '\0' : c;
    bytes += bigEndian ? c : '\0';
  }
  return bytes;
}

void CheckEach(const FileCase* cases, size_t count) {
  for (size_t i = 0; i < count; ++i) CFileCaseRun().Check(cases[i]);
}

const char kMarkedText[] = "x <# use param: \"p\" #> <#<# y";

const FileCase kInputCases[] = {
    {"input keeps script markers",
     {{"a.txt", kMarkedText}},
     u"[<# input file: \"a.txt\" #>]", "[x <# use param: \"p\" #> <#<# y]", "", {}},
    {"input reads the file's mark",
     {{"a.txt", "\xFF\xFE" "A\0B\0"s}},
     u"<# input file: \"a.txt\" #>", "AB", "", {}},
    {"\"AUTO\" is the same as no encoding",
     {{"a.txt", "\xFE\xFF\0A\0B"s}},
     u"<# input file: \"a.txt\" fileencoding: \"AUTO\" #>", "AB", "", {}},
    {"explicit encoding for a file without mark",
     {{"a.txt", "A\0B\0"s}},
     u"<# input file: \"a.txt\" FileEncoding: \"utf16le\" #>", "AB", "", {}},
    {"skipifmissing gives empty text",
     {},
     u"[<# input file: \"missing.txt\" skipifmissing #>]", "[]", "", {}},
    {"a missing file is an error",
     {},
     u"<# input file: \"missing.txt\" #>", "",
     "\n- Cannot read from file \"{DIR}{/}missing.txt\"\n"
     "- Error processing function \"input\" at line 1, column 4, re-processed content",
     {}},
    {"a folder cannot be read, skipifmissing or not",
     {{"folder/", ""}},
     u"<# input file: \"folder\" skipifmissing #>", "",
     "\n- Cannot read from file \"{DIR}{/}folder\"\n"
     "- Error processing function \"input\" at line 1, column 4, re-processed content",
     {}},
    {"file is required",
     {},
     u"<# input skipifmissing #>", "",
     "- Argument \"File\" is missing at line 1, column 4, re-processed content\n"
     "- Error processing function \"input\" at line 1, column 4, re-processed content",
     {}},
    {"content is not an argument of input",
     {},
     u"<# input content: \"x\" #>", "",
     "- Unknown argument \"content\" found at line 1, column 10, re-processed content\n"
     "- Error setting up \"input\" functie at line 1, column 4, re-processed content",
     {}},
    {"unknown encoding keyword",
     {{"a.txt", "text"}},
     u"<# input file: \"a.txt\" FileEncoding: \"utf-8\" #>", "",
     "- Unknown option \"utf-8\" for \"FileEncoding\" found at line 1, column 24, re-processed content\n"
     "- Error processing function \"input\" at line 1, column 4, re-processed content",
     {}},
    {"encoding given without a value",
     {{"a.txt", "text"}},
     u"<# input file: \"a.txt\" fileencoding #>", "",
     "- Argument \"FileEncoding\" is missing a value at line 1, column 24, re-processed content\n"
     "- Error processing function \"input\" at line 1, column 4, re-processed content",
     {}},
    {"the encoding is checked before the file",
     {},
     u"<# input file: \"missing.txt\" fileencoding: \"latin1\" #>", "",
     "- Unknown option \"latin1\" for \"fileencoding\" found at line 1, column 30, re-processed content\n"
     "- Error processing function \"input\" at line 1, column 4, re-processed content",
     {}},
    {"leading backslash is below _BasePath",
     {{"base/a.txt", "below base"}, {"a.txt", "current folder"}},
     u"<# set param: \"_BasePath\" to: \"{DIR}/base\"; input file: \"\\a.txt\" #>", "below base", "", {}},
};

TEST(ExternalFiles, Input) { CheckEach(kInputCases, std::size(kInputCases)); }


const FileCase kProcessCases[] = {
    {"process evaluates the file input copies",
     {{"a.txt", kMarkedText}},
     u"<# set param: \"p\" to: \"P\" #>[<# process file: \"a.txt\" #>]", "[x P <# y]", "", {}},
    {"process of a content text",
     {},
     u"<# set param: \"p\" to: \"P\"; set param: \"t\" to: (#>a<#<# use param: \"p\" #>#>b<#) #>"
     u"[<# process content: t #>]",
     "[aPb]", "", {}},
    {"parameters and functions made inside stay",
     {{"a.txt", "<# set param: \"Made\" to: \"inside\"; makefunction name: \"f\" content: (#>F<#) #>"}},
     u"<# process file: \"a.txt\" #><# use param: \"Made\" #>:<# f #>", "inside:F", "", {}},
    {"the file parameters are the processed file's, then put back",
     {{"a.txt", "<# use param: \"_CurrentFile\" #>|<# use param: \"_InFile\" #>"}},
     u"<# set param: \"_InFile\" to: \"in\"; set param: \"_CurrentFile\" to: \"cur\" #>"
     u"[<# process file: \"a.txt\" #>][<# use param: \"_CurrentFile\" #>|<# use param: \"_InFile\" #>]",
     "[a.txt|][cur|in]", "", {}},
    {"skipifmissing gives empty text",
     {},
     u"[<# process file: \"missing.txt\" skipifmissing #>]", "[]", "", {}},
    {"both file and content, even for an existing file",
     {{"a.txt", "text"}},
     u"\n  <# process file: \"a.txt\" content: \"x\" #>", "",
     "- Both \"File\" and \"Content\" specified at line 2, column 6, re-processed content\n"
     "- Error processing function \"process\" at line 2, column 6, re-processed content",
     {}},
    {"neither file nor content",
     {},
     u"<# process skipifmissing #>", "",
     "- Missing argument \"File\" or \"Content\" at line 1, column 4, re-processed content\n"
     "- Error processing function \"process\" at line 1, column 4, re-processed content",
     {}},
    {"an error inside re-processed content",
     {},
     u"<# process content: \"\r\n<# use param: \"\"q\"\" #>\" #>", "",
     "- Parameter \"q\" is not set when evaluating argument \"param\" at line 2, column 8, re-processed content\n"
     "- Error processing function \"use\" at line 2, column 4, re-processed content\n"
     "- Error processing function \"process\" at line 1, column 4, re-processed content",
     {}},
    {"a syntax error in a processed file",
     {{"bad.txt", "fine\n<# set param: \"x\" to: \"open #>"}},
     u"<# set param: \"x\" to: \"before\" #><# process file: \"bad.txt\" #>", "",
     "- Text value not closed properly at line 2, column 24, file \"bad.txt\"\n"
     "- Error processing function \"process\" at line 1, column 37, re-processed content",
     {}},
    {"three files deep: the innermost error first, then each enclosing call",
     {{"one.txt", "1<# process file: \"sub/two.txt\" #>"},
      {"sub/two.txt", "2\n <# process file: \"three.txt\" #>"},
      {"sub/three.txt", "3\n<# use param: \"missing\" #>"}},
     u"<# process file: \"one.txt\" #>", "",
     "- Parameter \"missing\" is not set when evaluating argument \"param\" at line 2, column 8, file \"three.txt\"\n"
     "- Error processing function \"use\" at line 2, column 4, file \"three.txt\"\n"
     "- Error processing function \"process\" at line 2, column 5, file \"sub/two.txt\"\n"
     "- Error processing function \"process\" at line 1, column 5, file \"one.txt\"\n"
     "- Error processing function \"process\" at line 1, column 4, re-processed content",
     {}},
    {"relative paths are taken from the including file's folder",
     {{"sub/a.txt", "<# input file: \"b.txt\" #>+<# process file: \"../c.txt\" #>"},
      {"sub/b.txt", "sub b"},
      {"b.txt", "top b"},
      {"c.txt", "<# input file: \"b.txt\" #>"}},
     u"<# process file: \"sub/a.txt\" #>|<# input file: \"b.txt\" #>", "sub b+top b|top b", "", {}},
    {"re-processed content runs in the including file's folder",
     {{"sub/a.txt", "<# process content: (#><#<# input file: \"b.txt\" #>#><#) #>"},
      {"sub/b.txt", "sub b"},
      {"sub/sub/b.txt", "wrong b"}},
     u"<# process file: \"sub/a.txt\" #>", "sub b", "", {}},
    {"a processed file's encoding",
     {{"a.txt", Utf16("<# use param: \"p\" #>", false)}},
     u"<# set param: \"p\" to: \"P\"; process file: \"a.txt\" #>", "P", "", {}},
};

TEST(ExternalFiles, Process) { CheckEach(kProcessCases, std::size(kProcessCases)); }

const FileCase kOutputCases[] = {
    {"two files with identical bytes, nothing in the output",
     {{"sub/", ""}},
     u"[<# output file: \"a.txt\" FILE: \"sub/b.txt\" content: \"text\" fileencoding: \"utf8\" #>]", "[]", "",
     {{"a.txt", "\xEF\xBB\xBFtext"}, {"sub/b.txt", "\xEF\xBB\xBFtext"}}},
    {"functionresult puts the content in the output",
     {{"a.txt", "old"}},
     u"[<# output file: \"a.txt\" content: \"new\" functionresult #>]", "[new]", "", {{"a.txt", "new"}}},
    {"no file: only the result",
     {},
     u"[<# output content: \"x\" functionresult #>]", "[x]", "", {}},
    {"ascii", {}, u"<# output file: \"a.txt\" content: \"Ab\" fileencoding: \"ascii\" #>", "", "", {{"a.txt", "Ab"}}},
    {"utf8", {}, u"<# output file: \"a.txt\" content: \"Ab\" fileencoding: \"UTF8\" #>", "", "",
     {{"a.txt", "\xEF\xBB\xBF" "Ab"}}},
    {"utf16", {}, u"<# output file: \"a.txt\" content: \"Ab\" fileencoding: \"utf16\" #>", "", "",
     {{"a.txt", "\xFF\xFE" "A\0b\0"s}}},
    {"utf16le", {}, u"<# output file: \"a.txt\" content: \"Ab\" fileencoding: \"utf16le\" #>", "", "",
     {{"a.txt", "\xFF\xFE" "A\0b\0"s}}},
    {"utf16be", {}, u"<# output file: \"a.txt\" content: \"Ab\" fileencoding: \"utf16be\" #>", "", "",
     {{"a.txt", "\xFE\xFF\0A\0b"s}}},
    {"auto mirrors the template: no mark", {},
     u"<# output file: \"a.txt\" content: \"Ab\" fileencoding: \"auto\" #>", "", "", {{"a.txt", "Ab"}}},
    {"no encoding mirrors the processed file's, mark included",
     {{"t.txt", Utf16("<# output file: \"a\" content: \"A\" #>", true)}},
     u"<# process file: \"t.txt\" #>", "", "", {{"a", "\xFE\xFF\0A"s}}},
    {"the first failing file ends the writing",
     {{"folder/", ""}},
     u"<# output file: \"a.txt\" file: \"folder\" file: \"c.txt\" content: \"x\" #>", "",
     "\n- Cannot write to file \"{DIR}{/}folder\"\n"
     "- Error processing function \"output\" at line 1, column 4, re-processed content",
     {{"a.txt", "x"}}},
    {"a file in a missing folder",
     {{"a.txt", "old"}},
     u"<# output file: \"a.txt\" file: \"missing/b.txt\" content: \"new\" #>", "",
     "\n- Cannot write to file \"{DIR}{/}missing{/}b.txt\"\n"
     "- Error processing function \"output\" at line 1, column 4, re-processed content",
     {{"a.txt", "new"}}},
    {"an unknown encoding touches no file",
     {{"a.txt", "old"}},
     u"<# output file: \"a.txt\" file: \"b.txt\" content: \"new\" fileencoding: \"utf-16\" #>", "",
     "- Unknown option \"utf-16\" for \"fileencoding\" found at line 1, column 54, re-processed content\n"
     "- Error processing function \"output\" at line 1, column 4, re-processed content",
     {{"a.txt", "old"}}},
    {"content is required",
     {},
     u"<# output file: \"a.txt\" #>", "",
     "- Argument \"Content\" is missing at line 1, column 4, re-processed content\n"
     "- Error processing function \"output\" at line 1, column 4, re-processed content",
     {}},
    {"files are evaluated before the content, in order",
     {},
     u"<# output file: (set param: \"n\" to: \"1\"#>a<#) file: (use param: \"n\") content: (use param: \"n\") #>"
     u"<# use param: \"n\" #>",
     "1", "", {{"a", "1"}, {"1", "1"}}},
    {"a failing file argument writes nothing",
     {},
     u"<# output file: \"a.txt\" file: Missing content: \"x\" #>", "",
     "- Parameter \"Missing\" is not set when evaluating argument \"file\" at line 1, column 25, "
     "re-processed content\n"
     "- Error processing function \"output\" at line 1, column 4, re-processed content",
     {}},
    {"a flag's value is never evaluated",
     {},
     u"<# output content: \"x\" functionresult: Missing #><# input file: \"none\" skipifmissing: (error) #>", "x",
     "", {}},
};

TEST(ExternalFiles, Output) { CheckEach(kOutputCases, std::size(kOutputCases)); }

// The ANSI code page is the locale's character set on POSIX and the system's
// under Windows; Windows-1252 there accepts every byte.
TEST(ExternalFiles, BytesInvalidInTheAnsiCodePageAreAnError) {
  std::string invalid;
  if (!Testing::FindBytesInvalidInAnsi(invalid)) GTEST_SKIP() << "every byte is valid in this code page";
  const struct {
    const WChar* text;
    const char* function;
  } cases[] = {{u"<# input file: \"a.txt\" skipifmissing #>", "input"}, {u"<# process file: \"a.txt\" #>", "process"}};
  for (const auto& c : cases) {
    CFileCaseRun run;
    run.Put({{"a.txt", "ok " + invalid}});
    EXPECT_EQ(Lines(run.Run(c.text).errors),
              run.Expand("\n- Cannot read from file \"{DIR}{/}a.txt\"\n- Error processing function \""s + c.function +
                         "\" at line 1, column 4, re-processed content"));
  }
}

// A failed processing leaves the current directory as it was, so the paths
// after it are still taken from the including template's folder.
TEST(ExternalFiles, TheCurrentDirectoryIsBackAfterAFailedProcessing) {
  CFileCaseRun run;
  run.Put({{"sub/a.txt", "<# use param: \"missing\" #>"}, {"b.txt", "top b"}});
  EXPECT_NE(run.Run(u"<# process file: \"sub/a.txt\" #>").errors, u"");
  EXPECT_EQ(WideToUtf8(run.Run(u"<# input file: \"b.txt\" #>").output), "top b");
}

// Each nested processing is one level deeper: a file that processes itself
// stops at the nesting limit, with one line for every call on the way out.
TEST(ExternalFiles, AFileThatProcessesItselfStopsAtTheNestingLimit) {
  CFileCaseRun run;
  run.Put({{"self.txt", "<# process file: \"self.txt\" #>"}});
  const std::string report = Lines(run.Run(u"<# process file: \"self.txt\" #>").errors);
  std::vector<std::string> lines;
  for (size_t start = 0, end = 0; end != std::string::npos; start = end + 1) {
    end = report.find('\n', start);
    lines.push_back(report.substr(start, end - start));
  }
  ASSERT_EQ(lines.size(), 1u + 1 + kMaxNestingDepth);
  EXPECT_EQ(lines.front(), "- Too many nested function calls (1000) at line 1, column 1, file \"self.txt\"");
  for (size_t i = 1; i + 1 < lines.size(); ++i) {
    ASSERT_EQ(lines[i], "- Error processing function \"process\" at line 1, column 4, file \"self.txt\"") << i;
  }
  EXPECT_EQ(lines.back(), "- Error processing function \"process\" at line 1, column 4, re-processed content");
}

}  // namespace
}  // namespace NScrivolt
