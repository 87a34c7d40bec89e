#include "text/error_text.h"

#include <cstdint>

namespace NScrivolt {

void CErrorText::AddLine(WStringView line) {
  if (!text_.empty()) text_ += u"\r\n";
  text_ += line;
}

void CErrorText::AddDetail(WStringView detail) {
  text_ += u"\r\n- ";
  text_ += detail;
}

namespace {

CText FilledMessage(MessageId id, std::initializer_list<CText::Filler> values) {
  CText message(id);
  if (values.size() > 0) message.Fill(values);
  return message;
}

}  // namespace

CErrorText MessageError(MessageId id, std::initializer_list<CText::Filler> values) {
  return CErrorText(FilledMessage(id, values).str());
}

void AddErrorDetail(CErrorText& errorText, MessageId id, std::initializer_list<CText::Filler> values) {
  errorText.AddDetail(FilledMessage(id, values).str());
}

CErrorText DetailError(MessageId id, std::initializer_list<CText::Filler> values) {
  CErrorText errorText;
  AddErrorDetail(errorText, id, values);
  return errorText;
}

CErrorText PositionError(MessageId id, std::size_t line, std::size_t column) {
  const WString lineNumber = IntegerToText(std::int64_t(line));
  const WString columnNumber = IntegerToText(std::int64_t(column));
  return DetailError(id, {{u"[LINE]", lineNumber}, {u"[COLUMN]", columnNumber}});
}

}  // namespace NScrivolt
