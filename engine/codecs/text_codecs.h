// The text-to-text conversions of encode and decode: XML and HTML entities,
// URL percent forms, CSV and TSV fields, RTF escapes, and the doubling of
// script markers and of quotes that protects text inside templates.
//
// Most directions are a fixed series of replace-all steps, each run over the
// whole text in turn and never searching a replacement again; the order of
// the steps matters (decoding "&amp;lt;" from XML gives "&lt;"). None of
// them can fail, and each takes time linear in the length of the text.
#pragma once

#include <cstddef>

#include "text/base/wide_string.h"

namespace NScrivolt {

// "&", "<", ">", '"' and "'" to their entities, and back ("&amp;" last).
WString XmlEncode(WStringView text);
WString XmlDecode(WStringView text);

// As XML, except that the apostrophe and "&apos;" are left alone.
WString HtmlEncode(WStringView text);
// HtmlEncode appending to `output`: the plain runs go over in one piece.
void AppendHtmlEncoded(WStringView text, WString& output);
// The same for a text whose units are all below 0x100, held one byte each.
void AppendHtmlEncoded(const unsigned char* units, std::size_t count, WString& output);
WString HtmlDecode(WStringView text);

// Each unit that is a control, the space, or one of "\"#$%&+,/:;<=>?@[\]^`{|}~",
// and each unit from 128 to 255, becomes "%" and two lower-case hexadecimal
// digits; every other unit, 256 and up included, is copied. No UTF-8 step.
WString UrlEncode(WStringView text);
// "%" and two hexadecimal digits (either case) become that unit; any other
// "%" stays. "+" stays "+".
WString UrlDecode(WStringView text);

// Quotes are doubled, and the field is put in quotes when it held a quote, a
// comma, a CR or an LF, or begins or ends with a space or a tab.
WString CsvFieldEncode(WStringView text);
// A text of two or more units between quotes loses them and has each pair of
// quotes made one; any other text is returned as it is.
WString CsvFieldDecode(WStringView text);

// Each tab becomes 8 spaces. Decoding returns the text as it is.
WString TsvFieldEncode(WStringView text);
WString TsvFieldDecode(WStringView text);

// "\", "{" and "}" escaped with "\", then each unit above 127 written as the
// group "{\uc1\uN?}" with N its value as a signed 16-bit number.
WString RtfEncode(WStringView text);
// "\{", "\}" and "\\" made "{", "}" and "\" again; groups stay as they are.
WString RtfDecode(WStringView text);

// "<#" doubled, then "#>" doubled; and undoubled in the same order.
WString ScriptMarkersEncode(WStringView text);
WString ScriptMarkersDecode(WStringView text);

// '"' doubled, and '""' made '"' again.
WString LiteralEncode(WStringView text);
WString LiteralDecode(WStringView text);

}  // namespace NScrivolt
