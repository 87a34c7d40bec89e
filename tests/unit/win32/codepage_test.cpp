#include <gtest/gtest.h>

#include <windows.h>

#include "text/encoding.h"
#include "text/base/utf8.h"
#include "unit/hex.h"

namespace NScrivolt {
namespace {

struct BestFitCase {
  WStringView text;
  std::string_view bytes;
  bool usedDefaultChar;
};

// The system's best fit counts as representable; only the default character
// is reported.
TEST(Win32AnsiCodePage, BestFitIsNotTheDefaultCharacter) {
  if (GetACP() != 1252) GTEST_SKIP() << "the cases are written for code page 1252";
  const BestFitCase cases[] = {
      {u"caf\u00E9 \u20AC", "caf\xE9 \x80", false},
      {u"\u0100\u0141", "AL", false},
      {u"\u4E2D", "?", true},
      {u"x\xD800", "x?", true},
  };
  for (const BestFitCase& c : cases) {
    const EncodeResult result = EncodeText(c.text, EncodingType::Ascii, false);
    EXPECT_TRUE(result.ok) << WideToUtf8(c.text);
    EXPECT_EQ(Testing::Hex(result.bytes), Testing::Hex(c.bytes));
    EXPECT_EQ(result.usedDefaultChar, c.usedDefaultChar) << WideToUtf8(c.text);
  }
}

}  // namespace
}  // namespace NScrivolt
