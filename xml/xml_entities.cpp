#include "xml/xml_entities.h"

#include "text/digit_set.h"

namespace NScrivolt {

namespace {

struct NamedEntity {
  WStringView name;  // between "&" and ";"
  WChar character;
};

constexpr NamedEntity kNamedEntities[] = {
    {u"amp", u'&'}, {u"lt", u'<'}, {u"gt", u'>'}, {u"quot", u'"'}, {u"apos", u'\''},
};

// All five characters sort at or below ">", which makes most units a single test.
const NamedEntity* EntityFor(WChar c) {
  if (c > u'>') return nullptr;
  for (const NamedEntity& entity : kNamedEntities) {
    if (entity.character == c) return &entity;
  }
  return nullptr;
}

constexpr char32_t kLastCodePoint = 0x10FFFF;

void AppendCodePoint(char32_t code, WString& out) {
  if (code <= 0xFFFF) {
    out.push_back(WChar(code));
    return;
  }
  code -= 0x10000;
  out.push_back(WChar(0xD800 + (code >> 10)));
  out.push_back(WChar(0xDC00 + (code & 0x3FF)));
}

// Reads one reference at the start of `text` (which begins with "&"):
//   reference := "&" name ";" | "&#" digits ";" | "&#" ("x"|"X") hexdigits ";"
// Returns its length and appends its character, or returns 0 when it is none.
std::size_t DecodeReference(WStringView text, WString& out) {
  if (text.size() > 1 && text[1] == u'#') {
    std::size_t at = 2;
    const CDigitSet* digits = &DecimalDigits();
    if (at < text.size() && (text[at] == u'x' || text[at] == u'X')) {
      digits = &HexDigits();
      ++at;
    }
    const auto base = char32_t(digits->digits.size());
    const std::size_t digitsStart = at;
    char32_t code = 0;
    for (; at < text.size(); ++at) {
      const int digit = digits->ValueOf(text[at]);
      if (digit < 0) break;
      code = code * base + char32_t(digit);
      if (code > kLastCodePoint) return 0;
    }
    if (at == digitsStart || at >= text.size() || text[at] != u';') return 0;
    AppendCodePoint(code, out);
    return at + 1;
  }
  for (const NamedEntity& entity : kNamedEntities) {
    const std::size_t length = entity.name.size() + 2;
    if (text.size() >= length && text[length - 1] == u';' &&
        EqualsIgnoreCase(text.substr(1, entity.name.size()), entity.name)) {
      out.push_back(entity.character);
      return length;
    }
  }
  return 0;
}

}  // namespace

std::size_t DecodeXmlEntities(WStringView raw, WString& out) {
  std::size_t done = 0;
  for (std::size_t amp = raw.find(u'&'); amp != WStringView::npos; amp = raw.find(u'&', done)) {
    out.append(raw.substr(done, amp - done));
    const std::size_t length = DecodeReference(raw.substr(amp), out);
    if (length == 0) return amp;
    done = amp + length;
  }
  out.append(raw.substr(done));
  return kEntitiesDecoded;
}

void AppendXmlEscaped(WStringView text, WString& out) {
  std::size_t done = 0;
  for (std::size_t at = 0; at < text.size(); ++at) {
    const NamedEntity* entity = EntityFor(text[at]);
    if (!entity) continue;
    out.append(text.substr(done, at - done));
    out.push_back(u'&');
    out.append(entity->name);
    out.push_back(u';');
    done = at + 1;
  }
  out.append(text.substr(done));
}

}  // namespace NScrivolt
