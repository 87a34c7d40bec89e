#include "app/languages/language_names.h"

#include <gtest/gtest.h>

namespace NScrivolt {
namespace {

TEST(LanguageNamesTest, ParsesEntriesAndSkipsMalformedOnes) {
  const struct {
    const char16_t* list;
    LanguageNames expected;
  } cases[] = {
      {u"EN:English~NL:Engels", {{u"EN", u"English"}, {u"NL", u"Engels"}}},
      {u"nl:Nederlands~en:Dutch", {{u"NL", u"Nederlands"}, {u"EN", u"Dutch"}}},
      {u"EN:English~EN:Anglais", {{u"EN", u"English"}}},  // the first entry wins
      {u"EN:English~", {{u"EN", u"English"}}},            // trailing separator
      {u"EN:English~NL~DE:Englisch", {{u"EN", u"English"}, {u"DE", u"Englisch"}}},
      {u"FR:", {{u"FR", u""}}},
      {u"", {}},
      {u"~~", {}},
      {u"EN:a~b~c", {{u"EN", u"a"}}},
  };
  for (const auto& testCase : cases) EXPECT_EQ(ParseLanguageNames(testCase.list), testCase.expected);
}

TEST(LanguageNamesTest, DisplayNames) {
  const LanguageNames english = ParseLanguageNames(u"EN:English~NL:Engels");
  const LanguageNames dutch = ParseLanguageNames(u"NL:Nederlands~EN:Dutch");
  const LanguageNames unnamed = ParseLanguageNames(u"");
  const LanguageNames foreignOnly = ParseLanguageNames(u"EN:Frisian");
  const struct {
    const char16_t* own;
    const LanguageNames* names;
    const char16_t* display;
    bool withNative;
    const char16_t* expected;
  } cases[] = {
      {u"EN", &english, u"EN", true, u"English"},
      {u"EN", &english, u"en", true, u"English"},
      {u"EN", &english, u"NL", true, u"Engels (English)"},
      {u"EN", &english, u"NL", false, u"Engels"},
      {u"NL", &dutch, u"EN", true, u"Dutch (Nederlands)"},
      {u"NL", &dutch, u"nl", true, u"Nederlands"},
      {u"NL", &dutch, u"DE", true, u"Nederlands"},  // no German name: the own name alone
      {u"NL", &dutch, u"DE", false, u"<unknown>"},
      {u"FY", &unnamed, u"EN", true, u"<unknown>"},
      {u"FY", &foreignOnly, u"NL", true, u"<unknown>"},
      {u"FY", &foreignOnly, u"EN", true, u"Frisian"},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(LanguageDisplayName(c.own, *c.names, c.display, c.withNative), WString(c.expected))
        << std::string(c.own, c.own + 2);
  }
}

}  // namespace
}  // namespace NScrivolt
