// HTML encoding of a text held one byte a unit (a narrow parameter value)
// and of the same text in UTF-16: the narrow encoder writes through a local
// block, so the cases put escaped characters where that block fills up and
// where a value is long.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "engine/codecs/text_codecs.h"
#include "repeated_text.h"
#include "template_cases.h"
#include "text/base/utf8.h"

namespace NScrivolt {
namespace {

using Testing::Repeat;

struct HtmlCase {
  const char* name;
  WString text;      // every unit below 0x100
  WString expected;
};

std::vector<HtmlCase> Cases() {
  const WString a255 = Repeat(u"a", 255);
  const WString a256 = Repeat(u"a", 256);
  const WString a4096 = Repeat(u"a", 4096);
  return {
      {"empty", u"", u""},
      {"no escapes", u"plain text, 42", u"plain text, 42"},
      {"every escaped character", u"&<>\"", u"&amp;&lt;&gt;&quot;"},
      {"the apostrophe stays", u"it's", u"it's"},
      {"Latin-1 and controls stay", u"\u00e9\u00ff\u0080\u0001\t\r\n", u"\u00e9\u00ff\u0080\u0001\t\r\n"},
      {"the nul unit stays", WString(u"a\0b", 3), WString(u"a\0b", 3)},
      {"escapes next to each other", u"<<&&>>\"\"", u"&lt;&lt;&amp;&amp;&gt;&gt;&quot;&quot;"},
      {"an entity that ends a full block", a255 + u"\"", a255 + u"&quot;"},
      {"an entity after a full block", a256 + u"&", a256 + u"&amp;"},
      {"entities across the end of a block", a255 + u"\"\"\"z", a255 + u"&quot;&quot;&quot;z"},
      {"only entities, several blocks", Repeat(u"\"", 200), Repeat(u"&quot;", 200)},
      {"escapes around a long piece's edges", a4096 + u"<" + a4096 + u">", a4096 + u"&lt;" + a4096 + u"&gt;"},
  };
}

std::string Narrowed(WStringView text) {
  std::string units;
  for (WChar unit : text) units += static_cast<char>(static_cast<unsigned char>(unit));
  return units;
}

TEST(HtmlEncode, NarrowUnitsAppendAsTheirTable) {
  for (const HtmlCase& c : Cases()) {
    const std::string units = Narrowed(c.text);
    WString output = u"before:";
    AppendHtmlEncoded(reinterpret_cast<const unsigned char*>(units.data()), units.size(), output);
    EXPECT_EQ(WideToUtf8(output), WideToUtf8(u"before:" + c.expected)) << c.name;
  }
}

TEST(HtmlEncode, WideTextAppendsAsTheNarrowTable) {
  for (const HtmlCase& c : Cases()) {
    WString output = u"before:";
    AppendHtmlEncoded(c.text, output);
    EXPECT_EQ(WideToUtf8(output), WideToUtf8(u"before:" + c.expected)) << c.name;
    EXPECT_EQ(WideToUtf8(HtmlEncode(c.text)), WideToUtf8(c.expected)) << c.name;
  }
}

// A parameter's value reaches the encoder in the form it is kept in: one
// byte a unit below 0x100 (short inside the node, long in a block of its
// own), two bytes a unit once a unit of 0x100 or more is in it.
const TemplateCase kValueCases[] = {
    {"a short narrow value", u"<# set param: \"V\" to: (#>a<b&<#); encode what: V for: \"html\" #>", "a&lt;b&amp;", ""},
    {"a long narrow value with every escape",
     u"<# set param: \"V\" to: (#><a href=\"x\">&'\u00e9</a><#); encode what: V for: \"html\" #>",
     "&lt;a href=&quot;x&quot;&gt;&amp;'\u00e9&lt;/a&gt;", ""},
    {"a wide value with every escape",
     u"<# set param: \"V\" to: (#><a href=\"x\">&'\u20ac</a><#); encode what: V for: \"html\" #>",
     "&lt;a href=&quot;x&quot;&gt;&amp;'\u20ac&lt;/a&gt;", ""},
    {"the same reference narrow, then wide, then narrow",
     u"<# setsubparams param: \"L\" to: \"<1>\" to: \"<\u20ac>\" to: (#>&\u00e9\"<#) #>"
     u"<# foreach in: \"L\" value: \"V\" do: (encode what: V for: \"html\") #>",
     "&lt;1&gt;&lt;\u20ac&gt;&amp;\u00e9&quot;", ""},
};

TEST(HtmlEncode, ValuesInEveryFormEncodeAlike) { ExpectTemplateCases(kValueCases); }

// A value built up to several blocks of the narrow encoder and past a
// piece of 4096 units, an entity straddling each block's end.
TEST(HtmlEncode, ALongNarrowValueEncodesWhole) {
  const TemplateRun run = RunTemplate(
      u"<# set param: \"V\" to: \"\"; for value: \"i\" from: \"1\" to: \"1500\" do: (set param: \"V\" to: (#><# use param: \"V\" #>ab\"<#));"
      u" encode what: V for: \"html\" #>");
  EXPECT_EQ(WideToUtf8(run.errors), "");
  EXPECT_EQ(WideToUtf8(run.output), WideToUtf8(Repeat(u"ab&quot;", 1500)));
}

}  // namespace
}  // namespace NScrivolt
