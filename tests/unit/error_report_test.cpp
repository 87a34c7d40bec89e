#include <gtest/gtest.h>

#include "engine/error_report.h"
#include "text/error_text.h"
#include "text/utf8.h"

namespace NScrivolt {
namespace {

TEST(AddError, BuildsOneLinePerErrorJoinedByCrLf) {
  WString errorText;
  AddError(errorText, CText(MsgScriptNotClosed), ParseLocation{5, 2, 3, u"file \"C:\\a.txt\""});
  EXPECT_EQ(WideToUtf8(errorText),
            "- Script not closed before end of template at line 2, column 3, file \"C:\\a.txt\"");
  CText outer(MsgErrorProcessingFunction);
  outer.Replace(u"[FUNC]", WStringView(u"if"));
  AddError(errorText, outer, ParseLocation{0, 1, 1, u"re-processed content"});
  EXPECT_EQ(WideToUtf8(errorText),
            "- Script not closed before end of template at line 2, column 3, file \"C:\\a.txt\"\r\n"
            "- Error processing function \"if\" at line 1, column 1, re-processed content");
}

TEST(AddError, KeepsPlaceholderLikeTextInMessageAndContext) {
  WString errorText;
  AddError(errorText, CText(u"bad [LINE] and [COLUMN]"), ParseLocation{0, 0, 0, u"file \"[ERROR].txt\""});
  EXPECT_EQ(WideToUtf8(errorText), "- bad [LINE] and [COLUMN] at line 0, column 0, file \"[ERROR].txt\"");
}

TEST(AddError, DetailLinesFollowWithoutLocation) {
  WString errorText;
  AddError(errorText, CText(u"outer"), ParseLocation{0, 4, 7, u"ctx"});
  AddErrorDetail(errorText, u"why");
  EXPECT_EQ(WideToUtf8(errorText), "- outer at line 4, column 7, ctx\r\n- why");
}

}  // namespace
}  // namespace NScrivolt
