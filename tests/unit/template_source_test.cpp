#include <gtest/gtest.h>

#include "engine/syntax/template_source.h"

namespace NScrivolt {
namespace {

struct LocateCase {
  const WChar* text;
  std::size_t position;
  std::size_t line;
  std::size_t column;
};

TEST(TemplateSource, LocatesPositionsOverEveryKindOfLineEnd) {
  const LocateCase cases[] = {
      {u"", 0, 1, 1},
      {u"", 1, 0, 0},
      {u"abc", 2, 1, 3},
      {u"abc", 3, 1, 4},     // the end of the text belongs to the last line
      {u"abc", 4, 0, 0},     // beyond the text
      {u"a\r\nb", 1, 1, 2},  // the CR of a CRLF
      {u"a\r\nb", 2, 1, 3},  // its LF ends the line
      {u"a\r\nb", 3, 2, 1},
      {u"a\rb", 2, 2, 1},
      {u"a\nb", 2, 2, 1},
      {u"a\n\rb", 2, 2, 1},  // LF CR is two line ends
      {u"a\n\rb", 3, 3, 1},
      {u"a\r\r\nb", 2, 2, 1},
      {u"a\r\r\nb", 4, 3, 1},
      {u"a\n", 2, 2, 1},  // a final line break opens an empty last line
      {u"a\n", 3, 0, 0},
      {u"\r\n\r\n", 4, 3, 1},
  };
  for (const LocateCase& c : cases) {
    const CTemplateSource source(c.text, u"ctx");
    const ParseLocation location = source.Locate(c.position);
    const std::string where = "position " + std::to_string(c.position) + " of case with length " +
                              std::to_string(WStringView(c.text).size());
    EXPECT_EQ(location.position, c.position) << where;
    EXPECT_EQ(location.line, c.line) << where;
    EXPECT_EQ(location.column, c.column) << where;
    EXPECT_EQ(location.context, u"ctx");
  }
}

TEST(TemplateSource, LocatesInALongTextWithManyLines) {
  WString text;
  for (int i = 0; i < 100000; ++i) text += u"line\r\n";
  const CTemplateSource source(text, u"");
  const ParseLocation location = source.Locate(6 * 54321 + 3);
  EXPECT_EQ(location.line, 54322u);
  EXPECT_EQ(location.column, 4u);
  EXPECT_EQ(source.Locate(text.size()).line, 100001u);
}

}  // namespace
}  // namespace NScrivolt
