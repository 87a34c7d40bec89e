#include "engine/error_report.h"

namespace NScrivolt {

void AddError(WString& errorText, const CText& message, const ParseLocation& location) {
  // Filled from the last placeholder to the first: each value then lands
  // behind every placeholder still to be filled, so a message or context that
  // itself holds "[LINE]" or "[ERROR]" cannot be taken for the line's own.
  CText line(MsgErrorLine);
  line.Replace(u"[CONTEXT]", WStringView(location.context));
  line.Replace(u"[COLUMN]", WStringView(IntegerToText(std::int64_t(location.column))));
  line.Replace(u"[LINE]", WStringView(IntegerToText(std::int64_t(location.line))));
  line.Replace(u"[ERROR]", message);
  if (!errorText.empty()) errorText += u"\r\n";
  errorText += line.str();
}

}  // namespace NScrivolt
