#include "engine/codecs/structured_codecs.h"

#include <utility>

#include "engine/codecs/csv_scanner.h"
#include "engine/text_algorithms.h"
#include "engine/codecs/text_codecs.h"

namespace NScrivolt {

namespace {

void AppendField(CParam& record, WString&& value) { record.AppendNumbered()->SetValue(std::move(value)); }

// The children's values, each converted, joined by `separator`.
WString JoinFields(const CParam& record, WString (*convert)(WStringView), WStringView separator) {
  WString text;
  bool first = true;
  for (const CParam* field : record.ListChildren()) {
    if (!first) text += separator;
    text += convert(field->GetValue());
    first = false;
  }
  return text;
}

// The children, each encoded as a line, joined by CR LF.
WString JoinRecords(const CParam& source, WString (*encodeLine)(const CParam&)) {
  WString text;
  bool first = true;
  for (const CParam* record : source.ListChildren()) {
    if (!first) text += u"\r\n";
    text += encodeLine(*record);
    first = false;
  }
  return text;
}

// The place behind one line break at `at`: CR LF, LF or CR; `at` itself when
// there is none.
std::size_t SkipLineBreak(WStringView text, std::size_t at) {
  if (text.substr(at, 2) == u"\r\n") return at + 2;
  if (at < text.size() && (text[at] == u'\r' || text[at] == u'\n')) return at + 1;
  return at;
}

}  // namespace

void DecodeUrlParams(WStringView text, CParam& target) {
  SplitText(text, u"&", true, [&target](WStringView piece) {
    CParam& param = *target.AppendNumbered();
    const std::size_t equals = piece.find(u'=');
    param.GetChildByName(u"Name", true)->SetValue(WString(piece.substr(0, equals)));
    const WStringView value = equals == WStringView::npos ? WStringView() : piece.substr(equals + 1);
    param.GetChildByName(u"Value", true)->SetValue(WString(value));
  });
}

WString EncodeUrlParams(const CParam& source) {
  WString text;
  bool first = true;
  for (const CParam* param : source.ListChildren()) {
    if (!first) text += u'&';
    text += UrlEncode(param->GetChildValue(u"name"));
    text += u'=';
    text += UrlEncode(param->GetChildValue(u"value"));
    first = false;
  }
  return text;
}

void DecodeCsvLine(WStringView text, CParam& target) {
  ReadCsvRecord(text, [&target](WString&& field) { AppendField(target, std::move(field)); });
}

void DecodeCsvLines(WStringView text, CParam& target) {
  std::size_t at = 0;
  while (at < text.size()) {
    CParam& record = *target.AppendNumbered();
    at += ReadCsvRecord(text.substr(at), [&record](WString&& field) { AppendField(record, std::move(field)); });
    at = SkipLineBreak(text, at);
  }
}

WString EncodeCsvLine(const CParam& source) { return JoinFields(source, CsvFieldEncode, u","); }

WString EncodeCsvLines(const CParam& source) { return JoinRecords(source, EncodeCsvLine); }

void DecodeTsvLine(WStringView text, CParam& target) {
  SplitText(text, u"\t", true, [&target](WStringView field) { AppendField(target, WString(field)); });
}

void DecodeTsvLines(WStringView text, CParam& target) {
  std::size_t begin = 0;
  for (;;) {
    std::size_t end = begin;
    while (end < text.size() && text[end] != u'\r' && text[end] != u'\n') ++end;
    DecodeTsvLine(text.substr(begin, end - begin), *target.AppendNumbered());
    if (end == text.size()) return;
    begin = SkipLineBreak(text, end);
  }
}

WString EncodeTsvLine(const CParam& source) { return JoinFields(source, TsvFieldEncode, u"\t"); }

WString EncodeTsvLines(const CParam& source) { return JoinRecords(source, EncodeTsvLine); }

}  // namespace NScrivolt
