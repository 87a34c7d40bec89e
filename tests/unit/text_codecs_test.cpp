#include <gtest/gtest.h>

#include "engine/codecs/text_codecs.h"
#include "text/base/utf8.h"

namespace NScrivolt {
namespace {

using Conversion = WString (*)(WStringView);

struct ConversionCase {
  const char* name;
  Conversion convert;
  const WChar* text;
  const WChar* expected;
};

// The corners the end-to-end cases leave out: units at the ends of the URL
// and RTF ranges, controls, and texts that a wrong step order would change.
const ConversionCase kCases[] = {
    {"xml decode leaves other references", XmlDecode, u"&#65;&nbsp;&AMP;", u"&#65;&nbsp;&AMP;"},
    {"url encode passes units from 256 up", UrlEncode, u"\u03b1\u0100\uffff", u"\u03b1\u0100\uffff"},
    {"url encode controls and high latin", UrlEncode, u"\u0001\t\r\n\u007f\u0080\u00ff", u"%01%09%0d%0a\u007f%80%ff"},
    {"url decode either case, no rescan", UrlDecode, u"%2F%2f%2541%4", u"//%41%4"},
    {"csv encode line ends", CsvFieldEncode, u"a\rb\nc", u"\"a\rb\nc\""},
    {"rtf encode signed 16-bit", RtfEncode, u"\u7fff\u8000\uffff\u0080\u007f",
     u"{\\uc1\\u32767?}{\\uc1\\u-32768?}{\\uc1\\u-1?}{\\uc1\\u128?}\u007f"},
    {"rtf encode keeps line ends", RtfEncode, u"a\r\nb", u"a\r\nb"},
    {"rtf decode order", RtfDecode, u"\\\\{", u"\\{"},
};

TEST(TextCodecs, EachConversionAsItsTableSays) {
  for (const ConversionCase& c : kCases) {
    EXPECT_EQ(WideToUtf8(c.convert(c.text)), WideToUtf8(c.expected)) << c.name;
  }
}

struct RoundTrip {
  const char* name;
  Conversion encode;
  Conversion decode;
};

const RoundTrip kRoundTrips[] = {
    {"xml", XmlEncode, XmlDecode},          {"html", HtmlEncode, HtmlDecode},
    {"url", UrlEncode, UrlDecode},          {"csv", CsvFieldEncode, CsvFieldDecode},
    {"rtf", RtfEncode, RtfDecode},          {"scrivoltscript", ScriptMarkersEncode, ScriptMarkersDecode},
    {"scrivoltliteral", LiteralEncode, LiteralDecode},
};

// Texts made to trip the step order: entities, markers, quotes and escapes
// written out as text, next to what they stand for. (RTF groups do not
// decode, so the RTF sample stays below 128.)
const WChar* const kSamples[] = {
    u"", u"&amp;lt; &lt; <& \"'", u"<#<# #>#> <#>#", u"\"\" \"", u"\\{ \\\\} {\\", u"%41 %%2541 a b", u" ,\r\n\t",
};

TEST(TextCodecs, UrlCarriesTheNulUnit) {
  const WString nul(1, u'\0');
  EXPECT_EQ(UrlEncode(nul), u"%00");
  EXPECT_EQ(UrlDecode(u"%00"), nul);
}

TEST(TextCodecs, DecodingGivesBackTheEncodedText) {
  for (const RoundTrip& r : kRoundTrips) {
    for (const WChar* sample : kSamples) {
      EXPECT_EQ(WideToUtf8(r.decode(r.encode(sample))), WideToUtf8(sample)) << r.name;
    }
  }
}

}  // namespace
}  // namespace NScrivolt
