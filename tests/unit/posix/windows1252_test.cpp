#include <gtest/gtest.h>

#include "platform/posix/character_set.h"
#include "platform/posix/windows1252.h"
#include "text/base/utf8.h"
#include "unit/hex.h"

namespace NScrivolt {
namespace {

using Platform::AnsiCharacterSet;
using Testing::Hex;

TEST(CharacterSetNamed, WesternSetsAreWindows1252AndTheRestUtf8) {
  const std::pair<const char*, AnsiCharacterSet> cases[] = {
      {"CP1252", AnsiCharacterSet::Windows1252},     {"cp1252", AnsiCharacterSet::Windows1252},
      {"WINDOWS-1252", AnsiCharacterSet::Windows1252}, {"ISO-8859-1", AnsiCharacterSet::Windows1252},
      {"iso8859_1", AnsiCharacterSet::Windows1252},  {"ISO-8859-15", AnsiCharacterSet::Windows1252},
      {"UTF-8", AnsiCharacterSet::Utf8},             {"utf8", AnsiCharacterSet::Utf8},
      {"ANSI_X3.4-1968", AnsiCharacterSet::Utf8},    {"ASCII", AnsiCharacterSet::Utf8},
      {"ISO-8859-2", AnsiCharacterSet::Utf8},        {"KOI8-R", AnsiCharacterSet::Utf8},
      {"", AnsiCharacterSet::Utf8},
  };
  for (const auto& [name, set] : cases) EXPECT_EQ(Platform::CharacterSetNamed(name), set) << name;
}

// The five bytes the set leaves undefined fail and leave the text as it was.
TEST(Windows1252, DecodesEveryDefinedByte) {
  const std::pair<std::string_view, const WChar*> cases[] = {
      {"A\x80\x82\x8C\x9F", u"A\u20AC\u201A\u0152\u0178"},
      {"\xA0\xE9\xFF", u"\u00A0\u00E9\u00FF"},
      {"\x8A\x8E\x9A\x9E", u"\u0160\u017D\u0161\u017E"},
      {"", u""},
      {"ok\x81", nullptr}, {"ok\x8D", nullptr}, {"ok\x8F", nullptr}, {"ok\x90", nullptr}, {"ok\x9D", nullptr},
  };
  for (const auto& [bytes, text] : cases) {
    WString decoded = u"<";
    EXPECT_EQ(Platform::DecodeWindows1252(bytes, decoded), text != nullptr) << Hex(bytes);
    EXPECT_EQ(decoded, u"<" + WString(text ? text : u"")) << Hex(bytes);
  }
}

struct EncodeCase {
  WStringView text;
  std::string_view bytes;
  bool usedDefaultChar;
};

TEST(Windows1252, BestFitsLatinLettersAndDefaultsTheRest) {
  const EncodeCase cases[] = {
      {u"caf\u00E9 \u20AC\u0152\u2122", "caf\xE9 \x80\x8C\x99", false},
      {u"\u0100\u0107\u0141\u0142\u0151\u0219\u021B\u01B0", "AcLlostu", false},
      {u"\u03A9", "?", true},
      {u"\u4E2D", "?", true},
      {u"\u0081", "?", true},
      {u"\u0132", "?", true},
      {u"\U0001F600", "??", true},
      {u"a?b", "a?b", false},
      {u"", "", false},
  };
  for (const EncodeCase& c : cases) {
    std::string bytes = "<";
    bool usedDefaultChar = !c.usedDefaultChar;
    Platform::EncodeWindows1252(c.text, bytes, usedDefaultChar);
    EXPECT_EQ(Hex(bytes), Hex("<" + std::string(c.bytes))) << WideToUtf8(c.text);
    EXPECT_EQ(usedDefaultChar, c.usedDefaultChar) << WideToUtf8(c.text);
  }
}

}  // namespace
}  // namespace NScrivolt
