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
#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "text/base/wide_string.h"
#include "text/encoding.h"

namespace NScrivolt {

class CEncodedOutput {
 public:
  // Text is taken once the buffer holds this many units.
  static constexpr std::size_t kTakeUnits = std::size_t(1) << 18;

  explicit CEncodedOutput(EncodingType type) : type_(type) {}

  // Encodes `text` up to its last whole character and removes that part
  // from it; once the encoding has ended, leaves it alone.
  void Take(WString& text);
  // False once a piece could not be encoded exactly.
  bool Exact() const { return exact_; }
  bool Empty() const { return blocks_.empty(); }
  const std::vector<std::string>& Blocks() const { return blocks_; }
  // The text the bytes came from, followed by `rest`.
  WString Restore(WStringView rest) const;

 private:
  bool EncodesExactly(WStringView piece, std::string& bytes) const;

  EncodingType type_;
  bool exact_ = true;
  std::vector<std::string> blocks_;
};

}  // namespace NScrivolt
