#include <gtest/gtest.h>

#include "engine/content_stream.h"
#include "engine/process.h"
#include "platform/current_directory.h"
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

TEST(Nesting, AThousandLevelsBelowTheTemplateEvaluate) {
  CProcessContext context;
  context.Root().GetChildByName(u"x", true)->SetValue(u"v");
  EXPECT_EQ(Lines(RunTemplate(context, NestedContents(1000)).errors), "");
  EXPECT_EQ(context.nestingDepth, 0);
}

TEST(Nesting, TheNextLevelFailsWithTheLimit) {
  CProcessContext context;
  context.Root().GetChildByName(u"x", true)->SetValue(u"v");
  const std::string report = Lines(RunTemplate(context, NestedContents(1001)).errors);
  // The innermost content argument reports the limit, every enclosing call its own line.
  EXPECT_EQ(report.rfind("- Too many nested function calls (1000) at line 1, column ", 0), 0u) << report.substr(0, 200);
  EXPECT_EQ(std::count(report.begin(), report.end(), '\n'), 1001);
  EXPECT_EQ(context.nestingDepth, 0);
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

TEST(Isolation, AnIsolatedRunLeavesNothingBehind) {
  CProcessContext context;
  context.Root().GetChildByName(u"kept", true)->SetValue(u"before");
  const TemplateRun run = RunTemplate(
      context,
      u"<# set param: \"kept\" to: \"changed\"; set param: \"new\" to: \"1\";"
      u" makefunction name: \"f\" content: (#>f<#) #><# use param: \"kept\" #>",
      true);
  EXPECT_EQ(Lines(run.errors), "");
  EXPECT_EQ(WideToUtf8(run.output), "changed");
  EXPECT_EQ(context.Root().GetChildValue(u"kept"), u"before");
  EXPECT_EQ(std::as_const(context).Root().GetChildByName(u"new"), nullptr);
  EXPECT_EQ(std::as_const(context).Root().GetChildByName(u"_InFile"), nullptr);
  EXPECT_FALSE(context.userFunctions.IsDefined(u"f"));
}

TEST(Isolation, AnIsolatedRunPutsBackAfterAnErrorToo) {
  CProcessContext context;
  const TemplateRun run = RunTemplate(context, u"<# set param: \"a\" to: \"1\"; use param: \"missing\" #>", true);
  EXPECT_FALSE(run.errors.empty());
  EXPECT_EQ(std::as_const(context).Root().GetChildByName(u"a"), nullptr);
}

TEST(Isolation, ANonIsolatedRunKeepsChangesButNotTheFileParameters) {
  CProcessContext context;
  context.Root().GetChildByName(u"_InFile", true)->SetValue(u"outer.txt");
  const TemplateRun run = RunTemplate(context,
                                      u"<# set param: \"a\" to: \"1\"; makefunction name: \"f\" content: (#>f<#) #>"
                                      u"[<# use param: \"_InFile\" #>|<# use param: \"_CurrentFile\" #>]");
  EXPECT_EQ(Lines(run.errors), "");
  // A text source changes no file field of the record, so the base record's empty values show.
  EXPECT_EQ(WideToUtf8(run.output), "[|]");
  EXPECT_EQ(context.Root().GetChildValue(u"a"), u"1");
  EXPECT_TRUE(context.userFunctions.IsDefined(u"f"));
  EXPECT_EQ(context.Root().GetChildValue(u"_InFile"), u"outer.txt");
  EXPECT_EQ(context.Root().GetChildValue(u"_CurrentFile"), u"");
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
  WString Run(const WString& in, const WString& out, EncodingType outType = EncodingType::Ascii,
              bool outExplicit = false) {
    CFileContentSource source(in, EncodingType::Ascii, false, false, true);
    CFileContentDest destination(out, outType, outExplicit, true);
    return Process(context_, source, destination, true, true);
  }

  CScratchFolder folder_;
  CProcessContext context_;
};

// Little-endian UTF-16 bytes of a text.
std::string Utf16Le(WStringView text) {
  std::string bytes;
  for (WChar c : text) bytes += std::string{char(c & 0xFF), char(c >> 8)};
  return bytes;
}

TEST_F(FileProcess, OutputMirrorsTheInputEncodingAndMark) {
  folder_.Put("in16.txt", "\xFF\xFE" + Utf16Le(u"a<# use param: \"_InFile\" #>"));
  const WString in = folder_.Path("in16.txt");
  EXPECT_EQ(Lines(Run(in, folder_.Path("out16.txt"))), "");
  EXPECT_EQ(folder_.Get("out16.txt"), "\xFF\xFE" + Utf16Le(u"a" + in));
}

TEST_F(FileProcess, ExplicitOutputEncodingWritesItsMark) {
  folder_.Put("in.txt", "x");
  EXPECT_EQ(Lines(Run(folder_.Path("in.txt"), folder_.Path("out.txt"), EncodingType::Utf16Be, true)), "");
  EXPECT_EQ(folder_.Get("out.txt"), std::string("\xFE\xFF\0x", 4));
}

TEST_F(FileProcess, SystemParametersDescribeTheRunAndAreGoneAfterwards) {
  folder_.Put("in.txt", "<# use param: \"_InFile\" #>|<# use param: \"_CurrentFile\" #>|<# use param: \"_OutFile\" #>");
  const WString in = folder_.Path("in.txt");
  const WString out = folder_.Path("out.txt");
  EXPECT_EQ(Lines(Run(in, out)), "");
  EXPECT_EQ(folder_.Get("out.txt"), WideToUtf8(in + u"|" + in + u"|" + out));
  EXPECT_EQ(std::as_const(context_).Root().GetChildByName(u"_InFile"), nullptr);
}

TEST_F(FileProcess, TheTemplatesFolderIsTheCurrentDirectoryWhileItRuns) {
  folder_.Put("in.txt", "<# set param: \"x\" to: \"1\" #>");
  WString before;
  ASSERT_TRUE(Platform::CurrentDirectory(before));
  CFileContentSource source(folder_.Path("in.txt"), EncodingType::Ascii, false, false, true);
  CFileContentDest destination(folder_.Path("out.txt"), EncodingType::Ascii, false, true);
  EXPECT_EQ(Lines(Process(context_, source, destination, true, true)), "");
  WString after;
  ASSERT_TRUE(Platform::CurrentDirectory(after));
  EXPECT_EQ(after, before);
}

TEST_F(FileProcess, NothingIsWrittenAfterAnError) {
  folder_.Put("in.txt", "text before <# use param: \"missing\" #>");
  EXPECT_NE(Lines(Run(folder_.Path("in.txt"), folder_.Path("out.txt"))), "");
  EXPECT_EQ(folder_.Names(), std::set<std::string>{"in.txt"});
}

TEST_F(FileProcess, AMissingInputIsReportedWithItsFullPath) {
  const WString missing = folder_.Path("missing.txt");
  EXPECT_EQ(Run(missing, folder_.Path("out.txt")), u"\r\n- Cannot read from file \"" + missing + u"\"");
}

TEST_F(FileProcess, ErrorLinesNameTheFileAsGiven) {
  folder_.Put("bad.txt", "\n<# frobnicate #>");
  const WString path = folder_.Path("bad.txt");
  EXPECT_EQ(Run(path, folder_.Path("out.txt")),
            u"- Unknown function type \"frobnicate\" found at line 2, column 4, file \"" + path + u"\"");
}

TEST(ProcessWithoutEvaluation, CopiesTheTextUnchanged) {
  CProcessContext context;
  WString out;
  CStringContentSource source(u"<#<# <# use #>");
  CStringContentDest destination(&out);
  EXPECT_EQ(Process(context, source, destination, false, false), u"");
  EXPECT_EQ(out, u"<#<# <# use #>");
}

}  // namespace
}  // namespace NScrivolt
