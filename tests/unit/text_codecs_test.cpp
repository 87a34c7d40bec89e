#include <gtest/gtest.h>

#include "engine/text_codecs.h"
#include "text/utf8.h"

namespace NScrivolt {
namespace {

using Conversion = WString (*)(WStringView);

struct ConversionCase {
  const char* name;
  Conversion convert;
  const WChar* text;
  const WChar* expected;
};

const ConversionCase kCases[] = {
    // xml
    {"xml encode", XmlEncode, u"<a href=\"x\">Tom & Jerry's</a>",
     u"&lt;a href=&quot;x&quot;&gt;Tom &amp; Jerry&apos;s&lt;/a&gt;"},
    {"xml encode leaves entities' text alone", XmlEncode, u"&amp;", u"&amp;amp;"},
    {"xml decode", XmlDecode, u"&lt;a&gt; &quot;b&quot; &apos;c&apos; &amp;", u"<a> \"b\" 'c' &"},
    {"xml decode &amp; runs last", XmlDecode, u"&amp;lt;", u"&lt;"},
    {"xml decode leaves other references", XmlDecode, u"&#65;&nbsp;&AMP;", u"&#65;&nbsp;&AMP;"},
    // html
    {"html encode keeps the apostrophe", HtmlEncode, u"<'&\">", u"&lt;'&amp;&quot;&gt;"},
    {"html decode keeps &apos;", HtmlDecode, u"&lt;&apos;&amp;&quot;&gt;", u"<&apos;&\">"},
    {"html decode &amp; runs last", HtmlDecode, u"&amp;quot;", u"&quot;"},
    // url
    {"url encode", UrlEncode, u"a b/\u00e9", u"a%20b%2f%e9"},
    {"url encode passes units from 256 up", UrlEncode, u"\u03b1\u0100\uffff", u"\u03b1\u0100\uffff"},
    {"url encode percent ranges", UrlEncode, u"\"#$%&+,/:;<=>?@[\\]^`{|}~",
     u"%22%23%24%25%26%2b%2c%2f%3a%3b%3c%3d%3e%3f%40%5b%5c%5d%5e%60%7b%7c%7d%7e"},
    {"url encode copies", UrlEncode, u"!'()*-._\u007fAz09", u"!'()*-._\u007fAz09"},
    {"url encode controls and high latin", UrlEncode, u"\u0001\t\r\n\u0080\u00ff", u"%01%09%0d%0a%80%ff"},
    {"url decode", UrlDecode, u"a%20b%2F%e9", u"a b/\u00e9"},
    {"url decode keeps bad sequences", UrlDecode, u"%zz%41%4", u"%zzA%4"},
    {"url decode does not rescan", UrlDecode, u"%2541", u"%41"},
    {"url decode keeps plus", UrlDecode, u"a+b%", u"a+b%"},
    // csv
    {"csv encode plain", CsvFieldEncode, u"x", u"x"},
    {"csv encode empty", CsvFieldEncode, u"", u""},
    {"csv encode leading blank", CsvFieldEncode, u" x", u"\" x\""},
    {"csv encode trailing tab", CsvFieldEncode, u"x\t", u"\"x\t\""},
    {"csv encode inner blank", CsvFieldEncode, u"a b", u"a b"},
    {"csv encode comma", CsvFieldEncode, u"a,b", u"\"a,b\""},
    {"csv encode line ends", CsvFieldEncode, u"a\rb\nc", u"\"a\rb\nc\""},
    {"csv encode quotes", CsvFieldEncode, u"say \"hi\"", u"\"say \"\"hi\"\"\""},
    {"csv decode quoted", CsvFieldDecode, u"\"a \"\"b\"\"\"", u"a \"b\""},
    {"csv decode two quotes", CsvFieldDecode, u"\"\"", u""},
    {"csv decode one quote", CsvFieldDecode, u"\"", u"\""},
    {"csv decode half quoted", CsvFieldDecode, u"\"ab", u"\"ab"},
    {"csv decode keeps blanks around", CsvFieldDecode, u" \"a\" ", u" \"a\" "},
    {"csv decode unquoted pairs stay", CsvFieldDecode, u"a\"\"b", u"a\"\"b"},
    // tsv
    {"tsv encode", TsvFieldEncode, u"a\tb", u"a        b"},
    {"tsv decode unchanged", TsvFieldDecode, u"a        b\t", u"a        b\t"},
    // rtf
    {"rtf encode escapes", RtfEncode, u"\\{x}", u"\\\\\\{x\\}"},
    {"rtf encode brace, e-acute, brace", RtfEncode, u"{\u00e9}", u"\\{{\\uc1\\u233?}\\}"},
    {"rtf encode consecutive", RtfEncode, u"\u00e9\u00e9", u"{\\uc1\\u233?}{\\uc1\\u233?}"},
    {"rtf encode signed 16-bit", RtfEncode, u"\u7fff\u8000\uffff\u0080",
     u"{\\uc1\\u32767?}{\\uc1\\u-32768?}{\\uc1\\u-1?}{\\uc1\\u128?}"},
    {"rtf encode keeps controls", RtfEncode, u"a\r\n\u007f", u"a\r\n\u007f"},
    {"rtf decode", RtfDecode, u"\\{x\\}\\\\", u"{x}\\"},
    {"rtf decode leaves groups", RtfDecode, u"{\\uc1\\u233?}", u"{\\uc1\\u233?}"},
    {"rtf decode order", RtfDecode, u"\\\\{", u"\\{"},
    // scrivoltscript
    {"script encode", ScriptMarkersEncode, u"a<#b#>c", u"a<#<#b#>#>c"},
    {"script encode steps in order", ScriptMarkersEncode, u"<#>", u"<#<#>#>"},
    {"script decode", ScriptMarkersDecode, u"a<#<#b#>#>c<#", u"a<#b#>c<#"},
    // scrivoltliteral
    {"literal encode", LiteralEncode, u"say \"hi\"", u"say \"\"hi\"\""},
    {"literal decode", LiteralDecode, u"\"\"\"", u"\"\""},
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
