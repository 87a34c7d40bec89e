#include <gtest/gtest.h>

#include "engine/structured_codecs.h"
#include "param_layout.h"

namespace NScrivolt {
namespace {

using Decoder = void (*)(WStringView, CParam&);

struct DecodeCase {
  const char* name;
  Decoder decode;
  const WChar* text;
  const char* layout;
};

const DecodeCase kDecodeCases[] = {
    // urlparams
    {"urlparams", DecodeUrlParams, u"a=1&b&c=x=y",
     "{{Name=\"a\" Value=\"1\"} {Name=\"b\" Value=\"\"} {Name=\"c\" Value=\"x=y\"}}"},
    {"urlparams empty", DecodeUrlParams, u"", "{{Name=\"\" Value=\"\"}}"},
    {"urlparams trailing &", DecodeUrlParams, u"a=%41&", "{{Name=\"a\" Value=\"%41\"} {Name=\"\" Value=\"\"}}"},
    // csvline
    {"csvline", DecodeCsvLine, u"a, \"b,c\" ,\"d\"\"e\",  ", "{\"a\" \"b,c\" \"d\"e\" \"\"}"},
    {"csvline reads the first line only", DecodeCsvLine, u"a,b\r\nc,d", "{\"a\" \"b\"}"},
    {"csvline of nothing", DecodeCsvLine, u"", "{\"\"}"},
    // csvlines
    {"csvlines CR LF", DecodeCsvLines, u"a,b\r\nc", "{{\"a\" \"b\"} {\"c\"}}"},
    {"csvlines LF", DecodeCsvLines, u"a\nb", "{{\"a\"} {\"b\"}}"},
    {"csvlines CR", DecodeCsvLines, u"a\rb", "{{\"a\"} {\"b\"}}"},
    {"csvlines LF CR is two breaks", DecodeCsvLines, u"a\n\rb", "{{\"a\"} {\"\"} {\"b\"}}"},
    {"csvlines empty line", DecodeCsvLines, u"a\r\n\r\nb", "{{\"a\"} {\"\"} {\"b\"}}"},
    {"csvlines trailing break adds nothing", DecodeCsvLines, u"a\r\n", "{{\"a\"}}"},
    {"csvlines of nothing", DecodeCsvLines, u"", "\"\""},
    {"csvlines line break inside quotes", DecodeCsvLines, u"\"a\r\nb\",c\nd", "{{\"a\r\nb\" \"c\"} {\"d\"}}"},
    {"csvlines unclosed quote", DecodeCsvLines, u"a\n\"b\nc", "{{\"a\"} {\"b\nc\"}}"},
    {"csvlines blank line", DecodeCsvLines, u"a\n  \nb", "{{\"a\"} {\"\"} {\"b\"}}"},
    // tsvline
    {"tsvline", DecodeTsvLine, u"a\t\"b\"\t", "{\"a\" \"\"b\"\" \"\"}"},
    {"tsvline of nothing", DecodeTsvLine, u"", "{\"\"}"},
    {"tsvline keeps line ends", DecodeTsvLine, u"a\r\nb", "{\"a\r\nb\"}"},
    // tsvlines
    {"tsvlines", DecodeTsvLines, u"a\tb\r\nc\nd\re", "{{\"a\" \"b\"} {\"c\"} {\"d\"} {\"e\"}}"},
    {"tsvlines trailing break", DecodeTsvLines, u"a\n", "{{\"a\"} {\"\"}}"},
    {"tsvlines LF CR is two breaks", DecodeTsvLines, u"a\n\rb", "{{\"a\"} {\"\"} {\"b\"}}"},
    {"tsvlines of nothing", DecodeTsvLines, u"", "{{\"\"}}"},
};

TEST(StructuredCodecs, DecodeIntoTheirLayouts) {
  for (const DecodeCase& c : kDecodeCases) {
    CParam target;
    c.decode(c.text, target);
    EXPECT_EQ(Layout(target), c.layout) << c.name;
  }
}

// A source parameter from a list of records, each a list of field values;
// a record with one field is also a field for the single-line encoders.
CParam Records(std::initializer_list<std::initializer_list<const WChar*>> records) {
  CParam source;
  for (const auto& fields : records) {
    CParam& record = *source.AppendNumbered();
    for (const WChar* field : fields) record.AppendNumbered()->SetValue(field);
  }
  return source;
}

CParam Fields(std::initializer_list<const WChar*> fields) {
  CParam source;
  for (const WChar* field : fields) source.AppendNumbered()->SetValue(field);
  return source;
}

TEST(StructuredCodecs, EncodeLines) {
  EXPECT_EQ(EncodeCsvLine(Fields({u"", u"b"})), u",b");
  EXPECT_EQ(EncodeCsvLine(Fields({u"a b", u" c", u"d,e", u"f\"g"})), u"a b,\" c\",\"d,e\",\"f\"\"g\"");
  EXPECT_EQ(EncodeCsvLine(Fields({})), u"");
  EXPECT_EQ(EncodeCsvLines(Records({{u"a", u"b"}, {u"c\r\n"}})), u"a,b\r\n\"c\r\n\"");
  EXPECT_EQ(EncodeTsvLine(Fields({u"", u"b"})), u"\tb");
  EXPECT_EQ(EncodeTsvLine(Fields({u"a\tb", u"c"})), u"a        b\tc");
  EXPECT_EQ(EncodeTsvLines(Records({{u"a", u"b"}, {u"c"}})), u"a\tb\r\nc");
  EXPECT_EQ(EncodeTsvLines(Records({})), u"");
}

TEST(StructuredCodecs, EncodeUrlParamsReadsNameAndValueIgnoringCase) {
  CParam source;
  CParam& first = *source.AppendNumbered();
  first.GetChildByName(u"NAME", true)->SetValue(u"a b");
  first.GetChildByName(u"Value", true)->SetValue(u"1&2=3");
  CParam& second = *source.AppendNumbered();
  second.GetChildByName(u"name", true)->SetValue(u"\u00e9");
  source.AppendNumbered();
  EXPECT_EQ(EncodeUrlParams(source), u"a%20b=1%262%3d3&%e9=&=");
}

TEST(StructuredCodecs, CsvLinesReadBackWhatTheyWrite) {
  const CParam source = Records({{u"a", u" b ", u""}, {u"x\"y", u"1,2", u"line\r\nbreak"}, {u"\t", u"\"\""}});
  CParam decoded;
  DecodeCsvLines(EncodeCsvLines(source), decoded);
  EXPECT_EQ(Layout(decoded), Layout(source));
}

}  // namespace
}  // namespace NScrivolt
