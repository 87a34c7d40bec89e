#include <gtest/gtest.h>

#include <functional>
#include <string>

#include "text/base/utf8.h"
#include "text/error_text.h"

namespace NScrivolt {
namespace {

// Each case builds an error text step by step; what it holds at the end.
struct ErrorTextCase {
  const char* name;
  std::function<CErrorText()> build;
  std::string expected;
};

CErrorText Lines(std::initializer_list<WStringView> lines) {
  CErrorText errorText;
  for (WStringView line : lines) errorText.AddLine(line);
  return errorText;
}

TEST(ErrorText, BuildsLinesAndDetails) {
  const ErrorTextCase cases[] = {
      {"nothing added is success", [] { return CErrorText(); }, ""},
      {"a first line has no break before it", [] { return Lines({u"- one"}); }, "- one"},
      {"lines are joined by CR LF",
       [] {
         return Lines({u"- one", u"- two"});
       },
       "- one\r\n- two"},
      {"an empty line still makes a break after a line",
       [] {
         return Lines({u"- one", u""});
       },
       "- one\r\n"},
      {"a detail breaks even at the start",
       [] {
         CErrorText errorText;
         errorText.AddDetail(u"why");
         return errorText;
       },
       "\r\n- why"},
      {"a detail follows a line",
       [] {
         CErrorText errorText = Lines({u"- one"});
         errorText.AddDetail(u"why");
         return errorText;
       },
       "- one\r\n- why"},
      {"a message detail fills its placeholders",
       [] {
         return DetailError(MsgCannotReadFile, {{u"[FILEPATH]", u"a.txt"}});
       },
       "\r\n- Cannot read from file \"a.txt\""},
      {"a value that holds another placeholder is not filled again",
       [] {
         return DetailError(MsgNotRepresentable, {{u"[ENCODING]", u"ASCII"}, {u"[FILEPATH]", u"[ENCODING].txt"}});
       },
       "\r\n- Content to write to file \"[ENCODING].txt\" not representable in ASCII encoding"},
      {"details add up",
       [] {
         CErrorText errorText = DetailError(MsgCannotReadFile, {{u"[FILEPATH]", u"a"}});
         AddErrorDetail(errorText, MsgCannotReadFile, {{u"[FILEPATH]", u"b"}});
         return errorText;
       },
       "\r\n- Cannot read from file \"a\"\r\n- Cannot read from file \"b\""},
      {"a message alone is one line without a dash",
       [] {
         return MessageError(MsgCannotReadFile, {{u"[FILEPATH]", u"a.txt"}});
       },
       "Cannot read from file \"a.txt\""},
      {"a position is line and column", [] { return PositionError(MsgInvalidJson, 12, 3); },
       "\r\n- The specified JSON is invalid at line 12, column 3"},
  };
  for (const ErrorTextCase& c : cases) {
    const CErrorText errorText = c.build();
    EXPECT_EQ(WideToUtf8(errorText.str()), c.expected) << c.name;
    EXPECT_EQ(errorText.empty(), c.expected.empty()) << c.name;
  }
}

}  // namespace
}  // namespace NScrivolt
