#include <gtest/gtest.h>

#include <string>

#include "engine/content_stream.h"
#include "engine/process.h"
#include "text/base/utf8.h"
#include "scratch_folder.h"
#include "template_runner.h"

namespace NScrivolt {
namespace {

using Testing::CScratchFolder;

// A chain of `depth` content arguments, each one level inside the other.
WString NestedContents(int depth) {
  WString text = u"<# ";
  for (int i = 0; i < depth; ++i) text += u"nooutput content: (";
  text += u"use param: \"x\"";
  text += WString(size_t(depth), u')');
  return text + u" #>";
}

// A thousand content levels below the template evaluate; the next one fails
// at the innermost content argument, and every enclosing call adds its line.
TEST(Nesting, AThousandLevelsBelowTheTemplateEvaluateAndNoMore) {
  for (const int depth : {1000, 1001}) {
    CProcessContext context;
    context.Root().GetChildByName(u"x", true)->SetValue(u"v");
    const std::string report = Lines(RunTemplate(context, NestedContents(depth)).errors);
    if (depth == 1000) {
      EXPECT_EQ(report, "");
    } else {
      EXPECT_EQ(report.rfind("- Too many nested function calls (1000) at line 1, column ", 0), 0u)
          << report.substr(0, 200);
      EXPECT_EQ(std::count(report.begin(), report.end(), '\n'), 1001);
    }
    EXPECT_EQ(context.nestingDepth, 0) << depth;
  }
}

// A text-only template is handed on as its own output, but it still takes a
// nesting level like any other template.
TEST(Nesting, ATemplateBeyondTheLimitFailsWhateverItHolds) {
  for (const WStringView text : {WStringView(u"plain text"), WStringView(u"text <# f #>")}) {
    CProcessContext context;
    context.nestingDepth = kMaxNestingDepth + 1;
    EXPECT_EQ(Lines(RunTemplate(context, text).errors),
              "- Too many nested function calls (1000) at line 1, column 1, re-processed content")
        << WideToUtf8(text);
    EXPECT_EQ(context.nestingDepth, kMaxNestingDepth + 1);
  }
}

// What an isolated run sets or defines, _InFile included, is put back whether
// the run succeeds or fails.
TEST(Isolation, AnIsolatedRunLeavesNothingBehind) {
  const WString changes =
      u"<# set param: \"kept\" to: \"changed\"; set param: \"new\" to: \"1\"; makefunction name: \"f\" content: \"f\"";
  for (const auto& [end, fails] : {std::pair<WStringView, bool>{u" #>", false}, {u"; use param: \"x\" #>", true}}) {
    CProcessContext context;
    context.Root().GetChildByName(u"kept", true)->SetValue(u"before");
    EXPECT_EQ(RunTemplate(context, changes + WString(end), Isolation::Isolated).errors.empty(), !fails);
    EXPECT_EQ(context.Root().GetChildValue(u"kept"), u"before") << fails;
    EXPECT_EQ(std::as_const(context).Root().GetChildByName(u"new"), nullptr) << fails;
    EXPECT_EQ(std::as_const(context).Root().GetChildByName(u"_InFile"), nullptr) << fails;
    EXPECT_FALSE(context.userFunctions.IsDefined(u"f")) << fails;
  }
}

TEST(BaseFolder, BasePathThenFolderOfCurrentInFile) {
  struct Case {
    const WChar* basePath;
    const WChar* currentInFile;
    const WChar* expected;
  };
  const Case cases[] = {
      {u"", u"", u""},
      {u"D:\\data\\", u"C:\\in\\a.txt", u"D:\\data\\"},
      {u"", u"C:\\in\\a.txt", u"C:\\in"},
      {u"", u"a.txt", u"a.txt"},
  };
  for (const Case& c : cases) {
    CProcessContext context;
    if (*c.basePath) SetBasePath(context, c.basePath);
    if (*c.currentInFile) context.Root().GetChildByName(u"_CurrentInFile", true)->SetValue(c.currentInFile);
    EXPECT_EQ(BaseFolder(context), WString(c.expected)) << WideToUtf8(c.basePath) << "|" << WideToUtf8(c.currentInFile);
  }
}

class FileProcess : public ::testing::Test {
 protected:
  WString Run(const WString& in, const WString& out) {
    CFileContentSource source(in, EncodingType::Ascii, false, MissingFile::Error, InFileParam::Set);
    CFileContentDest destination(out, EncodingType::Ascii, false, true);
    return Process(context_, source, destination, Evaluation::Evaluate, Isolation::Isolated).str();
  }

  CScratchFolder folder_;
  CProcessContext context_;
};

TEST_F(FileProcess, AMissingInputIsReportedWithItsFullPath) {
  const WString missing = folder_.Path("missing.txt");
  EXPECT_EQ(Run(missing, folder_.Path("out.txt")), u"\r\n- Cannot read from file \"" + missing + u"\"");
}

// Outputs far larger than the part that is kept as text at a time, with
// processings nested inside: the file holds exactly the text produced; a
// failure after much of it was produced leaves the old file as it was.
TEST_F(FileProcess, ALargeOutputIsWrittenWholeOrNotAtAll) {
  const WString loop = u"<# for value: \"i\" from: \"1\" to: \"20000\" do: (#>line <# use param: \"i\" #> \u00e9 \U0001F600\r\n<#) #>";
  std::string lines;
  for (int i = 1; i <= 20000; ++i) lines += "line " + std::to_string(i) + " \xC3\xA9 \xF0\x9F\x98\x80\r\n";
  const struct {
    WString tail;
    std::string expected;  // empty: the run fails
  } cases[] = {
      {u"", lines},
      {u"<# process content: \"inner text\" #>" + loop + u"end", lines + "inner text" + lines + "end"},
      {u"<# error text: \"stop\" #>", ""},
  };
  for (const auto& c : cases) {
    folder_.Put("in.txt", "\xEF\xBB\xBF" + WideToUtf8(loop + c.tail));
    folder_.Put("out.txt", "old");
    const WString errorText = Run(folder_.Path("in.txt"), folder_.Path("out.txt"));
    if (c.expected.empty()) {
      EXPECT_NE(errorText, u"");
      EXPECT_EQ(folder_.Get("out.txt"), "old");
    } else {
      EXPECT_EQ(errorText, u"");
      const std::string written = folder_.Get("out.txt");
      EXPECT_TRUE(written == "\xEF\xBB\xBF" + c.expected) << written.size() << " bytes, not " << c.expected.size() + 3;
    }
  }
}

TEST(ProcessWithoutEvaluation, CopiesTheTextUnchanged) {
  CProcessContext context;
  WString out;
  CStringContentSource source(u"<#<# <# use #>");
  CStringContentDest destination(&out);
  EXPECT_EQ(Process(context, source, destination, Evaluation::CopyText, Isolation::KeepChanges).str(), u"");
  EXPECT_EQ(out, u"<#<# <# use #>");
}

}  // namespace
}  // namespace NScrivolt
