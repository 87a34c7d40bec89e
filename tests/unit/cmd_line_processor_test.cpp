#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "cmdline/cmd_line_processor.h"
#include "scratch_folder.h"
#include "template_runner.h"
#include "text/base/utf8.h"

namespace NScrivolt {
namespace {

using Testing::CScratchFolder;

// Records what a run shows instead of showing it: each box as
// "title|icon|text" and each help page as "help <topic>".
class CRecordingScreen : public IRunScreen {
 public:
  void ShowMessage(WStringView text, WStringView title, Platform::MessageBoxIcon icon) override {
    const char* icons[] = {"none", "warning", "error"};
    shown.push_back(WideToUtf8(title) + "|" + icons[int(icon)] + "|" + Lines(text));
  }
  void ShowHelp(MessageId topicId) override { shown.push_back("help " + std::to_string(topicId)); }

  std::vector<std::string> shown;
};

// A path in the scratch folder, quoted for the command line.
WString Quoted(const CScratchFolder& folder, const char* name) { return u"\"" + folder.Path(name) + u"\""; }

// What the end-to-end cases cannot see: which boxes a run shows with which
// icon, and the help page it opens. "{DIR}" is a scratch folder holding
// t.txt, a template without scripts.
TEST(CmdLineProcessor, BoxesTitlesAndIcons) {
  const struct {
    const char* name;
    const WChar* arguments;
    bool result;
    std::vector<std::string> shown;
  } cases[] = {
      {"help, then the run goes on", u"/?", true,
       {"help 40036", "Scrivolt - Error processing|warning|Nothing specified to process"}},
      {"done processing has no icon", u"/in \"{DIR}t.txt\" /out \"{DIR}out.txt\" /go", true,
       {"Scrivolt - Done processing|none|Processed \"{DIR}t.txt\" to \"{DIR}out.txt\"."}},
      {"an unwritable feedback file", u"/feedbackdest file \"{DIR}missing/fb.txt\" /bogus", false,
       {"Scrivolt - Cannot write feedback to file|warning|Cannot write feedback to file \"{DIR}missing/fb.txt\""}},
  };
  CScratchFolder folder;
  folder.Put("t.txt", "text");
  const WString dir = folder.Path("");
  for (const auto& c : cases) {
    CRecordingScreen screen;
    CCmdLineProcessor processor(screen, Platform::SwitchSyntax::Slash);
    EXPECT_EQ(processor.Run(ReplaceAll(c.arguments, u"{DIR}", dir)), c.result) << c.name;
    std::vector<std::string> expected;
    for (const std::string& line : c.shown) expected.push_back(WideToUtf8(ReplaceAll(Utf8ToWide(line), u"{DIR}", dir)));
    EXPECT_EQ(screen.shown, expected) << c.name;
  }
}

// A chain of command files one deeper than the limit allows fails at the
// last one; the files above it stop with it.
TEST(CmdLineProcessor, CommandFileNestingIsLimited) {
  CScratchFolder folder;
  folder.Put("c1.txt", "/set one 1 /commandfile c2.txt /set after 1");
  folder.Put("c2.txt", "/commandfile c3.txt");
  folder.Put("c3.txt", "/set three 3");
  for (const int limit : {2, 3}) {
    CRecordingScreen screen;
    CCmdLineProcessor processor(screen);
    processor.maxCommandFileNesting = limit;
    const bool result = processor.Run(u"/commandfile " + Quoted(folder, "c1.txt"));
    const TemplateRun probe =
        RunTemplate(processor.Context(), u"<# use param: \"three\" skipifmissing #><# use param: \"after\" skipifmissing #>");
    if (limit == 3) {
      EXPECT_TRUE(result);
      EXPECT_EQ(WideToUtf8(probe.output), "31");
    } else {
      EXPECT_FALSE(result);
      EXPECT_EQ(WideToUtf8(probe.output), "");
      ASSERT_EQ(screen.shown.size(), 1u);
      EXPECT_EQ(screen.shown[0],
                "Scrivolt - Error processing|warning|Command files nested more than 2 deep while reading command file "
                "\"c3.txt\"");
    }
  }
}

}  // namespace
}  // namespace NScrivolt
