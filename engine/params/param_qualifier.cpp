#include "engine/params/param_qualifier.h"

#include <algorithm>

#include "engine/syntax/char_class.h"
#include "text/text.h"

namespace NScrivolt {

namespace {

bool IsDigit(WChar c) { return c >= u'0' && c <= u'9'; }

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
        result.message =
            CText(MsgInvalidParamIndex).Fill({{u"[INDEX]", component}, {u"[PARAM]", text}, {u"[ARG]", argName}});
        break;
      }
      result.qualifier.push_back(NumberComponent(component));
    } else {
      if (!IsValidName(component)) {
        result.message =
            CText(MsgInvalidParamName).Fill({{u"[NAME]", component}, {u"[PARAM]", text}, {u"[ARG]", argName}});
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
