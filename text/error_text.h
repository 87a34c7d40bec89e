// CErrorText: what an operation that can fail returns. Empty on success; each
// error adds one line, and lines are joined by a carriage return and a line
// feed. It is a type of its own, not a WString, so an error cannot be handed
// on as an output text (or an output as an error), and a call whose error
// nobody looks at is a warning, which stops the warnings-as-errors build.
//
// The helpers that build error lines from messages live here (a detail line
// without a location) and in engine/syntax/error_report.h (a line located in
// a template).
#pragma once

#include <cstddef>
#include <initializer_list>
#include <utility>

#include "text/text.h"
#include "text/base/wide_string.h"

namespace NScrivolt {

class [[nodiscard]] CErrorText {
 public:
  CErrorText() = default;
  explicit CErrorText(WString text) : text_(std::move(text)) {}

  // True on success.
  bool empty() const { return text_.empty(); }
  const WString& str() const { return text_; }

  // Appends `line` after a line break when the text already holds a line.
  void AddLine(WStringView line);
  // Appends "\r\n- " and `detail`: the break comes first even when the text
  // is still empty.
  void AddDetail(WStringView detail);

 private:
  WString text_;
};

// Message `id` with its placeholders filled as a new error text of one line,
// as it is (the switch failures of the command line).
CErrorText MessageError(MessageId id, std::initializer_list<CText::Filler> values = {});

// Appends message `id` with its placeholders filled as a detail line.
void AddErrorDetail(CErrorText& errorText, MessageId id, std::initializer_list<CText::Filler> values = {});

// Message `id` as a new error text of one detail line.
CErrorText DetailError(MessageId id, std::initializer_list<CText::Filler> values = {});

// Message `id` whose [LINE] and [COLUMN] are a position in a decoded text
// (MsgInvalidJson, MsgInvalidXml), as a new error text of one detail line.
CErrorText PositionError(MessageId id, std::size_t line, std::size_t column);

}  // namespace NScrivolt
