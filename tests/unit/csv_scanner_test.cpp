#include <gtest/gtest.h>

#include <vector>

#include "engine/codecs/csv_scanner.h"
#include "text/base/utf8.h"

namespace NScrivolt {
namespace {

using Fields = std::vector<WString>;

struct RecordCase {
  const char* name;
  const WChar* text;
  Fields fields;
  std::size_t consumed;
};

const RecordCase kRecordCases[] = {
    {"plain", u"a,b,c", {u"a", u"b", u"c"}, 5},
    {"empty text", u"", {u""}, 0},
    {"blanks only", u" \t ", {u""}, 3},
    {"empty fields", u",,", {u"", u"", u""}, 2},
    {"trailing comma", u"a,", {u"a", u""}, 2},
    {"leading blanks dropped", u"  a,\tb", {u"a", u"b"}, 6},
    {"trailing blanks dropped", u"a  ,b\t", {u"a", u"b"}, 6},
    {"inner blanks kept", u"a  b ,c", {u"a  b", u"c"}, 7},
    {"blanks before a line end", u"a  \r\nb", {u"a"}, 3},
    {"LF ends the record", u"a,b\nc", {u"a", u"b"}, 3},
    {"CR ends the record", u"a\rb", {u"a"}, 1},
    {"line end at field start", u"a,\nb", {u"a", u""}, 2},
    {"quote inside unquoted text", u"a\"b,c", {u"a\"b", u"c"}, 5},
    {"quoted keeps blanks, commas and line ends", u"\" a,\r\nb \"", {u" a,\r\nb "}, 9},
    {"doubled quote", u"\"a\"\"b\"", {u"a\"b"}, 6},
    {"closing quote then blanks then comma", u"\"a\"  ,b", {u"a", u"b"}, 7},
    {"closing quote then blanks then end", u"\"a\" \t", {u"a"}, 5},
    {"closing quote then blanks then line end", u"\"a\"  \nx", {u"a"}, 5},
    {"quote then blanks then text stays quoted", u"\"a\"  b,c\",d", {u"a\"  b,c", u"d"}, 11},
    {"unclosed quote takes the rest", u"\"abc,\r\ndef", {u"abc,\r\ndef"}, 10},
    {"unclosed after doubled quote", u"a,\"b\"\"", {u"a", u"b\""}, 6},
    {"lone quote", u"\"", {u""}, 1},
    {"empty quoted", u"\"\",\"\"", {u"", u""}, 5},
    {"units above ASCII", u"\u00e9,\u4e2d", {u"\u00e9", u"\u4e2d"}, 3},
};

TEST(CsvScanner, ReadsOneRecord) {
  for (const RecordCase& c : kRecordCases) {
    Fields fields;
    const std::size_t consumed = ReadCsvRecord(c.text, [&fields](WString&& field) { fields.push_back(field); });
    EXPECT_EQ(consumed, c.consumed) << c.name;
    ASSERT_EQ(fields.size(), c.fields.size()) << c.name;
    for (std::size_t i = 0; i < fields.size(); ++i) {
      EXPECT_EQ(WideToUtf8(fields[i]), WideToUtf8(c.fields[i])) << c.name << ", field " << i + 1;
    }
  }
}

}  // namespace
}  // namespace NScrivolt
