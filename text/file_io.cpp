#include "text/file_io.h"

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <memory>
#include <string>

#include "platform/files.h"
#include "platform/paths.h"
#include "text/error_text.h"
#include "text/text.h"

namespace NScrivolt {

namespace {

bool IsRootRelative(const WString& path) {
  return path.size() >= 2 && path[0] == u'\\' && path[1] != u'\\';
}

WString BelowBasePath(const WString& path, const WString& basePath) {
  if (basePath.empty()) return path.substr(1);
  size_t end = basePath.size();
  while (end > 0 && Platform::IsPathSeparator(basePath[end - 1])) --end;
  return basePath.substr(0, end) + path;
}

// Reads on into buffer[filled, capacity) until it is full or the file ends.
bool Fill(Platform::CFileReader& reader, char* buffer, std::size_t capacity, std::size_t& filled, bool& atEnd) {
  while (filled < capacity) {
    std::size_t count = 0;
    if (!reader.Read(buffer + filled, capacity - filled, count)) return false;
    if (count == 0) {
      atEnd = true;
      return true;
    }
    filled += count;
  }
  return true;
}

// The most units a file of `size` bytes can decode to.
std::size_t MostUnits(std::uint64_t size, EncodingType type) {
  const bool twoBytesAUnit = type == EncodingType::Utf16 || type == EncodingType::Utf16Be;
  return std::size_t(twoBytesAUnit ? size / 2 : size);
}

// The mark is looked for in the first piece, which is a full buffer unless
// the file is shorter. Each piece is decoded up to its last whole character
// and the bytes after that are carried into the next piece. The text is
// reserved once for the most units the file can hold; when mostly multi-byte
// characters leave more than half of that unused, it is given back.
bool ReadAndDecode(const WString& path, WString& text, EncodingInfo& encoding, bool isExplicit) {
  Platform::CFileReader reader;
  if (!reader.Open(path)) return false;
  const std::unique_ptr<char[]> buffer(new char[kReadPieceBytes]);
  std::size_t filled = 0;
  bool atEnd = false;
  if (!Fill(reader, buffer.get(), kReadPieceBytes, filled, atEnd)) return false;
  const std::string_view first(buffer.get(), filled);
  encoding = isExplicit ? CheckBom(first, encoding.type) : DetectEncoding(first, encoding.type);
  text.reserve(MostUnits(reader.SizeHint(), encoding.type));
  std::size_t start = std::min<std::size_t>(encoding.bomLength, filled);
  for (;;) {
    const std::string_view bytes(buffer.get() + start, filled - start);
    const std::size_t whole = atEnd ? bytes.size() : DecodablePrefix(bytes, encoding.type);
    if (!AppendDecoded(bytes.substr(0, whole), encoding.type, text)) return false;
    if (atEnd) break;
    filled = bytes.size() - whole;
    std::memmove(buffer.get(), bytes.data() + whole, filled);
    start = 0;
    if (!Fill(reader, buffer.get(), kReadPieceBytes, filled, atEnd)) return false;
  }
  if (text.size() < text.capacity() / 2) text.shrink_to_fit();
  return true;
}

// The piece of the text from `done` on, moving `done` past it; a surrogate
// pair is never cut in two.
WStringView NextPiece(WStringView text, std::size_t& done) {
  std::size_t end = std::min(text.size(), done + kWritePieceUnits);
  if (end < text.size() && text[end - 1] >= 0xD800 && text[end - 1] <= 0xDBFF) ++end;
  const WStringView piece = text.substr(done, end - done);
  done = end;
  return piece;
}

struct WriteOutcome {
  bool converted = true;  // false: the conversion failed
  bool usedDefaultChar = false;
  bool written = false;  // the target now holds the encoded text
};

// Encodes and writes piece by piece. Once a character turns out to be
// unrepresentable nothing more is written, but the conversion goes on to the
// end, so that a failure later in the text still shows. The target is
// replaced only when the whole text was converted and written.
WriteOutcome EncodeAndWrite(const WString& path, WStringView text, EncodingType type, bool bom) {
  WriteOutcome outcome;
  Platform::CFileReplacement file;
  bool writing = file.Open(path);
  std::string bytes(bom ? ByteOrderMark(type) : std::string_view());
  for (std::size_t done = 0;;) {
    const WStringView piece = NextPiece(text, done);
    bool usedDefaultChar = false;
    outcome.converted = AppendEncoded(piece, type, bytes, usedDefaultChar);
    if (!outcome.converted) return outcome;
    outcome.usedDefaultChar = outcome.usedDefaultChar || usedDefaultChar;
    writing = writing && !outcome.usedDefaultChar && file.Write(bytes);
    bytes.clear();
    if (done == text.size()) break;
  }
  outcome.written = writing && file.Commit();
  return outcome;
}

}  // namespace

WString ResolveFilePath(const WString& path, const WString& basePath) {
  if (Platform::IsStandardStream(path)) return path;
  const WString located = IsRootRelative(path) ? BelowBasePath(path, basePath) : path;
  WString full;
  return Platform::FullPath(located, full) ? full : located;
}

bool ReadTextFile(const WString& path, WString& text, bool skipIfMissing, EncodingInfo& encoding, bool isExplicit,
                  CErrorText& errorText) {
  text.clear();
  bool success = skipIfMissing;
  if (Platform::FileExists(path)) success = ReadAndDecode(path, text, encoding, isExplicit);
  if (!success) {
    WString().swap(text);
    AddErrorDetail(errorText, MsgCannotReadFile, {{u"[FILEPATH]", path}});
  }
  return success;
}

bool WriteTextFile(const WString& path, WStringView text, const EncodingInfo& encoding, bool isExplicit,
                   CErrorText& errorText) {
  const WStringView encodingName = EncodingDisplayName(encoding.type);
  WriteOutcome outcome = EncodeAndWrite(path, text, encoding.type, encoding.bom);
  if (outcome.converted && outcome.usedDefaultChar) {
    if (isExplicit) {
      AddErrorDetail(errorText, MsgNotRepresentable, {{u"[ENCODING]", encodingName}, {u"[FILEPATH]", path}});
      return false;
    }
    outcome = EncodeAndWrite(path, text, EncodingType::Utf8, true);
  }
  if (!outcome.converted) {
    AddErrorDetail(errorText, MsgConversionError, {{u"[ENCODING]", encodingName}, {u"[FILEPATH]", path}});
    return false;
  }
  if (!outcome.written) {
    AddErrorDetail(errorText, MsgCannotWriteFile, {{u"[FILEPATH]", path}});
    return false;
  }
  return true;
}

// Bytes encoded exactly are written as they are; anything else takes the
// way of WriteTextFile over the whole text, so the file and the errors are
// what they would have been.
bool WriteEncodedTextFile(const WString& path, CEncodedOutput& encoded, WString rest, const EncodingInfo& encoding,
                          bool isExplicit, CErrorText& errorText) {
  if (encoded.Empty()) return WriteTextFile(path, rest, encoding, isExplicit, errorText);
  encoded.Take(rest);
  if (!encoded.Exact() || !rest.empty()) {
    WString text = encoded.Restore(rest);
    if (!encoded.Lost()) return WriteTextFile(path, text, encoding, isExplicit, errorText);
  }
  bool written = !encoded.Lost();
  if (Platform::CFileReplacement* streamed = encoded.File()) {
    written = written && streamed->Commit();
  } else {
    Platform::CFileReplacement file;
    written = written && file.Open(path) && (!encoding.bom || file.Write(ByteOrderMark(encoding.type)));
    for (const std::string& block : encoded.Blocks()) written = written && file.Write(block);
    written = written && file.Commit();
  }
  if (!written) AddErrorDetail(errorText, MsgCannotWriteFile, {{u"[FILEPATH]", path}});
  return written;
}

}  // namespace NScrivolt
