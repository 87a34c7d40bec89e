// Reading one CSV record: the field scanner behind decoding "csvline" and
// "csvlines".
//
//   record   := field ("," field)*            ended by CR, LF or the end of the text
//   field    := blank* (quoted | unquoted)
//   quoted   := '"' (unit | '""')* '"' blank*  a quote not followed by blanks and a
//                                               terminator is kept as a unit; without
//                                               its closing quote the field runs to the
//                                               end of the text
//   unquoted := any units up to a terminator, trailing blanks dropped
//
// Terminators are ",", CR, LF and the end of the text; blanks are the space
// and the tab. Blanks before a field and after an unquoted field's text are
// dropped; blanks inside quotes, and between two other units, are kept. A
// text of blanks only is one empty field.
#pragma once

#include <cstddef>
#include <utility>

#include "text/base/wide_string.h"

namespace NScrivolt {

// The fields of the records of one text, read one at a time.
class CCsvFieldScanner {
 public:
  explicit CCsvFieldScanner(WStringView text) : text_(text) {}

  // Reads the field that starts at `at` into `value` (emptied first) and
  // returns the place of the terminator that ends it.
  std::size_t ReadField(std::size_t at, WString& value) const;
  // Whether the terminator at `at` ends the record (anything but a ",").
  bool EndsRecord(std::size_t at) const { return at == text_.size() || text_[at] != u','; }

 private:
  bool AtTerminator(std::size_t at) const;
  std::size_t BlanksEnd(std::size_t at) const;
  std::size_t ReadUnquoted(std::size_t at, WString& value) const;
  std::size_t ReadQuoted(std::size_t at, WString& value) const;

  WStringView text_;
};

// Reads the record at the start of `text`, handing each field to `field` in
// order (at least one). Returns the number of units the record took: up to,
// not including, the CR or LF that ended it, or the whole text. Time is
// linear in the units read.
template <class FieldSink>
std::size_t ReadCsvRecord(WStringView text, FieldSink&& field) {
  const CCsvFieldScanner scanner(text);
  std::size_t at = 0;
  for (;;) {
    WString value;
    at = scanner.ReadField(at, value);
    field(std::move(value));
    if (scanner.EndsRecord(at)) return at;
    ++at;
  }
}

}  // namespace NScrivolt
