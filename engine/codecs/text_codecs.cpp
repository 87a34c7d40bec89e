#include "engine/codecs/text_codecs.h"

#include <array>
#include <cstdint>
#include <initializer_list>

#include "text/digit_set.h"
#include "xml/xml_entities.h"

namespace NScrivolt {

namespace {

struct ReplaceStep {
  WStringView from;
  WStringView to;
};

// Runs replace-all steps one after the other over the whole text.
WString ReplaceSteps(WStringView text, std::initializer_list<ReplaceStep> steps) {
  WString result(text);
  for (const ReplaceStep& step : steps) {
    if (result.find(step.from) != WString::npos) result = ReplaceAll(result, step.from, step.to);
  }
  return result;
}

bool Contains(WStringView text, WChar c) { return text.find(c) != WStringView::npos; }

}  // namespace

// One pass gives the same text as the five steps: no entity holds a
// character that a later step replaces.
WString XmlEncode(WStringView text) {
  WString result;
  result.reserve(text.size());
  AppendXmlEscaped(text, result);
  return result;
}

WString XmlDecode(WStringView text) {
  return ReplaceSteps(text,
                      {{u"&lt;", u"<"}, {u"&gt;", u">"}, {u"&quot;", u"\""}, {u"&apos;", u"'"}, {u"&amp;", u"&"}});
}

namespace {

// The entity HTML encoding writes for a unit below 0x100; empty for one it
// copies.
constexpr std::array<WStringView, 256> MakeHtmlEntities() {
  std::array<WStringView, 256> entities{};
  entities[u'&'] = u"&amp;";
  entities[u'<'] = u"&lt;";
  entities[u'>'] = u"&gt;";
  entities[u'"'] = u"&quot;";
  return entities;
}

constexpr std::array<WStringView, 256> kHtmlEntities = MakeHtmlEntities();

// Room for a block of output units and the longest entity after it.
constexpr std::size_t kNarrowBlockUnits = 256;
constexpr std::size_t kLongestEntity = 6;

}  // namespace

// One pass, for the same reason as XmlEncode.
void AppendHtmlEncoded(WStringView text, WString& output) {
  std::size_t plainFrom = 0;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] >= kHtmlEntities.size()) continue;
    const WStringView entity = kHtmlEntities[text[i]];
    if (entity.empty()) continue;
    output.append(text, plainFrom, i - plainFrom);
    output += entity;
    plainFrom = i + 1;
  }
  output.append(text, plainFrom, WStringView::npos);
}

// The units are widened and encoded in one pass into a local block, which
// goes to `output` whenever it is nearly full: no widened copy of the text
// is made first.
void AppendHtmlEncoded(const unsigned char* units, std::size_t count, WString& output) {
  WChar block[kNarrowBlockUnits + kLongestEntity];
  std::size_t filled = 0;
  for (std::size_t i = 0; i < count; ++i) {
    const WStringView entity = kHtmlEntities[units[i]];
    if (entity.empty()) {
      block[filled++] = units[i];
    } else {
      entity.copy(block + filled, entity.size());
      filled += entity.size();
    }
    if (filled >= kNarrowBlockUnits) {
      output.append(block, filled);
      filled = 0;
    }
  }
  output.append(block, filled);
}

WString HtmlEncode(WStringView text) {
  WString result;
  result.reserve(text.size());
  AppendHtmlEncoded(text, result);
  return result;
}

WString HtmlDecode(WStringView text) {
  return ReplaceSteps(text, {{u"&lt;", u"<"}, {u"&gt;", u">"}, {u"&quot;", u"\""}, {u"&amp;", u"&"}});
}

