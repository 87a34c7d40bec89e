#include "engine/syntax/error_report.h"

namespace NScrivolt {

// Fill puts each value where its placeholder stood in the message, so a
// message or context that itself holds "[LINE]" or "[ERROR]" cannot be
// taken for the line's own.
void AddError(WString& errorText, const CText& message, const ParseLocation& location) {
  const WString lineNumber = IntegerToText(std::int64_t(location.line));
  const WString columnNumber = IntegerToText(std::int64_t(location.column));
  CText line(MsgErrorLine);
  line.Fill({{u"[ERROR]", message.str()},
             {u"[LINE]", lineNumber},
             {u"[COLUMN]", columnNumber},
             {u"[CONTEXT]", location.context}});
  if (!errorText.empty()) errorText += u"\r\n";
  errorText += line.str();
}

}  // namespace NScrivolt
