#include "text/encoded_output.h"

#include <cstdint>
#include <cstring>
#include <string_view>
#include <utility>

namespace NScrivolt {

namespace {

bool IsHighSurrogate(WChar unit) { return unit >= 0xD800 && unit <= 0xDBFF; }

// Every code page holds the characters below 0x80 as themselves. Reads
// four units at a time: the output passes through here whole.
bool IsAscii(WStringView text) {
  constexpr std::uint64_t kHighBits = 0xFF80FF80FF80FF80ull;
  std::uint64_t any = 0;
  std::size_t i = 0;
  for (; i + 4 <= text.size(); i += 4) {
    std::uint64_t four;
    std::memcpy(&four, text.data() + i, sizeof four);
    any |= four;
  }
  for (; i < text.size(); ++i) any |= text[i];
  return (any & kHighBits) == 0;
}

}  // namespace

// Text in the ANSI code page may come out as a look-alike without being
// reported: a piece beyond ASCII must decode back to itself to count as
// exact.
bool CEncodedOutput::EncodesExactly(WStringView piece, std::string& bytes) const {
  bool usedDefaultChar = false;
  if (!AppendEncoded(piece, type_, bytes, usedDefaultChar) || usedDefaultChar) return false;
  if (type_ != EncodingType::Ascii || IsAscii(piece)) return true;
  WString back;
  return AppendDecoded(bytes, type_, back) && back == piece;
}

CEncodedOutput::CEncodedOutput(EncodingType type, WString path, bool mark)
    : type_(type), path_(std::move(path)), mark_(mark) {}

void CEncodedOutput::Take(WString& text) {
  if (!exact_) return;
  std::size_t whole = text.size();
  if (whole > 0 && IsHighSurrogate(text[whole - 1])) --whole;
  if (whole == 0) return;
  std::string bytes;
  if (!EncodesExactly(WStringView(text).substr(0, whole), bytes)) {
    exact_ = false;
    KeepInMemory();
    return;
  }
  if (!path_.empty()) OpenFile();
  Keep(std::move(bytes));
  text.erase(0, whole);
}

// Only a replacement that writes into a new file as it goes is kept; for
// any other target the writer opens the file at the end, as it always did.
void CEncodedOutput::OpenFile() {
  auto file = std::make_unique<Platform::CFileReplacement>();
  const std::string_view mark = mark_ ? ByteOrderMark(type_) : std::string_view();
  if (file->Open(path_) && file->WritesToNewFile() && file->Write(mark)) {
    file_ = std::move(file);
    written_ = mark.size();
  }
  path_.clear();
}

void CEncodedOutput::Keep(std::string bytes) {
  if (file_ && file_->Write(bytes)) {
    written_ += bytes.size();
    return;
  }
  KeepInMemory();
  blocks_.push_back(std::move(bytes));
}

// A write that failed may have left part of its bytes in the file: only the
// pieces written whole come back.
void CEncodedOutput::KeepInMemory() {
  if (!file_) return;
  std::string bytes;
  const bool readBack = file_->TakeBack(bytes) && bytes.size() >= written_;
  file_.reset();
  if (!readBack) {
    lost_ = true;
    return;
  }
  const std::size_t markSize = mark_ ? ByteOrderMark(type_).size() : 0;
  bytes.resize(written_);
  bytes.erase(0, markSize);
  blocks_.insert(blocks_.begin(), std::move(bytes));
}

WString CEncodedOutput::Restore(WStringView rest) {
  KeepInMemory();
  WString text;
  for (const std::string& block : blocks_) AppendDecoded(block, type_, text);
  text.append(rest);
  return text;
}

}  // namespace NScrivolt
