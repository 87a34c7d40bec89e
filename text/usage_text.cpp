#include "text/usage_text.h"

#include "text/text.h"

namespace NScrivolt {

WString UsageText() {
  const MessageId sections[] = {MsgUsageIntro, MsgUsageSwitches, MsgUsageExitCodes, MsgUsagePosix};
  WString text;
  for (const MessageId id : sections) {
    text += CText(id).str();
    text += u"\n";
  }
  text += CText(MsgBetaNotice).str();
  text += u"\n";
  return text;
}

}  // namespace NScrivolt
