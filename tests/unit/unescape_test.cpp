#include <gtest/gtest.h>

#include "engine/syntax/unescape.h"
#include "text/base/utf8.h"

namespace NScrivolt {
namespace {

struct UnescapeCase {
  const WChar* text;
  const WChar* expected;
};

TEST(UnescapeText, UndoublesScriptMarkersOpenersFirst) {
  const UnescapeCase cases[] = {
      {u"", u""},
      {u"plain <# and #> stay", u"plain <# and #> stay"},
      {u"<#<#", u"<#"},
      {u"#>#>", u"#>"},
      {u"<#<#<#", u"<#<#"},
      {u"<#<#<#<#", u"<#<#"},
      // The first replacement joins "#<#" and ">#>" into "#<#>#>", whose
      // "#>#>" the second replacement then undoubles.
      {u"#<#<#>#>", u"#<#>"},
      {u"<#<##>#>", u"<##>"},
  };
  for (const UnescapeCase& c : cases) {
    EXPECT_EQ(WideToUtf8(UnescapeText(c.text)), WideToUtf8(c.expected)) << WideToUtf8(c.text);
  }
}

TEST(UnescapeText, AppendsBehindWhatTheOutputHolds) {
  WString output = u"head ";
  AppendUnescapedText(output, u"a <#<# b");
  AppendUnescapedText(output, u" c");
  EXPECT_EQ(output, u"head a <# b c");
}

}  // namespace
}  // namespace NScrivolt