namespace {

constexpr std::array<bool, 256> MakePercentTable() {
  std::array<bool, 256> table{};
  for (int c = 0; c <= 32; ++c) table[c] = true;
  for (int c = 34; c <= 38; ++c) table[c] = true;
  table[43] = table[44] = table[47] = true;
  for (int c = 58; c <= 64; ++c) table[c] = true;
  for (int c = 91; c <= 94; ++c) table[c] = true;
  table[96] = true;
  for (int c = 123; c <= 126; ++c) table[c] = true;
  for (int c = 128; c <= 255; ++c) table[c] = true;
  return table;
}

// The units that URL encoding writes in percent form.
constexpr std::array<bool, 256> kPercentEncoded = MakePercentTable();

constexpr WChar kLowerHexDigits[] = u"0123456789abcdef";

// A unit read as a signed 16-bit number: 32768 and up are negative.
std::int32_t SignedUnit(WChar c) { return c < 32768 ? std::int32_t(c) : std::int32_t(c) - 65536; }

}  // namespace

WString UrlEncode(WStringView text) {
  WString result;
  result.reserve(text.size());
  for (WChar c : text) {
    if (c < 256 && kPercentEncoded[c]) {
      result += u'%';
      result += kLowerHexDigits[c >> 4];
      result += kLowerHexDigits[c & 15];
    } else {
      result += c;
    }
  }
  return result;
}

WString UrlDecode(WStringView text) {
  WString result;
  result.reserve(text.size());
  const CDigitSet& hex = HexDigits();
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] == u'%' && i + 2 < text.size() && hex.ValueOf(text[i + 1]) >= 0 && hex.ValueOf(text[i + 2]) >= 0) {
      result += WChar(hex.ValueOf(text[i + 1]) * 16 + hex.ValueOf(text[i + 2]));
      i += 2;
    } else {
      result += text[i];
    }
  }
  return result;
}

WString CsvFieldEncode(WStringView text) {
  const bool hasQuote = Contains(text, u'"');
  const bool needsQuotes = hasQuote || Contains(text, u',') || Contains(text, u'\r') || Contains(text, u'\n') ||
                           (!text.empty() && (IsBlank(text.front()) || IsBlank(text.back())));
  WString field = hasQuote ? ReplaceAll(text, u"\"", u"\"\"") : WString(text);
  return needsQuotes ? u"\"" + field + u"\"" : field;
}

WString CsvFieldDecode(WStringView text) {
  if (text.size() < 2 || text.front() != u'"' || text.back() != u'"') return WString(text);
  return ReplaceAll(text.substr(1, text.size() - 2), u"\"\"", u"\"");
}

WString TsvFieldEncode(WStringView text) { return ReplaceAll(text, u"\t", u"        "); }

WString TsvFieldDecode(WStringView text) { return WString(text); }

// One pass gives the same text as the steps: no step looks for what an
// earlier one inserts, and the braces and backslashes of the groups come from
// the last step, so neither form escapes them.
WString RtfEncode(WStringView text) {
  WString result;
  result.reserve(text.size());
  for (WChar c : text) {
    if (c == u'\\' || c == u'{' || c == u'}') {
      result += u'\\';
      result += c;
    } else if (c > 127) {
      result += u"{\\uc1\\u";
      result += IntegerToText(SignedUnit(c));
      result += u"?}";
    } else {
      result += c;
    }
  }
  return result;
}

WString RtfDecode(WStringView text) {
  return ReplaceSteps(text, {{u"\\{", u"{"}, {u"\\}", u"}"}, {u"\\\\", u"\\"}});
}

WString ScriptMarkersEncode(WStringView text) { return ReplaceSteps(text, {{u"<#", u"<#<#"}, {u"#>", u"#>#>"}}); }

WString ScriptMarkersDecode(WStringView text) { return ReplaceSteps(text, {{u"<#<#", u"<#"}, {u"#>#>", u"#>"}}); }

WString LiteralEncode(WStringView text) { return ReplaceAll(text, u"\"", u"\"\""); }

WString LiteralDecode(WStringView text) { return ReplaceAll(text, u"\"\"", u"\""); }

}  // namespace NScrivolt
