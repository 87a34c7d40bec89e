#include <gtest/gtest.h>

#include "engine/codecs/structured_codecs.h"
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

// Line breaks in every arrangement; the end-to-end cases cover the fields.
const DecodeCase kDecodeCases[] = {
    {"csvlines LF CR is two breaks", DecodeCsvLines, u"a\n\rb", "{{\"a\"} {\"\"} {\"b\"}}"},
    {"csvlines empty line", DecodeCsvLines, u"a\r\n\r\nb", "{{\"a\"} {\"\"} {\"b\"}}"},
    {"csvlines unclosed quote", DecodeCsvLines, u"a\n\"b\nc", "{{\"a\"} {\"b\nc\"}}"},
    {"tsvline keeps line ends", DecodeTsvLine, u"a\r\nb", "{\"a\r\nb\"}"},
    {"tsvlines LF CR is two breaks", DecodeTsvLines, u"a\n\rb", "{{\"a\"} {\"\"} {\"b\"}}"},
};

TEST(StructuredCodecs, DecodeIntoTheirLayouts) {
  for (const DecodeCase& c : kDecodeCases) {
    CParam target;
    c.decode(c.text, target);
    EXPECT_EQ(Layout(target), c.layout) << c.name;
  }
}

// A source parameter from a list of records, each a list of field values.
CParam Records(std::initializer_list<std::initializer_list<const WChar*>> records) {
  CParam source;
  for (const auto& fields : records) {
    CParam& record = *source.AppendNumbered();
    for (const WChar* field : fields) record.AppendNumbered()->SetValue(field);
  }
  return source;
}

TEST(StructuredCodecs, CsvLinesReadBackWhatTheyWrite) {
  const CParam source = Records({{u"a", u" b ", u""}, {u"x\"y", u"1,2", u"line\r\nbreak"}, {u"\t", u"\"\""}});
  CParam decoded;
  DecodeCsvLines(EncodeCsvLines(source), decoded);
  EXPECT_EQ(Layout(decoded), Layout(source));
}

// Decoding a text that is given back while it is read gives the tree that
// reading it whole gives: what is given back is never read again.
TEST(StructuredCodecs, LinesDecodedWhileTheTextIsGivenBack) {
  struct Case {
    const char* name;
    void (*decode)(WStringView, CParam&, CDecodedText*);
    const WChar* record;
  };
  const Case cases[] = {
      {"csvlines", DecodeCsvLines, u"12345,\"quoted, with \"\"marks\"\"\",  plain text \r\n"},
      {"tsvlines", DecodeTsvLines, u"12345\tfield two\tlast field\r\n"},
  };
  for (const Case& c : cases) {
    WString text;
    while (text.size() < 3 * CDecodedText::kReleaseUnits) text += c.record;
    text += u"end";
    CParam whole;
    c.decode(text, whole, nullptr);
    CParam released;
    CDecodedText owner(text);
    c.decode(owner.View(), released, &owner);
    EXPECT_EQ(released.Count(), whole.Count()) << c.name;
    EXPECT_EQ(Layout(released), Layout(whole)) << c.name;
  }
}

}  // namespace
}  // namespace NScrivolt
