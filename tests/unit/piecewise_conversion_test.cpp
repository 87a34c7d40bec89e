#include <gtest/gtest.h>

#include "text/encoding.h"
#include "text/base/utf8.h"
#include "unit/ansi_samples.h"
#include "unit/hex.h"

namespace NScrivolt {
namespace {

using Testing::Hex;
using Type = EncodingType;
using namespace std::string_view_literals;

TEST(Utf8CompletePrefix, StopsBeforeASequenceThatMayGoOn) {
  const std::pair<std::string_view, size_t> cases[] = {
      {"", 0},
      {"ab", 2},
      {"a\xC3", 1},
      {"a\xC3\xA9", 3},
      {"\xE2\x82", 0},
      {"x\xE2\x82\xAC", 4},
      {"\xF0\x9F\x98", 0},
      {"\xF0\x9F\x98\x80", 4},
      {"\xF0\x9F\x98\x80\x80", 5},   // a stray continuation byte stands alone
      {"\x80\x80\x80", 3},
      {"a\xFF", 2},                  // no lead byte: malformed on its own
      {"a\xC0", 2},
      {"\xF5\x80\x80", 3},
      {"\xE2\xC3\xA9", 3},
      {"\xE2\x82\xC3", 2},
  };
  for (const auto& [bytes, prefix] : cases) EXPECT_EQ(Utf8CompletePrefix(bytes), prefix) << Hex(bytes);
}

// Decodes as a file is read: pieces of `pieceSize` new bytes, each decoded up
// to DecodablePrefix, the rest carried over; all of it at the end.
DecodeResult DecodeInPieces(std::string_view bytes, Type type, size_t pieceSize) {
  DecodeResult result;
  std::string pending;
  for (size_t taken = 0;;) {
    const size_t count = std::min(pieceSize, bytes.size() - taken);
    pending.append(bytes.substr(taken, count));
    taken += count;
    const bool atEnd = taken == bytes.size();
    const size_t whole = atEnd ? pending.size() : DecodablePrefix(pending, type);
    if (!AppendDecoded(std::string_view(pending).substr(0, whole), type, result.text)) {
      result.ok = false;
      return result;
    }
    if (atEnd) return result;
    pending.erase(0, whole);
  }
}

// Well-formed and malformed sequences of every length, and an odd byte for
// UTF-16, so that every kind of cut comes up.
const std::string_view kSamples[] = {
    "plain ASCII text",
    "caf\xC3\xA9 \xE2\x82\xAC 12 \xF0\x9F\x98\x80!",
    "\xE2\x82\xAC\xE2\x82\xAC\xF0\x9F\x98\x80\xC3\xA9",
    "a\xE2\x82x\xC3\xF0\x9F\x98y",
    "\x80\x80\x80\x80\xE2\x82\xAC\x80",
    "\xC0\xAF\xE0\x80\x80\xED\xA0\x80\xF4\x90\x80\x80",
    "odd\0length"sv,
};

TEST(DecodablePrefix, DecodingInPiecesGivesWhatDecodingWholeGives) {
  for (const Type type : {Type::Ascii, Type::Utf8, Type::Utf16, Type::Utf16Be}) {
    for (const std::string_view bytes : kSamples) {
      WString whole;
      const bool ok = AppendDecoded(bytes, type, whole);
      for (size_t pieceSize = 1; pieceSize <= 5; ++pieceSize) {
        const DecodeResult pieces = DecodeInPieces(bytes, type, pieceSize);
        const std::string where = Hex(bytes) + " type " + std::to_string(int(type)) + " pieces of " +
                                  std::to_string(pieceSize);
        EXPECT_EQ(pieces.ok, ok) << where;
        if (ok) {
          EXPECT_EQ(pieces.text, whole) << where;
        }
      }
    }
  }
}

TEST(AppendDecoded, AppendsAndLeavesTheTextAsItWasOnFailure) {
  WString text = u"<";
  EXPECT_TRUE(AppendDecoded("a\xC3\xA9", Type::Utf8, text));
  EXPECT_TRUE(AppendDecoded("b\0"sv, Type::Utf16, text));
  EXPECT_TRUE(AppendDecoded("\0c"sv, Type::Utf16Be, text));
  EXPECT_EQ(text, u"<a\u00E9bc");
  std::string invalid;
  if (!Testing::FindBytesInvalidInAnsi(invalid)) {
    GTEST_SKIP() << "the ANSI code page of this run accepts every byte";
  }
  EXPECT_FALSE(AppendDecoded("ok" + invalid, Type::Ascii, text));
  EXPECT_EQ(text, u"<a\u00E9bc");
}

TEST(AppendEncoded, AppendsWithoutAMark) {
  std::string bytes = "<";
  bool usedDefaultChar = true;
  EXPECT_TRUE(AppendEncoded(u"\u00E9", Type::Utf8, bytes, usedDefaultChar));
  EXPECT_FALSE(usedDefaultChar);
  EXPECT_TRUE(AppendEncoded(u"A", Type::Utf16, bytes, usedDefaultChar));
  EXPECT_TRUE(AppendEncoded(u"B", Type::Utf16Be, bytes, usedDefaultChar));
  EXPECT_EQ(Hex(bytes), Hex("<\xC3\xA9" "A\0\0B"sv));
  EXPECT_TRUE(AppendEncoded(Testing::kNotInAnyCodePage, Type::Ascii, bytes, usedDefaultChar));
  EXPECT_TRUE(usedDefaultChar);
  EXPECT_FALSE(AppendEncoded(u"x", static_cast<Type>(7), bytes, usedDefaultChar));
}

// The conversions work in blocks of a few thousand units; a long text with a
// character of every length at every offset must come out whole.
TEST(Utf8Conversion, LongTextsCrossTheBlocksIntact) {
  WString text;
  std::string bytes;
  for (int i = 0; text.size() < 20000; ++i) {
    text += u"ab\u00E9\u20AC\U0001F600" + WString(size_t(i % 7), u'x');
    bytes += "ab\xC3\xA9\xE2\x82\xAC\xF0\x9F\x98\x80" + std::string(size_t(i % 7), 'x');
  }
  EXPECT_EQ(WideToUtf8(text), bytes);
  EXPECT_EQ(Utf8ToWide(bytes), text);
  WString strict;
  EXPECT_TRUE(AppendUtf8AsWide(bytes, strict, true));
  EXPECT_EQ(strict, text);
  bool replaced = true;
  EXPECT_EQ(WideToUtf8(text + u"\xDC00", &replaced), bytes + "\xEF\xBF\xBD");
  EXPECT_TRUE(replaced);
}

}  // namespace
}  // namespace NScrivolt
