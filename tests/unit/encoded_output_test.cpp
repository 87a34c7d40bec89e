#include <gtest/gtest.h>

#include <filesystem>
#include <set>
#include <string>
#include <vector>

#include "text/base/utf8.h"
#include "text/encoded_output.h"
#include "text/error_text.h"
#include "text/file_io.h"
#include "unit/ansi_samples.h"
#include "unit/scratch_folder.h"

namespace NScrivolt {
namespace {

using Type = EncodingType;
using Names = std::set<std::string>;

struct CWriteResult {
  bool ok = false;
  CErrorText errorText;
  bool exists = false;
  std::string bytes;
};

// Where the keeper puts the bytes: in memory, or into the file's
// replacement as they come.
enum class Keeping { InMemory, IntoFile };

CEncodedOutput MakeKeeper(Keeping keeping, const WString& path, const EncodingInfo& encoding) {
  return keeping == Keeping::IntoFile ? CEncodedOutput(encoding.type, path, encoding.bom)
                                      : CEncodedOutput(encoding.type);
}

// Hands `text` to a keeper in pieces cut at `cuts`, as a processing hands on
// its output, then writes the rest with it.
CWriteResult WriteInPieces(const Testing::CScratchFolder& folder, const WString& path, const WString& text,
                           const std::vector<std::size_t>& cuts, const EncodingInfo& encoding, bool isExplicit,
                           Keeping keeping) {
  CEncodedOutput encoded = MakeKeeper(keeping, path, encoding);
  WString buffer;
  std::size_t done = 0;
  for (std::size_t cut : cuts) {
    buffer.append(text, done, cut - done);
    done = cut;
    encoded.Take(buffer);
  }
  buffer.append(text, done);
  CWriteResult result;
  result.ok = WriteEncodedTextFile(path, encoded, std::move(buffer), encoding, isExplicit, result.errorText);
  result.exists = std::filesystem::exists(folder.Native("out.txt"));
  result.bytes = folder.Get("out.txt");
  return result;
}

CWriteResult WriteWhole(const Testing::CScratchFolder& folder, const WString& path, const WString& text,
                        const EncodingInfo& encoding, bool isExplicit) {
  CWriteResult result;
  result.ok = WriteTextFile(path, text, encoding, isExplicit, result.errorText);
  result.exists = std::filesystem::exists(folder.Native("out.txt"));
  result.bytes = folder.Get("out.txt");
  return result;
}

// Whatever the text, the encoding and the places where it was handed on,
// the file and the errors are those of writing the text whole.
TEST(EncodedOutput, WritesWhatTheWholeTextWouldHaveWritten) {
  const WString texts[] = {
      u"plain text, nothing else",
      u"caf\u00e9 and na\u00efve",
      u"smile \U0001F600 pair",
      u"ab\U0001F600",
      u"\u0101 may become a look-alike, \U0001F600 no",
      u"a look-alike last: \u0101",
      u"abcd\u0101",
      Testing::kNotInAnyCodePage + u" and more text after it",
      u"",
  };
  const Type types[] = {Type::Ascii, Type::Utf8, Type::Utf16, Type::Utf16Be};
  Testing::CScratchFolder folder;
  for (const WString& text : texts) {
    // Every cut, including those inside a surrogate pair, and none.
    std::vector<std::vector<std::size_t>> cutSets{{}};
    for (std::size_t cut = 0; cut <= text.size(); ++cut) cutSets.push_back({cut});
    if (text.size() >= 3) cutSets.push_back({1, 3, text.size()});
    for (Type type : types) {
      for (bool isExplicit : {false, true}) {
        EncodingInfo encoding;
        encoding.type = type;
        encoding.bom = isExplicit;
        for (const auto& cuts : cutSets) {
          for (Keeping keeping : {Keeping::InMemory, Keeping::IntoFile}) {
            const WString path = folder.Path("out.txt");
            std::filesystem::remove(folder.Native("out.txt"));
            const CWriteResult whole = WriteWhole(folder, path, text, encoding, isExplicit);
            std::filesystem::remove(folder.Native("out.txt"));
            const CWriteResult pieces = WriteInPieces(folder, path, text, cuts, encoding, isExplicit, keeping);
            const std::string what = WideToUtf8(text) + " as " + std::to_string(int(type)) +
                                     (isExplicit ? " explicit" : "") + ", cuts " + std::to_string(cuts.size()) +
                                     (keeping == Keeping::IntoFile ? ", into the file" : "");
            EXPECT_EQ(pieces.ok, whole.ok) << what;
            EXPECT_EQ(pieces.errorText.str(), whole.errorText.str()) << what;
            EXPECT_EQ(pieces.exists, whole.exists) << what;
            EXPECT_EQ(pieces.bytes, whole.bytes) << what;
            EXPECT_EQ(folder.Names(), pieces.exists ? Names{"out.txt"} : Names{}) << what;
          }
        }
      }
    }
  }
}

// A piece that is not encoded exactly ends the encoding; what came before
// it is restored to the very text it came from.
TEST(EncodedOutput, RestoresTheTextBeforeAPieceItCannotEncode) {
  CEncodedOutput encoded(Type::Ascii);
  WString first = u"first part \u00e9 ";
  encoded.Take(first);
  EXPECT_TRUE(first.empty());
  EXPECT_FALSE(encoded.Empty());
  WString second = Testing::kNotInAnyCodePage;
  encoded.Take(second);
  EXPECT_FALSE(encoded.Exact());
  EXPECT_EQ(second, Testing::kNotInAnyCodePage);
  WString third = u"third";
  encoded.Take(third);
  EXPECT_EQ(third, u"third");
  EXPECT_EQ(encoded.Restore(second + third), u"first part \u00e9 " + Testing::kNotInAnyCodePage + u"third");
}

// Bytes written into the file as they come leave the target as it was until
// the writer commits them; given up, they leave nothing behind.
TEST(EncodedOutput, WritesIntoTheFileOnlyWhenTheWriterCommits) {
  Testing::CScratchFolder folder;
  folder.Put("out.txt", "old");
  EncodingInfo encoding;
  encoding.type = Type::Utf8;
  for (bool commit : {false, true}) {
    {
      CEncodedOutput encoded(encoding.type, folder.Path("out.txt"), false);
      WString text = u"new text";
      encoded.Take(text);
      ASSERT_NE(encoded.File(), nullptr);
      EXPECT_TRUE(encoded.Blocks().empty());
      EXPECT_EQ(folder.Get("out.txt"), "old");
      if (commit) {
        CErrorText errorText;
        EXPECT_TRUE(WriteEncodedTextFile(folder.Path("out.txt"), encoded, u" and the rest", encoding, false, errorText));
        EXPECT_TRUE(errorText.empty());
      }
    }
    EXPECT_EQ(folder.Get("out.txt"), commit ? "new text and the rest" : "old") << commit;
    EXPECT_EQ(folder.Names(), Names{"out.txt"}) << commit;
  }
}

// A piece that is not encoded exactly brings the bytes written into the
// file back into memory, with the mark left out.
TEST(EncodedOutput, RestoresTheTextWrittenIntoTheFile) {
  Testing::CScratchFolder folder;
  CEncodedOutput encoded(Type::Ascii, folder.Path("out.txt"), false);
  WString first = u"first \u00e9 ";
  encoded.Take(first);
  ASSERT_NE(encoded.File(), nullptr);
  WString second = Testing::kNotInAnyCodePage;
  encoded.Take(second);
  EXPECT_FALSE(encoded.Exact());
  EXPECT_EQ(encoded.File(), nullptr);
  EXPECT_EQ(encoded.Restore(second), u"first \u00e9 " + Testing::kNotInAnyCodePage);
  EXPECT_TRUE(folder.Names().empty());
}

// A target the replacement cannot write as it goes keeps its bytes in
// memory: a folder, and a path in a folder that does not exist.
TEST(EncodedOutput, KeepsTheBytesInMemoryForATargetItCannotWriteAsItGoes) {
  Testing::CScratchFolder folder;
  std::filesystem::create_directory(folder.Native("sub"));
  for (const char* name : {"sub", "missing/out.txt"}) {
    CEncodedOutput encoded(Type::Utf8, folder.Path(name), false);
    WString text = u"text";
    encoded.Take(text);
    EXPECT_EQ(encoded.File(), nullptr) << name;
    EXPECT_EQ(encoded.Blocks(), std::vector<std::string>{"text"}) << name;
  }
}

// A high surrogate at the end waits for its partner.
TEST(EncodedOutput, KeepsAHighSurrogateAtTheEndForTheNextPiece) {
  CEncodedOutput encoded(Type::Utf8);
  WString text = u"ab\xD83D";
  encoded.Take(text);
  EXPECT_EQ(text, u"\xD83D");
  text += u"\xDE00";
  encoded.Take(text);
  EXPECT_TRUE(text.empty());
  ASSERT_EQ(encoded.Blocks().size(), 2u);
  EXPECT_EQ(encoded.Blocks()[0] + encoded.Blocks()[1], "ab\xF0\x9F\x98\x80");
}

}  // namespace
}  // namespace NScrivolt
