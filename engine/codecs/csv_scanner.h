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
#include <functional>

#include "text/base/wide_string.h"

namespace NScrivolt {

// Reads the record at the start of `text`, handing each field to `field` in
// order (at least one). Returns the number of units the record took: up to,
// not including, the CR or LF that ended it, or the whole text. Time is
// linear in the units read.
std::size_t ReadCsvRecord(WStringView text, const std::function<void(WString&&)>& field);

}  // namespace NScrivolt
