#include "engine/unescape.h"

namespace NScrivolt {

namespace {

constexpr WStringView kEscapedOpen = u"<#<#";
constexpr WStringView kEscapedClose = u"#>#>";

void AppendClosesUnescaped(WString& output, WStringView text) {
  if (text.find(kEscapedClose) == WStringView::npos) {
    output.append(text);
  } else {
    output.append(ReplaceAll(text, kEscapedClose, u"#>"));
  }
}

}  // namespace

void AppendUnescapedText(WString& output, WStringView text) {
  // The two replacements run one after the other over the whole text, not in
  // one pass: a "#>#>" made by the first one is replaced by the second.
  if (text.find(kEscapedOpen) == WStringView::npos) {
    AppendClosesUnescaped(output, text);
  } else {
    AppendClosesUnescaped(output, ReplaceAll(text, kEscapedOpen, u"<#"));
  }
}

WString UnescapeText(WStringView text) {
  WString output;
  AppendUnescapedText(output, text);
  return output;
}

}  // namespace NScrivolt
