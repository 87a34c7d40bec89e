#include <gtest/gtest.h>

#include <fstream>
#include <iterator>
#include <string>

#include "cmdline/switch_table.h"
#include "text/base/utf8.h"

namespace NScrivolt {
namespace {

std::string ManPageSource() {
  std::ifstream file(SCRIVOLT_SOURCE_DIR "/docs/scrivolt.1.scd");
  return std::string(std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>());
}

// Every switch has an entry of its own, its name in bold: "*/name*".
TEST(ManPage, DescribesEverySwitch) {
  const std::string page = ManPageSource();
  ASSERT_FALSE(page.empty());
  for (int kind = 0; kind < int(SwitchKind::Unknown); ++kind) {
    const std::string name = WideToUtf8(SwitchName(SwitchKind(kind)));
    EXPECT_NE(page.find("*/" + name + "*"), std::string::npos) << "/" << name;
  }
}

struct HintCase {
  const WChar* typed;
  const WChar* hint;
};

TEST(SwitchHint, NamesTheSwitchOneOrTwoLettersAway) {
  const HintCase cases[] = {
      {u"outencodng", u"outencoding"}, {u"OUTENCODNG", u"outencoding"}, {u"inn", u"in"},  {u"st", u"set"},
      {u"feedbakdestt", u"feedbackdest"}, {u"out", u""},            {u"xyz", u""},    {u"goo", u"go"},     {u"xy", u""},
      {u"commandfil", u"commandfile"},  {u"basepathxyz", u""},
  };
  for (const HintCase& c : cases) EXPECT_EQ(NearestSwitchName(c.typed), WStringView(c.hint)) << WideToUtf8(c.typed);
}

}  // namespace
}  // namespace NScrivolt
