#include "engine/syntax/error_report.h"

namespace NScrivolt {

// Fill puts each value where its placeholder stood in the message, so a
// message or context that itself holds "[LINE]" or "[ERROR]" cannot be
// taken for the line's own.
void AddError(CErrorText& errorText, const CText& message, const ParseLocation& location) {
  const WString lineNumber = IntegerToText(std::int64_t(location.line));
  const WString columnNumber = IntegerToText(std::int64_t(location.column));
  CText line(MsgErrorLine);
  line.Fill({{u"[ERROR]", message.str()},
             {u"[LINE]", lineNumber},
             {u"[COLUMN]", columnNumber},
             {u"[CONTEXT]", location.context}});
  errorText.AddLine(line.str());
}

void AddErrorAt(CErrorText& errorText, MessageId id, const CParsePart& at,
                std::initializer_list<CText::Filler> values) {
  CText message(id);
  if (values.size() > 0) message.Fill(values);
  AddError(errorText, message, at.Location());
}

CErrorText ErrorAt(MessageId id, const CParsePart& at, std::initializer_list<CText::Filler> values) {
  CErrorText errorText;
  AddErrorAt(errorText, id, at, values);
  return errorText;
}

CErrorText ArgumentMissingError(const CParsePart& call, WStringView displayName) {
  return ErrorAt(MsgArgumentMissing, call, {{u"[ARG]", displayName}});
}

CErrorText UnknownOptionError(const CParsePart& argument, WStringView text) {
  return ErrorAt(MsgUnknownOption, argument, {{u"[OPT]", text}, {u"[ARG]", argument.Name()}});
}

CErrorText ParamNotSetError(const CParsePart& argument, WStringView evaluatedText) {
  return ErrorAt(MsgParamNotSet, argument, {{u"[PARAM]", evaluatedText}, {u"[ARG]", argument.Name()}});
}

}  // namespace NScrivolt
