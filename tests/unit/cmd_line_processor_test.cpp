#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "cmdline/cmd_line_processor.h"
#include "scratch_folder.h"
#include "template_runner.h"
#include "text/utf8.h"

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
  void ShowHelp(std::uint32_t topicId) override { shown.push_back("help " + std::to_string(topicId)); }

  std::vector<std::string> shown;
};

// A path in the scratch folder, quoted for the command line.
WString Quoted(const CScratchFolder& folder, const char* name) { return u"\"" + folder.Path(name) + u"\""; }

struct FeedbackCase {
  const char* name;
  const WChar* arguments;
  bool result;
  std::vector<std::string> shown;
};

// Runs that need no files: the switches' failures and the feedback rules,
// with the rule that every "/" token is a switch.
const FeedbackCase kFeedbackCases[] = {
    {"only parameters", u"/set a 1 /SET b", true, {"Scrivolt - Error processing|warning|Nothing specified to process"}},
    {"mode none hides everything", u"/feedbackmode none /set a", true, {}},
    {"mode none keeps the failure's exit code", u"/feedbackmode NONE /bogus", false, {}},
    {"mode error keeps errors", u"/feedbackmode error /in",
     false, {"Scrivolt - Error processing|warning|Input file not specified for \"/in\""}},
    {"unknown mode is delivered under the old one", u"/feedbackmode none /feedbackmode loud", false, {}},
    {"lone option first", u"letter.txt /go", false,
     {"Scrivolt - Error processing|warning|Lone option \"letter.txt\" given without accompanying switch"}},
    {"unknown switch as typed", u"/Frobnicate /go", false,
     {"Scrivolt - Error processing|warning|Unknown switch \"/Frobnicate\" given"}},
    {"go without input", u"/out x /go", false, {"Scrivolt - Error processing|warning|No input file specified"}},
    {"go without output", u"/in x /go", false, {"Scrivolt - Error processing|warning|No output file specified"}},
    {"help then nothing to process", u"/?", true,
     {"help 40036", "Scrivolt - Error processing|warning|Nothing specified to process"}},
    {"file then last token", u"/feedbackdest file", false,
     {"Scrivolt - Error processing|warning|Feedback file not specified for \"/feedbackdest\""}},
    {"set with invalid name", u"/set a..b x", false,
     {"Scrivolt - Error processing|warning|Parameter name \"a..b\" not valid while processing \"/set\""}},
    {"encoding names", u"/inencoding UTF16BE /outencoding auto /commandfileencoding latin1", false,
     {"Scrivolt - Error processing|warning|Unknown encoding type \"latin1\" given for \"/commandfileencoding\""}},
};

TEST(CmdLineProcessor, Feedback) {
  for (const FeedbackCase& c : kFeedbackCases) {
    CRecordingScreen screen;
    CCmdLineProcessor processor(screen, Platform::SwitchSyntax::Slash);
    EXPECT_EQ(processor.Run(c.arguments), c.result) << c.name;
    EXPECT_EQ(screen.shown, c.shown) << c.name;
  }
}

TEST(CmdLineProcessor, SwitchesFillTheParameterTree) {
  struct Case {
    const char* name;
    const WChar* arguments;
    const WChar* probe;  // a template evaluated against the tree afterwards
    const char* output;
  };
  const Case cases[] = {
      {"set creates with a value", u"/set Customer.Name \"Ann Smith\"", u"<# use param: \"customer.name\" #>",
       "Ann Smith"},
      {"set without value keeps the old one", u"/set a 1 /set A", u"[<# use param: \"a\" #>]", "[1]"},
      {"setsubparams replaces the children", u"/setsubparams L x y /setsubparams L a b c",
       u"<# use param: \"L.#1\" #><# use param: \"L.#3\" #><# use param: \"L.#-1\" #>", "acc"},
      {"setsubparams keeps the value", u"/set L v /setsubparams L a", u"<# use param: \"L\" #>", "v"},
      {"unset removes", u"/set a 1 /unset a /unset never.was", u"<# use param: \"a\" skipifmissing #>", ""},
      {"basepath sets _BasePath", u"/basepath somewhere", u"<# use param: \"_basepath\" #>", "somewhere"},
  };
  for (const Case& c : cases) {
    CRecordingScreen screen;
    CCmdLineProcessor processor(screen);
    EXPECT_TRUE(processor.Run(c.arguments)) << c.name;
    const TemplateRun probe = RunTemplate(processor.Context(), c.probe);
    EXPECT_EQ(Lines(probe.errors), "") << c.name;
    EXPECT_EQ(WideToUtf8(probe.output), c.output) << c.name;
  }
}

TEST(CmdLineProcessor, RunDescriptionFollowsTheLastSwitch) {
  CRecordingScreen screen;
  CCmdLineProcessor processor(screen);
  processor.Run(u"/in a /in b /inencoding utf16be /outencoding utf8 /outencoding auto /feedbackmode Error");
  const CRunDescription& d = processor.Description();
  EXPECT_EQ(d.inFile, u"b");
  EXPECT_EQ(d.inEncoding.type, EncodingType::Utf16Be);
  EXPECT_TRUE(d.inEncoding.isExplicit);
  EXPECT_EQ(d.outEncoding.type, EncodingType::Utf8);
  EXPECT_FALSE(d.outEncoding.isExplicit);
  EXPECT_EQ(d.feedbackMode, FeedbackMode::Error);
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
