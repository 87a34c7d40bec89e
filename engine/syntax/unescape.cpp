#include "engine/syntax/unescape.h"

namespace NScrivolt {

namespace {

constexpr WStringView kEscapedOpen = u"<#<#";
constexpr WStringView kEscapedClose = u"#>#>";

}  // namespace

// Both escapes hold a "#", so one scan for that unit finds them.
bool HoldsEscapes(WStringView text) {
  for (size_t hash = FindUnit(text, u'#'); hash != WStringView::npos; hash = FindUnit(text, u'#', hash + 1)) {
    if (text.substr(hash).rfind(kEscapedClose, 0) == 0) return true;
    if (hash > 0 && text.substr(hash - 1).rfind(kEscapedOpen, 0) == 0) return true;
  }
  return false;
}

void AppendUnescapedText(WString& output, WStringView text) {
  if (!HoldsEscapes(text)) {
    output.append(text);
    return;
  }
  // The two replacements run one after the other over the whole text, not in
  // one pass: a "#>#>" made by the first one is replaced by the second.
  output.append(ReplaceAll(ReplaceAll(text, kEscapedOpen, u"<#"), kEscapedClose, u"#>"));
}

WString UnescapeText(WStringView text) {
  WString output;
  AppendUnescapedText(output, text);
  return output;
}

}  // namespace NScrivolt
