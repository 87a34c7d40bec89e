#include "engine/codecs/csv_scanner.h"

#include <utility>

namespace NScrivolt {

namespace {

constexpr WChar kQuote = u'"';

bool IsSeparatorOrLineEnd(WChar c) { return c == u',' || c == u'\r' || c == u'\n'; }

}  // namespace

bool CCsvFieldScanner::AtTerminator(std::size_t at) const {
  return at == text_.size() || IsSeparatorOrLineEnd(text_[at]);
}

std::size_t CCsvFieldScanner::BlanksEnd(std::size_t at) const {
  while (at < text_.size() && IsBlank(text_[at])) ++at;
  return at;
}

// field := blank* (quoted | unquoted)
std::size_t CCsvFieldScanner::ReadField(std::size_t at, WString& value) const {
  value.clear();
  at = BlanksEnd(at);
  return (at < text_.size() && text_[at] == kQuote) ? ReadQuoted(at + 1, value) : ReadUnquoted(at, value);
}

// unquoted := units up to a terminator; a run of blanks is kept only when
// something other than a terminator follows it, so the field is the units
// up to the terminator without the blanks before it. Returns the
// terminator's place.
std::size_t CCsvFieldScanner::ReadUnquoted(std::size_t at, WString& value) const {
  std::size_t terminator = at;
  while (!AtTerminator(terminator)) ++terminator;
  std::size_t end = terminator;
  while (end > at && IsBlank(text_[end - 1])) --end;
  value.assign(text_, at, end - at);
  return terminator;
}

// quoted := (unit | '""')* '"' blank*   — `at` is just behind the opening
// quote. Returns the place of the terminator that ends the field.
std::size_t CCsvFieldScanner::ReadQuoted(std::size_t at, WString& value) const {
  for (;;) {
    const std::size_t quote = text_.find(kQuote, at);
    if (quote == WStringView::npos) {  // never closed: the rest is the field
      value.append(text_, at, WStringView::npos);
      return text_.size();
    }
    value.append(text_, at, quote - at);
    const std::size_t next = quote + 1;
    if (next < text_.size() && text_[next] == kQuote) {
      value += kQuote;
      at = next + 1;
      continue;
    }
    const std::size_t afterBlanks = BlanksEnd(next);
    if (AtTerminator(afterBlanks)) return afterBlanks;
    // Not a closing quote: it stays, with any blanks behind it.
    value.append(text_, quote, afterBlanks - quote);
    at = afterBlanks;
  }
}

}  // namespace NScrivolt
