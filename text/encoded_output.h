// CEncodedOutput: the output of a processing kept as the bytes it will be
// written as, encoded while it is produced.
//
// A processing's output went to its file only at the end, held whole as
// UTF-16 until then: two bytes a character, in a buffer that grew by
// copying. Handed to a CEncodedOutput in pieces, the output is kept as
// encoded bytes (one a character for most text), in blocks that are never
// copied, and the text buffer stays small.
//
// What is written must not change. A piece that cannot be encoded exactly
// (a character the ANSI code page does not hold, or holds only as a
// look-alike; a lone surrogate) ends the encoding: from then on the text is
// kept as it is, and the writer decodes the bytes back and writes the whole
// text the way it always did, with its fallback and its errors. The bytes
// kept before such a piece decode to exactly the text they came from.
//
// Given the file the output is for, the bytes are not kept at all: with the
// first piece the file's replacement is opened (a new file beside it, the
// target untouched until the writer commits it) and every piece is written
// into it as it comes, so a large output never sits in memory. Whatever
// ends that (the encoding ends, a write fails) reads the bytes back into
// memory and goes on as above. A target the replacement cannot write as it
// goes (a device, a pipe, a file with several links, a folder that takes no
// new file) keeps its bytes in memory, opened again by the writer at the end.
#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <vector>

#include "platform/files.h"
#include "text/base/wide_string.h"
#include "text/encoding.h"

namespace NScrivolt {

class CEncodedOutput {
 public:
  // Text is taken once the buffer holds this many units.
  static constexpr std::size_t kTakeUnits = std::size_t(1) << 18;

  explicit CEncodedOutput(EncodingType type) : type_(type) {}
  // For the file at the resolved `path`, its byte order mark first when
  // `mark` is set.
  CEncodedOutput(EncodingType type, WString path, bool mark);

  // Encodes `text` up to its last whole character and removes that part
  // from it; once the encoding has ended, leaves it alone.
  void Take(WString& text);
  // False once a piece could not be encoded exactly.
  bool Exact() const { return exact_; }
  bool Empty() const { return blocks_.empty() && !file_; }
  // True when bytes written into the file could not be read back: the
  // output is lost, and the file cannot be written.
  bool Lost() const { return lost_; }
  // The replacement holding every byte, its mark first; null when the bytes
  // are kept in memory.
  Platform::CFileReplacement* File() const { return file_.get(); }
  const std::vector<std::string>& Blocks() const { return blocks_; }
  // The text the bytes came from, followed by `rest`; the bytes written
  // into the file come back first.
  WString Restore(WStringView rest);

 private:
  bool EncodesExactly(WStringView piece, std::string& bytes) const;
  void OpenFile();
  void Keep(std::string bytes);
  void KeepInMemory();

  EncodingType type_;
  bool exact_ = true;
  bool lost_ = false;
  std::vector<std::string> blocks_;
  WString path_;  // of the file to write as the pieces come; empty once tried
  bool mark_ = false;
  std::unique_ptr<Platform::CFileReplacement> file_;
  std::size_t written_ = 0;  // bytes written whole into file_, its mark included
};

}  // namespace NScrivolt
