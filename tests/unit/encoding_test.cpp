#include <gtest/gtest.h>

#include "text/encoding.h"
#include "text/base/utf8.h"
#include "unit/hex.h"

namespace NScrivolt {
namespace {

using Testing::Hex;
using Type = EncodingType;
using namespace std::string_view_literals;

// Not a type; shows that a call left the caller's type alone.
constexpr auto kUntouched = static_cast<EncodingType>(7);

struct NameCase {
  const WChar* name;
  bool known;
  EncodingType type;
  bool isExplicit;
};

TEST(ParseEncodingName, KeywordsIgnoreCaseAndDisplayNamesAreNotKeywords) {
  const NameCase cases[] = {
      {u"auto", true, kUntouched, false},     {u"AUTO", true, kUntouched, false},
      {u"ascii", true, Type::Ascii, true},    {u"ASCII", true, Type::Ascii, true},
      {u"utf8", true, Type::Utf8, true},      {u"Utf8", true, Type::Utf8, true},
      {u"utf16", true, Type::Utf16, true},    {u"utf16le", true, Type::Utf16, true},
      {u"Utf16LE", true, Type::Utf16, true},  {u"utf16be", true, Type::Utf16Be, true},
      {u"UTF16BE", true, Type::Utf16Be, true}, {u"UTF-8", false, kUntouched, true},
      {u"UTF-16 BE", false, kUntouched, true}, {u"utf-16", false, kUntouched, true},
      {u"", false, kUntouched, true},          {u" utf8", false, kUntouched, true},
      {u"ansi", false, kUntouched, true},      {u"autoo", false, kUntouched, true},
  };
  for (const NameCase& c : cases) {
    EncodingType type = kUntouched;
    bool isExplicit = !c.isExplicit;
    EXPECT_EQ(ParseEncodingName(c.name, type, isExplicit), c.known) << WideToUtf8(c.name);
    EXPECT_EQ(type, c.type) << WideToUtf8(c.name);
    EXPECT_EQ(isExplicit, c.isExplicit) << WideToUtf8(c.name);
  }
}

struct DetectCase {
  std::string_view bytes;
  EncodingType given;  // the default, or the explicit type
  EncodingType type;
  std::uint32_t bomLength;
};

void ExpectInfo(const EncodingInfo& info, const DetectCase& c, bool found) {
  EXPECT_EQ(info.type, c.type) << Hex(c.bytes);
  EXPECT_EQ(info.bom, c.bomLength != 0) << Hex(c.bytes);
  EXPECT_EQ(info.bomLength, c.bomLength) << Hex(c.bytes);
  EXPECT_EQ(info.found, found && c.bomLength != 0) << Hex(c.bytes);
}

TEST(DetectEncoding, OnlyAMarkDecides) {
  const DetectCase cases[] = {
      {"", Type::Utf16, Type::Utf16, 0},
      {"\xEF\xBB\xBF", Type::Ascii, Type::Utf8, 3},
      {"\xEF\xBB", Type::Ascii, Type::Ascii, 0},
      {"\xFF\xFE\0\0"sv, Type::Ascii, Type::Utf16, 2},
      {"\xFE", Type::Utf8, Type::Utf8, 0},
      {"A\xEF\xBB\xBF", Type::Utf8, Type::Utf8, 0},
  };
  for (const DetectCase& c : cases) ExpectInfo(DetectEncoding(c.bytes, c.given), c, true);
}

TEST(CheckBom, LooksForTheGivenTypesMarkOnly) {
  const DetectCase cases[] = {
      {"\xEF\xBB\xBF" "A", Type::Utf8, Type::Utf8, 3},
      {"\xEF\xBB\xBF", Type::Ascii, Type::Ascii, 0},
      {"\xFE\xFF", Type::Utf16Be, Type::Utf16Be, 2},
      {"\xFE\xFF", Type::Utf16, Type::Utf16, 0},
      {"\xFF\xFE", Type::Utf16, Type::Utf16, 2},
      {"", Type::Utf8, Type::Utf8, 0},
  };
  for (const DetectCase& c : cases) ExpectInfo(CheckBom(c.bytes, c.given), c, false);
}

struct EncodeCase {
  WStringView text;
  EncodingType type;
  bool bom;
  std::string_view bytes;
};

TEST(EncodeText, MarksByteOrdersAndNewlinesAsTheyAre) {
  const EncodeCase cases[] = {
      {u"", Type::Utf16Be, true, "\xFE\xFF"},
      {u"", Type::Utf16, true, "\xFF\xFE"},
      {u"", Type::Utf8, true, "\xEF\xBB\xBF"},
      {u"", Type::Ascii, true, ""},
      {u"", Type::Utf8, false, ""},
      {u"A\u20AC", Type::Utf16Be, false, "\0A\x20\xAC"sv},
      {u"\U0001F600", Type::Utf8, false, "\xF0\x9F\x98\x80"},
      {u"\U0001F600", Type::Utf16Be, false, "\xD8\x3D\xDE\x00"sv},
      {u"\xD800", Type::Utf8, false, "\xEF\xBF\xBD"},
      {u"a\r\nb\rc\n\0d"sv, Type::Utf8, false, "a\r\nb\rc\n\0d"sv},
  };
  for (const EncodeCase& c : cases) {
    const EncodeResult result = EncodeText(c.text, c.type, c.bom);
    EXPECT_TRUE(result.ok) << Hex(c.bytes);
    EXPECT_FALSE(result.usedDefaultChar) << Hex(c.bytes);
    EXPECT_EQ(Hex(result.bytes), Hex(c.bytes));
  }
}

struct DecodeCase {
  std::string_view bytes;
  EncodingType type;
  std::uint32_t bomLength;
  WStringView text;
};

TEST(DecodeBytes, SkipsTheMarkAndConvertsTheRest) {
  const DecodeCase cases[] = {
      {"\xFF\xFE" "A\0" "B"sv, Type::Utf16, 2, u"A"},
      {"\xFE\xFF\0A\0"sv, Type::Utf16Be, 2, u"A"},
      {"\x3D\xD8\x00\xDE"sv, Type::Utf16, 0, u"\U0001F600"},
      {"X", Type::Utf16, 0, u""},
      {"\xFF\xFE" "A\0"sv, Type::Utf8, 0, u"\xFFFD\xFFFD" "A\0"sv},
      {"\xEF\xBB\xBF" "caf\xC3\xA9", Type::Utf8, 3, u"caf\u00E9"},
      {"a\xC3", Type::Utf8, 0, u"a\xFFFD"},
      {"\xEF\xBB", Type::Utf8, 5, u""},
      {"", Type::Ascii, 0, u""},  {"", Type::Utf8, 0, u""},
      {"", Type::Utf16, 0, u""},  {"", Type::Utf16Be, 0, u""},
  };
  for (const DecodeCase& c : cases) {
    const DecodeResult result = DecodeBytes(c.bytes, c.type, c.bomLength);
    EXPECT_TRUE(result.ok) << Hex(c.bytes) << " as type " << int(c.type);
    EXPECT_EQ(result.text, c.text) << Hex(c.bytes) << " as type " << int(c.type);
  }
}

// Plain ASCII is copied in blocks; a character outside it must come out
// right at every position relative to a block.
TEST(Utf8Conversion, NonAsciiAtEveryPositionOfABlock) {
  for (size_t at = 0; at < 20; ++at) {
    const std::string before(at, 'a');
    const std::string after(19 - at, 'z');
    const std::string bytes = before + "\xC3\xA9" + after + "\xF0\x9F\x98\x80";
    const WString text = WidenAscii(before) + u"\u00E9" + WidenAscii(after) + u"\U0001F600";
    EXPECT_EQ(Hex(EncodeText(text, Type::Utf8, false).bytes), Hex(bytes)) << at;
    EXPECT_EQ(DecodeBytes(bytes, Type::Utf8, 0).text, text) << at;
    WString strict;
    EXPECT_TRUE(AppendUtf8AsWide(bytes, strict, true));
    EXPECT_EQ(strict, text) << at;
    EXPECT_FALSE(AppendUtf8AsWide(before + "\xC3" + after, strict, true)) << at;
    EXPECT_EQ(strict, text) << at;
  }
}

// Malformed input is replaced in code on every platform; the forms decoded in
// line must reject what the general decoder rejects.
TEST(Utf8Conversion, EachMalformedSequenceBecomesOneReplacement) {
  const std::pair<std::string_view, WStringView> cases[] = {
      {"\xE0\x80\x80x", u"\xFFFDx"},        {"\xC1\xBFx", u"\xFFFD\xFFFDx"},
      {"\xED\xA0\x80x", u"\xFFFDx"},        {"\xE2\x82", u"\xFFFD"},
      {"\xE2\x82x", u"\xFFFDx"},            {"\xC3", u"\xFFFD"},
      {"\xEF\xBF\xBF\xEE\x80\x80", u"\xFFFF\xE000"}, {"\xDF\xBF\xC2\x80", u"\x07FF\x0080"},
  };
  for (const auto& [bytes, text] : cases) {
    EXPECT_EQ(Utf8ToWide(bytes), text) << Hex(bytes);
    WString strict;
    EXPECT_EQ(AppendUtf8AsWide(bytes, strict, true), text.find(kReplacementChar) == WStringView::npos) << Hex(bytes);
  }
}

}  // namespace
}  // namespace NScrivolt
