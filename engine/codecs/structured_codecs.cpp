#include "engine/codecs/structured_codecs.h"

#include <utility>

#include "engine/codecs/csv_scanner.h"
#include "engine/codecs/text_codecs.h"

namespace NScrivolt {

namespace {

void AppendField(CParam& record, WStringView value) { record.AppendNumbered()->SetValue(value); }

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

// Hands each piece of `text` between two separators to `piece`, in order,
// empty pieces included: one more piece than separators.
template <class PieceSink>
void ForEachPiece(WStringView text, WChar separator, PieceSink&& piece) {
  std::size_t begin = 0;
  for (std::size_t end = text.find(separator); end != WStringView::npos; end = text.find(separator, begin)) {
    piece(text.substr(begin, end - begin));
    begin = end + 1;
  }
  piece(text.substr(begin));
}

// Reads the record at `at` into `record`, a numbered child per field, in
// order; returns the place where it ended. `value` is room for one field,
// reused from field to field.
std::size_t DecodeCsvRecord(const CCsvFieldScanner& scanner, std::size_t at, CParam& record, WString& value) {
  for (;;) {
    at = scanner.ReadField(at, value);
    AppendField(record, value);
    if (scanner.EndsRecord(at)) return at;
    ++at;
  }
}

}  // namespace

void DecodeUrlParams(WStringView text, CParam& target) {
  ForEachPiece(text, u'&', [&target](WStringView piece) {
    CParam& param = *target.AppendNumbered();
    const std::size_t equals = piece.find(u'=');
    param.GetChildByName(u"Name", true)->SetValue(piece.substr(0, equals));
    const WStringView value = equals == WStringView::npos ? WStringView() : piece.substr(equals + 1);
    param.GetChildByName(u"Value", true)->SetValue(value);
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
  WString value;
  DecodeCsvRecord(CCsvFieldScanner(text), 0, target, value);
}

// Records mostly have as many fields as the one before them: each gets room
// for that many at once.
void DecodeCsvLines(WStringView text, CParam& target, CDecodedText* owner) {
  const CCsvFieldScanner scanner(text);
  std::size_t at = 0;
  std::size_t fields = 0;
  WString value;
  while (at < text.size()) {
    CParam& record = *target.AppendNumbered();
    if (fields != 0) record.ReserveChildren(fields);
    at = SkipLineBreak(text, DecodeCsvRecord(scanner, at, record, value));
    fields = record.Count();
    if (owner != nullptr) owner->ReadUpTo(at);
  }
}

WString EncodeCsvLine(const CParam& source) { return JoinFields(source, CsvFieldEncode, u","); }

WString EncodeCsvLines(const CParam& source) { return JoinRecords(source, EncodeCsvLine); }

void DecodeTsvLine(WStringView text, CParam& target) {
  ForEachPiece(text, u'\t', [&target](WStringView field) { AppendField(target, field); });
}

void DecodeTsvLines(WStringView text, CParam& target, CDecodedText* owner) {
  std::size_t begin = 0;
  for (;;) {
    std::size_t end = begin;
    while (end < text.size() && text[end] != u'\r' && text[end] != u'\n') ++end;
    DecodeTsvLine(text.substr(begin, end - begin), *target.AppendNumbered());
    if (end == text.size()) return;
    begin = SkipLineBreak(text, end);
    if (owner != nullptr) owner->ReadUpTo(begin);
  }
}

WString EncodeTsvLine(const CParam& source) { return JoinFields(source, TsvFieldEncode, u"\t"); }

WString EncodeTsvLines(const CParam& source) { return JoinRecords(source, EncodeTsvLine); }

}  // namespace NScrivolt
