#include <gtest/gtest.h>

#include <limits>

#include "text/digit_set.h"
#include "text/format.h"
#include "text/text.h"
#include "text/base/utf8.h"

namespace NScrivolt {
namespace {

struct ListedMessage {
  MessageId id;
  const WChar* text;
};

constexpr ListedMessage kListed[] = {
#define MESSAGE(id, name, text) {Msg##name, text},
#include "text/message_list.h"
#undef MESSAGE
};

// Every listed message loads through the program's own module with exactly
// its listed text; on Windows this checks the generated string table.
TEST(MessageTable, EveryMessageLoadsExactly) {
  for (const ListedMessage& m : kListed) {
    EXPECT_EQ(CText(m.id).str(), WString(m.text)) << "message " << m.id;
  }
}

TEST(MessageTable, UnknownIdGivesDefaultOrEmpty) {
  EXPECT_EQ(CText(MessageId(39999)).str(), u"");
  EXPECT_EQ(CText(MessageId(39999), u"fallback").str(), u"fallback");
}

struct ReplaceCase {
  const WChar* text;
  const WChar* placeholder;
  const WChar* value;
  bool firstOnly;
  const WChar* expected;
};

TEST(CTextReplace, FillsPlaceholdersWithoutExpandingInsertedValues) {
  const ReplaceCase cases[] = {
      {u"[X][X]", u"[X]", u"a[X]b", false, u"a[X]ba[X]b"},
      {u"[X][X]", u"[X]", u"a[X]b", true, u"a[X]b[X]"},
      {u"no placeholder", u"[X]", u"v", true, u"no placeholder"},
      {u"[x] is not [X]", u"[X]", u"v", true, u"[x] is not v"},
      {u"[X]", u"[X]", u"", true, u""},
  };
  for (const ReplaceCase& c : cases) {
    CText text(c.text);
    text.Replace(c.placeholder, WStringView(c.value), c.firstOnly);
    EXPECT_EQ(text.str(), WString(c.expected)) << "in " << WideToUtf8(c.text);
  }
}

TEST(CTextReplace, IntegerAndTextValues) {
  CText text(u"[N] and [T]");
  text.Replace(u"[N]", -7).Replace(u"[T]", CText(u"t"));
  EXPECT_EQ(text.str(), u"-7 and t");
  CText smallest(u"[N]");
  smallest.Replace(u"[N]", std::numeric_limits<std::int32_t>::min());
  EXPECT_EQ(smallest.str(), u"-2147483648");
}

TEST(CText, NullPointerGivesEmptyText) {
  const WChar* none = nullptr;
  EXPECT_TRUE(CText(none).empty());
}

TEST(FormatHex32, EightUpperCaseDigits) {
  EXPECT_EQ(FormatHex32(0), u"0x00000000");
  EXPECT_EQ(FormatHex32(255), u"0x000000FF");
  EXPECT_EQ(FormatHex32(0xDEADBEEF), u"0xDEADBEEF");
}

TEST(FormatHexAddress, AtLeastEightDigitsAndNoneCutOff) {
  EXPECT_EQ(FormatHexAddress(0), u"0x00000000");
  EXPECT_EQ(FormatHexAddress(0xFFFFFFFFu), u"0xFFFFFFFF");
  EXPECT_EQ(FormatHexAddress(0x100000000u), u"0x100000000");
  EXPECT_EQ(FormatHexAddress(0x7FF612345678u), u"0x7FF612345678");
  EXPECT_EQ(FormatHexAddress(0xFFFFFFFFFFFFFFFFu), u"0xFFFFFFFFFFFFFFFF");
}

TEST(FormatWindowsErrorText, CodeDashDescriptionOrDefault) {
  CText known(u"The error was: [ERROR]");
  FormatWindowsErrorText(known, u"[ERROR]", 5, CText(MsgUnknownErrorOccurred));
  EXPECT_EQ(known.str().rfind(u"The error was: 5 - ", 0), 0u);
  EXPECT_GT(known.str().size(), WString(u"The error was: 5 - ").size());
  EXPECT_EQ(known.str().find(u"an unknown error occurred"), WString::npos);

  CText unknown(u"[ERROR]");
  FormatWindowsErrorText(unknown, u"[ERROR]", 0xFFFFFFF0u, CText(MsgUnknownErrorOccurred));
  EXPECT_EQ(unknown.str(), u"4294967280 - an unknown error occurred");
}

TEST(ShellExecuteErrorMessageId, MapsEveryResult) {
  const std::pair<std::intptr_t, MessageId> cases[] = {
      {33, MsgShellNoError},          {1000, MsgShellNoError},     {0, MsgShellOutOfResources},
      {2, MsgShellFileNotFound},      {3, MsgShellPathNotFound},   {5, MsgShellAccessDenied},
      {8, MsgShellOutOfMemory},       {11, MsgShellBadFormat},     {26, MsgShellSharingViolation},
      {27, MsgShellAssociationIncomplete}, {28, MsgShellDdeTimeout}, {29, MsgShellDdeFailed},
      {30, MsgShellDdeBusy},          {31, MsgShellNoAssociation}, {32, MsgShellDllNotFound},
      {1, MsgShellUnknownError},      {4, MsgShellUnknownError},   {12, MsgShellUnknownError},
      {25, MsgShellUnknownError},     {-1, MsgShellUnknownError},
  };
  for (const auto& [result, id] : cases) EXPECT_EQ(ShellExecuteErrorMessageId(result), id) << result;
}

TEST(DigitSets, DecimalIsCaseSensitiveHexIsNot) {
  EXPECT_EQ(DecimalDigits().ValueOf(u'7'), 7);
  EXPECT_EQ(DecimalDigits().ValueOf(u'a'), -1);
  EXPECT_EQ(HexDigits().ValueOf(u'f'), 15);
  EXPECT_EQ(HexDigits().ValueOf(u'F'), 15);
  EXPECT_EQ(HexDigits().ValueOf(u'g'), -1);
}

TEST(ReadInteger, ReadsLikeWideTextToLong) {
  const std::pair<const WChar*, std::int32_t> cases[] = {
      {u"12abc", 12},         {u"abc", 0},          {u" -5", -5},           {u"\t+8", 8},
      {u"", 0},               {u"-", 0},            {u"- 5", 0},            {u"007", 7},
      {u"2147483647", 2147483647}, {u"2147483648", 2147483647},
      {u"-2147483648", std::numeric_limits<std::int32_t>::min()},
      {u"-99999999999999999999", std::numeric_limits<std::int32_t>::min()},
      {u"99999999999999999999", 2147483647},
  };
  for (const auto& [text, value] : cases) EXPECT_EQ(ReadInteger(text), value) << WideToUtf8(text);
}

TEST(ReplaceAll, NeverRescansReplacements) {
  EXPECT_EQ(ReplaceAll(u"banana", u"a", u"aa"), u"baanaanaa");
  EXPECT_EQ(ReplaceAll(u"<#<#<#", u"<#<#", u"<#"), u"<#<#");
  EXPECT_EQ(ReplaceAll(u"abc", u"", u"x"), u"abc");
}

}  // namespace
}  // namespace NScrivolt
