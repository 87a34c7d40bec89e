#include <gtest/gtest.h>

#include "engine/syntax/error_report.h"
#include "text/base/utf8.h"

namespace NScrivolt {
namespace {

// Lines are joined by CR LF; placeholder names inside the message or the
// context are text like any other.
TEST(AddError, JoinsLinesAndKeepsPlaceholderLikeText) {
  CErrorText errorText;
  AddError(errorText, CText(u"bad [LINE] and [COLUMN]"), ParseLocation{0, 2, 3, u"file \"[ERROR].txt\""});
  AddError(errorText, CText(u"outer"), ParseLocation{0, 1, 1, u"ctx"});
  EXPECT_EQ(WideToUtf8(errorText.str()),
            "- bad [LINE] and [COLUMN] at line 2, column 3, file \"[ERROR].txt\"\r\n- outer at line 1, column 1, ctx");
}

}  // namespace
}  // namespace NScrivolt
