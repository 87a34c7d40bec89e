// CTemplateSource: one template's text, held once for the parser and for
// every part parsed from it, with the context description for error lines and
// the line table that turns a position into a line and a column.
#pragma once

#include <cstddef>
#include <vector>

#include "text/base/wide_string.h"

namespace NScrivolt {

// Where something stands in a template. Positions are 0-based indexes in
// UTF-16 code units; lines and columns are 1-based, and both are 0 for a
// position that lies beyond the text.
struct ParseLocation {
  std::size_t position = 0;
  std::size_t line = 0;
  std::size_t column = 0;
  WString context;  // the description of the whole template, e.g. file "C:\a.txt"
};

class CTemplateSource {
 public:
  CTemplateSource() = default;
  CTemplateSource(WString text, WString context);
  CTemplateSource(const CTemplateSource&) = delete;
  CTemplateSource& operator=(const CTemplateSource&) = delete;

  WStringView Text() const { return text_; }
  // Moves the text out, leaving the source empty; only for a source no part
  // views any more.
  WString TakeText();
  const WString& Context() const { return context_; }

  // Line and column of `position`: the line is the one whose start is at or
  // before it and whose end (its CR or LF, the LF of a CRLF, or the end of
  // the text) is at or after it.
  ParseLocation Locate(std::size_t position) const;

 private:
  WString text_;
  WString context_;
  // Start of each line, ascending. Lines follow one another without gaps, so
  // a line ends one unit before the next one starts and the last one ends at
  // the end of the text; a binary search over the starts finds any position.
  // Built on the first Locate: only error reports need it.
  mutable std::vector<std::size_t> lineStarts_;
};

}  // namespace NScrivolt
