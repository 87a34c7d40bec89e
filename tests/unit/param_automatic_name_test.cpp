#include <gtest/gtest.h>

#include <cstdint>
#include <vector>

#include "engine/params/param_automatic_name.h"
#include "unit/param_test_util.h"

namespace NScrivolt {
namespace {

TEST(AutomaticNumberIn, OnlyTheExactFormOfAnAutomaticKeyNamesANumber) {
  const std::pair<WStringView, std::uint64_t> cases[] = {
      {u"param1", 1},
      {u"param907", 907},
      {u"param18446744073709551615", 18446744073709551615ull},
      {u"param18446744073709551616", 0},  // beyond 64 bits
      {u"param99999999999999999999", 0},
      {u"param0", 0},
      {u"param07", 0},
      {u"param", 0},
      {u"param1x", 0},
      {u"param-1", 0},
      {u"Param1", 0},  // keys are lower case; this is no key
      {u"params1", 0},
      {u"", 0},
  };
  for (const auto& [key, number] : cases) EXPECT_EQ(AutomaticNumberIn(key), number) << WideToUtf8(key);
}

TEST(AutomaticKeyIn, WritesThePrefixAndEveryDigit) {
  AutomaticKeyBuffer buffer;
  EXPECT_EQ(AutomaticKeyIn(1, buffer), u"param1");
  EXPECT_EQ(AutomaticKeyIn(18446744073709551615ull, buffer), u"param18446744073709551615");
  EXPECT_EQ(AutomaticName(40), u"Param40");
  EXPECT_EQ(AutomaticKey(40), u"param40");
}

// A list this long is searched through its hash index: automatic keys are
// hashed from their numbers, given ones from their text, and both must meet.
TEST(ParamAutomaticNames, LongListsFindAutomaticAndGivenNamesAlike) {
  CParam node;
  std::vector<WString> names;
  for (int i = 0; i < 40; ++i) names.push_back(node.AppendNumbered()->GetId().name);
  const std::uint64_t next = AutomaticNumberIn(ToLowerAscii(node.AppendNumbered()->GetId().name)) + 1;
  node.GetChildByName(AutomaticName(next), true)->SetValue(u"given");
  node.GetChildByName(u"other", true)->SetValue(u"other");
  for (const WString& name : names) {
    const CParam* child = std::as_const(node).GetChildByName(ToLowerAscii(name));
    ASSERT_NE(child, nullptr) << WideToUtf8(name);
    EXPECT_EQ(child->GetId().name, name);
  }
  EXPECT_EQ(node.GetChildValue(AutomaticKey(next)), u"given");
  EXPECT_EQ(node.AppendNumbered()->GetId().name, AutomaticName(next + 1));

  node.DeleteParam(Ref(names[7]));
  node.DeleteParam(Ref(AutomaticName(next)));
  EXPECT_EQ(std::as_const(node).GetChildByName(names[7]), nullptr);
  EXPECT_EQ(std::as_const(node).GetChildByName(AutomaticName(next)), nullptr);
  EXPECT_NE(std::as_const(node).GetChildByName(names[8]), nullptr);
  EXPECT_EQ(node.Count(), 42u);
  EXPECT_TRUE(NumberedInOrder(node));
}

// A node keeps part of the bits of its number: a key naming a number that
// agrees with it in those bits only must not find it, in a short list
// (scanned) or a long one (indexed).
TEST(ParamAutomaticNames, AKeyBeyondTheBitsANodeKeepsFindsNothing) {
  for (const std::size_t length : {std::size_t(3), std::size_t(40)}) {
    CParam node;
    for (std::size_t i = 0; i < length; ++i) node.AppendNumbered();
    const std::uint64_t number = AutomaticNumberIn(ToLowerAscii(node.GetByNumber(1, false)->GetId().name));
    ASSERT_NE(number, 0u);
    for (const std::uint64_t above : {std::uint64_t(1) << 32, std::uint64_t(1) << 40, std::uint64_t(1) << 63}) {
      EXPECT_EQ(std::as_const(node).GetChildByName(AutomaticKey(number + above)), nullptr) << length << " " << above;
    }
    EXPECT_NE(std::as_const(node).GetChildByName(AutomaticKey(number)), nullptr) << length;
  }
}

}  // namespace
}  // namespace NScrivolt
