// CDecodedText: the text a structured decoder reads, which nobody reads
// after it.
//
// A decoder that reads the text once, from its start to its end, says how
// far it has come, and the memory behind that point goes back to the system
// while the decoding goes on: a large input does not stay in memory beside
// the tree that is built from it, and the tree may take the memory over.
#pragma once

#include <cstddef>
#include <utility>

#include "text/base/wide_string.h"

namespace NScrivolt {

class CDecodedText {
 public:
  // Memory goes back in steps of at least this many units.
  static constexpr std::size_t kReleaseUnits = std::size_t(1) << 20;

  explicit CDecodedText(WString text) : text_(std::move(text)) {}
  CDecodedText(const CDecodedText&) = delete;
  CDecodedText& operator=(const CDecodedText&) = delete;

  WStringView View() const { return text_; }
  // Nothing before `position` is read again.
  void ReadUpTo(std::size_t position);

 private:
  WString text_;
  std::size_t released_ = 0;  // the units before it are given back
};

}  // namespace NScrivolt
