#include <gtest/gtest.h>

#include <string>

#include "unit/file_case_run.h"

namespace NScrivolt {
namespace {

using namespace std::string_literals;
using Testing::CFileCaseRun;
using Testing::FileCase;

// What the three functions add to the file layer and the engine: their
// arguments, their order of evaluation and their errors. Reading, writing and
// the encodings themselves are run end to end (tests/e2e/cases/file-*).
const FileCase kCases[] = {
    {"\"AUTO\" is the same as no encoding", {{"a.txt", "\xFE\xFF\0A\0B"s}},
     u"<# input file: \"a.txt\" fileencoding: \"AUTO\" #>", "AB", "", {}},
    {"explicit encoding for a file without mark", {{"a.txt", "A\0B\0"s}},
     u"<# input file: \"a.txt\" FileEncoding: \"utf16le\" #>", "AB", "", {}},
    {"a missing file is an error", {}, u"<# input file: \"missing.txt\" #>", "",
     "\n- Cannot read from file \"{DIR}{/}missing.txt\"" CALL_FAILED("input", 1, 4), {}},
    {"file is required", {}, u"<# input skipifmissing #>", "", ARG_MISSING("File", "input"), {}},
    {"content is not an argument of input", {}, u"<# input content: \"x\" #>", "",
     "- Unknown argument \"content\" found" AT(1, 10) SETUP_FAILED("input", 1, 4), {}},
    {"the encoding is checked before the file", {}, u"<# input file: \"missing.txt\" fileencoding: \"latin1\" #>", "",
     "- Unknown option \"latin1\" for \"fileencoding\" found" AT(1, 30) CALL_FAILED("input", 1, 4), {}},
    {"the file parameters are the processed file's, then put back",
     {{"a.txt", "<# use param: \"_CurrentFile\" #>|<# use param: \"_InFile\" #>"}},
     u"<# set param: \"_InFile\" to: \"in\"; set param: \"_CurrentFile\" to: \"cur\" #>"
     u"[<# process file: \"a.txt\" #>][<# use param: \"_CurrentFile\" #>|<# use param: \"_InFile\" #>]",
     "[a.txt|][cur|in]", "", {}},
    {"both file and content, even for an existing file", {{"a.txt", "text"}},
     u"\n  <# process file: \"a.txt\" content: \"x\" #>", "",
     "- Both \"File\" and \"Content\" specified" AT(2, 6) CALL_FAILED("process", 2, 6), {}},
    {"neither file nor content", {}, u"<# process skipifmissing #>", "",
     "- Missing argument \"File\" or \"Content\"" AT(1, 4) CALL_FAILED("process", 1, 4), {}},
    {"an error inside re-processed content", {}, u"<# process content: \"\r\n<# use param: \"\"q\"\" #>\" #>", "",
     "- Parameter \"q\" is not set when evaluating argument \"param\"" AT(2, 8) CALL_FAILED("use", 2, 4)
     CALL_FAILED("process", 1, 4), {}},
    {"no file: only the result", {}, u"[<# output content: \"x\" functionresult #>]", "[x]", "", {}},
    {"auto mirrors the template: no mark", {},
     u"<# output file: \"a.txt\" content: \"Ab\" fileencoding: \"auto\" #>", "", "", {{"a.txt", "Ab"}}},
    {"content is required", {}, u"<# output file: \"a.txt\" #>", "", ARG_MISSING("Content", "output"), {}},
    {"files are evaluated before the content, in order", {},
     u"<# output file: (set param: \"n\" to: \"1\"#>a<#) file: (use param: \"n\") content: (use param: \"n\") #>"
     u"<# use param: \"n\" #>",
     "1", "", {{"a", "1"}, {"1", "1"}}},
    {"a failing file argument writes nothing", {}, u"<# output file: \"a.txt\" file: Missing content: \"x\" #>", "",
     "- Parameter \"Missing\" is not set when evaluating argument \"file\"" AT(1, 25) CALL_FAILED("output", 1, 4), {}},
    {"a flag's value is never evaluated", {},
     u"<# output content: \"x\" functionresult: Missing #><# input file: \"none\" skipifmissing: (error) #>", "x",
     "", {}},
};

TEST(ExternalFiles, ArgumentsAndErrors) {
  for (const FileCase& c : kCases) CFileCaseRun().Check(c);
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
  std::string expected = "- Too many nested function calls (1000) at line 1, column 1, file \"self.txt\"";
  for (int level = 0; level < kMaxNestingDepth; ++level) {
    expected += "\n- Error processing function \"process\" at line 1, column 4, file \"self.txt\"";
  }
  expected += CALL_FAILED("process", 1, 4);
  EXPECT_EQ(Lines(run.Run(u"<# process file: \"self.txt\" #>").errors), expected);
}

}  // namespace
}  // namespace NScrivolt
