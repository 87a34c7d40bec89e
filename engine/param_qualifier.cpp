#include "engine/param_qualifier.h"

#include <algorithm>
#include <initializer_list>
#include <utility>

#include "text/text.h"

namespace NScrivolt {

namespace {

bool IsNameChar(WChar c) {
  return (c >= u'a' && c <= u'z') || (c >= u'A' && c <= u'Z') || (c >= u'0' && c <= u'9') ||
         c == u'-' || c == u'_';
}

bool IsDigit(WChar c) { return c >= u'0' && c <= u'9'; }

// name := namechar+        namechar := "A"-"Z" | "a"-"z" | "0"-"9" | "-" | "_"
bool IsValidName(WStringView text) {
  if (text.empty()) return false;
  for (WChar c : text) {
    if (!IsNameChar(c)) return false;
  }
  return true;
}

// number := "#" ["-"] digit+      (the "#" is already known to be there)
bool IsValidNumber(WStringView text) {
  std::size_t i = 1;
  if (i < text.size() && text[i] == u'-') ++i;
  if (i == text.size()) return false;
  for (; i < text.size(); ++i) {
    if (!IsDigit(text[i])) return false;
  }
  return true;
}

using Placeholder = std::pair<WStringView, WStringView>;

// Fills every placeholder in one pass over the message, so a value that
// happens to contain a placeholder's text is never filled in turn.
WString Fill(MessageId id, std::initializer_list<Placeholder> values) {
  const CText message(id);
  const WString& text = message.str();
  WString result;
  result.reserve(text.size());
  for (std::size_t i = 0; i < text.size();) {
    bool replaced = false;
    for (const Placeholder& p : values) {
      if (text.compare(i, p.first.size(), p.first) == 0) {
        result.append(p.second);
        i += p.first.size();
        replaced = true;
        break;
      }
    }
    if (!replaced) result.push_back(text[i++]);
  }
  return result;
}

// Numbers beyond the 32-bit range clamp to its ends; "#0" and "#1" both
// select the first child.
CParamId NumberComponent(WStringView text) {
  CParamId id;
  id.numbered = true;
  const std::int32_t number = ReadInteger(text.substr(1));
  id.index = number >= 1 ? number - 1 : number;
  return id;
}

CParamId NameComponent(WStringView text) {
  CParamId id;
  id.numbered = false;
  id.name = WString(text);
  id.key = ToLowerAscii(text);
  return id;
}

}  // namespace

// qualifier := component ("." component)*
// component := name | number
// The text splits at every "." as if one more were appended, so "" is one
// empty component and "a." ends in one.
CQualifierParse ParseQualifierText(WStringView text, WStringView argName) {
  CQualifierParse result;
  std::size_t start = 0;
  for (;;) {
    const std::size_t dot = std::min(text.find(u'.', start), text.size());
    const WStringView component = text.substr(start, dot - start);
    if (!component.empty() && component[0] == u'#') {
      if (!IsValidNumber(component)) {
        result.message = Fill(MsgInvalidParamIndex,
                              {{u"[INDEX]", component}, {u"[PARAM]", text}, {u"[ARG]", argName}});
        break;
      }
      result.qualifier.push_back(NumberComponent(component));
    } else {
      if (!IsValidName(component)) {
        result.message = Fill(MsgInvalidParamName,
                              {{u"[NAME]", component}, {u"[PARAM]", text}, {u"[ARG]", argName}});
        break;
      }
      result.qualifier.push_back(NameComponent(component));
    }
    if (dot == text.size()) break;
    start = dot + 1;
  }
  if (!result.message.empty()) result.qualifier.clear();
  return result;
}

}  // namespace NScrivolt
