#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "text/file_io.h"
#include "text/base/utf8.h"
#include "unit/ansi_samples.h"
#include "unit/hex.h"
#include "unit/scratch_folder.h"

namespace NScrivolt {
namespace {

using Testing::Hex;
using Type = EncodingType;
using namespace std::string_view_literals;

WString CannotRead(const WString& path) { return u"\r\n- Cannot read from file \"" + path + u"\""; }
WString CannotWrite(const WString& path) { return u"\r\n- Cannot write to file \"" + path + u"\""; }

EncodingInfo Info(EncodingType type, bool bom = false) {
  EncodingInfo info;
  info.type = type;
  info.bom = bom;
  info.bomLength = bom ? std::uint32_t(ByteOrderMark(type).size()) : 0;
  return info;
}

class FileIo : public ::testing::Test {
 protected:
  Testing::CScratchFolder folder_;
  CErrorText errorText_;
};

struct ReadCase {
  std::string_view bytes;
  EncodingType given;
  bool isExplicit;
  WStringView text;
  EncodingType type;
  std::uint32_t bomLength;
};

TEST_F(FileIo, ReadDetectsOrChecksTheMarkAndReportsIt) {
  const ReadCase cases[] = {
      {"\xFF\xFE" "A\0"sv, Type::Ascii, false, u"A", Type::Utf16, 2},
      {"\xFF\xFE" "A\0"sv, Type::Utf8, true, u"\xFFFD\xFFFD" "A\0"sv, Type::Utf8, 0},
      {"\xEF\xBB\xBFhi", Type::Ascii, false, u"hi", Type::Utf8, 3},
      {"\xEF\xBB\xBFhi", Type::Utf8, true, u"hi", Type::Utf8, 3},
      {"", Type::Ascii, false, u"", Type::Ascii, 0},
      {"", Type::Utf16Be, true, u"", Type::Utf16Be, 0},
      {"\xEF\xBB\xBF", Type::Ascii, false, u"", Type::Utf8, 3},
  };
  const WString path = folder_.Path("in.txt");
  for (const ReadCase& c : cases) {
    folder_.Put("in.txt", c.bytes);
    WString text = u"old";
    EncodingInfo encoding = Info(c.given);
    EXPECT_TRUE(ReadTextFile(path, text, false, encoding, c.isExplicit, errorText_)) << Hex(c.bytes);
    EXPECT_EQ(text, c.text) << Hex(c.bytes);
    EXPECT_EQ(encoding.type, c.type) << Hex(c.bytes);
    EXPECT_EQ(encoding.bomLength, c.bomLength) << Hex(c.bytes);
    EXPECT_EQ(encoding.bom, c.bomLength != 0) << Hex(c.bytes);
  }
  EXPECT_EQ(errorText_.str(), u"");
}

// Skipping covers only a file that is not there; a folder is there.
TEST_F(FileIo, FolderInPlaceOfTheFileCannotBeRead) {
  const WString path = folder_.Folder();
  for (const bool skipIfMissing : {false, true}) {
    CErrorText errorText;
    WString text = u"old";
    EncodingInfo encoding;
    EXPECT_FALSE(ReadTextFile(path, text, skipIfMissing, encoding, false, errorText));
    EXPECT_EQ(errorText.str(), CannotRead(path));
    EXPECT_EQ(text, u"");
  }
}

struct WriteCase {
  WStringView text;
  EncodingInfo encoding;
  bool isExplicit;
  std::string_view bytes;
};

// Each row replaces what the row before it wrote, the third with nothing.
TEST_F(FileIo, WriteEncodesWithOrWithoutMark) {
  const WriteCase cases[] = {
      {u"", Info(Type::Utf16Be, true), true, "\xFE\xFF"},
      {u"", Info(Type::Utf8, true), false, "\xEF\xBB\xBF"},
      {u"", Info(Type::Ascii), true, ""},
      {u"A\u20AC", Info(Type::Utf16), false, "A\0\xAC\x20"sv},
  };
  const WString path = folder_.Path("out.txt");
  for (const WriteCase& c : cases) {
    EXPECT_TRUE(WriteTextFile(path, c.text, c.encoding, c.isExplicit, errorText_)) << Hex(c.bytes);
    EXPECT_EQ(Hex(folder_.Get("out.txt")), Hex(c.bytes));
  }
  EXPECT_EQ(errorText_.str(), u"");
  EXPECT_EQ(folder_.Names(), std::set<std::string>{"out.txt"});
}

// A failed write leaves what was there as it was, and nothing beside it.
TEST_F(FileIo, FolderInPlaceOfTheOutputStaysAsItWas) {
  std::filesystem::create_directory(folder_.Native("target"));
  folder_.Put("target/kept.txt", "kept");
  const WString path = folder_.Path("target");
  EXPECT_FALSE(WriteTextFile(path, u"text", Info(Type::Utf8), true, errorText_));
  EXPECT_EQ(errorText_.str(), CannotWrite(path));
  EXPECT_EQ(folder_.Names(), std::set<std::string>{"target"});
  EXPECT_EQ(folder_.Get("target/kept.txt"), "kept");
}

// Files are read in pieces of kReadPieceBytes: a character cut by the end of
// a piece, behind a mark or not, comes out whole.
TEST_F(FileIo, CharactersCutByTheEndOfAReadPieceComeOutWhole) {
  const std::string_view characters = "\xF0\x9F\x98\x80\xE2\x82\xAC\xC3\xA9z";
  std::vector<std::string> samples;
  for (size_t before = 0; before <= 3; ++before) {
    const std::string lead(kReadPieceBytes - before, 'a');
    samples.push_back(lead + std::string(characters));
    samples.push_back("\xEF\xBB\xBF" + lead + std::string(characters));
  }
  samples.push_back("\xFF\xFE" + EncodeText(WString(kReadPieceBytes, u'\u20AC'), Type::Utf16, false).bytes + "x");
  samples.push_back("\xFE\xFF" + EncodeText(WString(kReadPieceBytes + 1, u'\u20AC'), Type::Utf16Be, false).bytes);
  const WString path = folder_.Path("in.txt");
  for (const std::string& bytes : samples) {
    folder_.Put("in.txt", bytes);
    WString text;
    EncodingInfo encoding;
    EXPECT_TRUE(ReadTextFile(path, text, false, encoding, false, errorText_));
    const DecodeResult whole = DecodeBytes(bytes, DetectEncoding(bytes, Type::Ascii));
    EXPECT_EQ(text.size(), whole.text.size()) << Hex(bytes.substr(bytes.size() - 12));
    EXPECT_TRUE(text == whole.text) << Hex(bytes.substr(bytes.size() - 12));
  }
  EXPECT_EQ(errorText_.str(), u"");
}

TEST_F(FileIo, BytesInvalidInALaterPieceFailTheWholeRead) {
  std::string invalid;
  if (!Testing::FindBytesInvalidInAnsi(invalid)) {
    GTEST_SKIP() << "the ANSI code page of this run accepts every byte";
  }
  folder_.Put("in.txt", std::string(2 * kReadPieceBytes + 5, 'a') + invalid);
  const WString path = folder_.Path("in.txt");
  WString text;
  EncodingInfo encoding;
  EXPECT_FALSE(ReadTextFile(path, text, false, encoding, true, errorText_));
  EXPECT_EQ(errorText_.str(), CannotRead(path));
  EXPECT_EQ(text, u"");
}

// Texts are encoded and written in pieces of kWritePieceUnits units; a
// surrogate pair across the end of a piece stays one character.
TEST_F(FileIo, APairAcrossTheEndOfAWritePieceStaysOneCharacter) {
  const WString text = WString(kWritePieceUnits - 1, u'a') + u"\U0001F600z" + WString(kWritePieceUnits, u'b');
  const WString path = folder_.Path("out.txt");
  for (const Type type : {Type::Utf8, Type::Utf16, Type::Utf16Be}) {
    EXPECT_TRUE(WriteTextFile(path, text, Info(type, true), true, errorText_));
    const std::string expected = EncodeText(text, type, true).bytes;
    EXPECT_EQ(folder_.Get("out.txt").size(), expected.size());
    EXPECT_TRUE(folder_.Get("out.txt") == expected) << int(type);
  }
  EXPECT_EQ(errorText_.str(), u"");
}

// A character no code page holds, found only in a later piece: nothing is
// written when the encoding was asked for, and otherwise the whole text goes
// out as UTF-8 with a mark.
TEST_F(FileIo, UnrepresentableInALaterPieceIsFoundBeforeAnythingIsReplaced) {
  const WString text = WString(2 * kWritePieceUnits, u'a') + Testing::kNotInAnyCodePage;
  const WString path = folder_.Path("out.txt");
  folder_.Put("out.txt", "before");
  EXPECT_FALSE(WriteTextFile(path, text, Info(Type::Ascii), true, errorText_));
  EXPECT_EQ(errorText_.str(), u"\r\n- Content to write to file \"" + path + u"\" not representable in ASCII encoding");
  EXPECT_EQ(folder_.Get("out.txt"), "before");
  EXPECT_EQ(folder_.Names(), std::set<std::string>{"out.txt"});

  CErrorText errorText;
  EXPECT_TRUE(WriteTextFile(path, text, Info(Type::Ascii), false, errorText));
  EXPECT_EQ(errorText.str(), u"");
  EXPECT_TRUE(folder_.Get("out.txt") == EncodeText(text, Type::Utf8, true).bytes);
  EXPECT_EQ(folder_.Names(), std::set<std::string>{"out.txt"});
}

}  // namespace
}  // namespace NScrivolt
