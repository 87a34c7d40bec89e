#include <gtest/gtest.h>

#include "unit/file_case_run.h"

namespace NScrivolt {
namespace {

// On POSIX a message box is its title and its text on standard error, so
// what "output screen" shows can be read back.
struct ScreenCase {
  const char* name;
  const WChar* text;
  const char* shown;   // standard error
  const char* output;  // when there is no error
  bool fails;
};

const ScreenCase kCases[] = {
    {"content on the screen only", u"[<# output content: \"two\r\nlines\" screen #>]",
     "Scrivolt - intermediate output\ntwo\r\nlines\n", "[]", false},
    {"screen and result", u"[<# output content: \"x\" screen functionresult #>]",
     "Scrivolt - intermediate output\nx\n", "[x]", false},
    {"shown even when a file failed", u"<# output file: \"missing/a.txt\" content: \"x\" screen #>",
     "Scrivolt - intermediate output\nx\n", "", true},
    {"not shown when the encoding is unknown", u"<# output content: \"x\" screen fileencoding: \"?\" #>", "", "",
     true},
    {"not shown when the content fails", u"<# output content: (use param: \"none\") screen #>", "", "", true},
};

TEST(OutputScreen, ShowsTheContentTitledIntermediateOutput) {
  for (const ScreenCase& c : kCases) {
    Testing::CFileCaseRun run;
    testing::internal::CaptureStderr();
    const TemplateRun result = run.Run(c.text);
    EXPECT_EQ(testing::internal::GetCapturedStderr(), c.shown) << c.name;
    EXPECT_EQ(!result.errors.empty(), c.fails) << c.name << ": " << Lines(result.errors);
    if (!c.fails) {
      EXPECT_EQ(WideToUtf8(result.output), c.output) << c.name;
    }
  }
}

}  // namespace
}  // namespace NScrivolt
