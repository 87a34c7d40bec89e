#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "engine/functions/function.h"
#include "engine/syntax/parser.h"
#include "text/base/utf8.h"
#include "text/text.h"

namespace NScrivolt {
namespace {

// A base with one argument, as the condition and "orderby" bases are.
class CTestBase : public CFunction {
 public:
  const CArgumentTable& Arguments() const override {
    static const CArgumentTable table{Single(u"shared", &CTestBase::shared_)};
    return table;
  }
  ArgumentSlot shared_ = nullptr;
};

// Every kind of row: single, two choices sharing a slot, repeatable, kept.
class CTestFunction : public CTestBase {
 public:
  const CArgumentTable& Arguments() const override {
    static const CArgumentTable table(CTestBase::Arguments(), {
        Single(u"one", &CTestFunction::one_),
        Choice(u"left", &CTestFunction::side_, &CTestFunction::choice_, 1),
        Choice(u"right", &CTestFunction::side_, &CTestFunction::choice_, 2),
        Repeatable(u"many", &CTestFunction::many_),
        Kept(u"body", &CTestFunction::body_),
    });
    return table;
  }
  ArgumentSlot one_ = nullptr;
  ArgumentSlot side_ = nullptr;
  int choice_ = 0;
  ArgumentList many_;
  CParsePartRef body_;
};

// Binds each argument of the call written in `source`; the result codes in
// written order.
std::vector<int> BindAll(CParser& parser, const char* source, CTestFunction& function) {
  EXPECT_EQ(parser.Parse(Utf8ToWide(source), u"test").str(), u"");
  const CParsePart& call = *parser.GetRoot()->Children().front();
  std::vector<int> codes;
  for (const CParsePartRef& argument : call.Children()) {
    codes.push_back(function.AcceptArgument(ToLowerAscii(argument->Name()), argument));
  }
  return codes;
}

TEST(ArgumentTable, ReportsEachWrittenArgument) {
  struct Case {
    const char* source;
    std::vector<int> codes;
  };
  const Case cases[] = {
      {"<# f One: \"a\" shared: \"b\" #>", {kArgumentAccepted, kArgumentAccepted}},
      {"<# f one: \"a\" one: \"b\" #>", {kArgumentAccepted, kArgumentGivenTwice}},
      {"<# f shared shared #>", {kArgumentAccepted, kArgumentGivenTwice}},
      {"<# f left right #>", {kArgumentAccepted, kArgumentGivenTwice}},
      {"<# f many many many #>", {kArgumentAccepted, kArgumentAccepted, kArgumentAccepted}},
      {"<# f body: (x) body: (y) #>", {kArgumentAccepted, kArgumentGivenTwice}},
      {"<# f other one #>", {kArgumentUnknown, kArgumentAccepted}},
  };
  for (const Case& c : cases) {
    CParser parser;
    CTestFunction function;
    EXPECT_EQ(BindAll(parser, c.source, function), c.codes) << c.source;
  }
}

TEST(ArgumentTable, BindsPartsWhereTheRowsSay) {
  CParser parser;
  CTestFunction function;
  BindAll(parser, "<# f many: \"1\" right shared body: (x) one many: \"2\" #>", function);
  const CParsePart& call = *parser.GetRoot()->Children().front();
  EXPECT_EQ(function.shared_, call.Children()[2].Get());
  EXPECT_EQ(function.one_, call.Children()[4].Get());
  EXPECT_EQ(function.side_, call.Children()[1].Get());
  EXPECT_EQ(function.choice_, 2);
  ASSERT_EQ(function.many_.size(), 2u);
  EXPECT_EQ(function.many_[0]->Value(), u"1");
  EXPECT_EQ(function.many_[1]->Value(), u"2");
  EXPECT_EQ(function.body_.Get(), call.Children()[3].Get());
}

TEST(ArgumentTable, RefusedChoiceKeepsTheFirst) {
  CParser parser;
  CTestFunction function;
  BindAll(parser, "<# f left right #>", function);
  EXPECT_EQ(function.choice_, 1);
}

TEST(ArgumentTable, BaseFunctionTakesNoArgument) {
  CParser parser;
  ASSERT_EQ(parser.Parse(u"<# f x #>", u"test").str(), u"");
  CFunction function;
  EXPECT_EQ(function.AcceptArgument(u"x", parser.GetRoot()->Children().front()->Children().front()),
            kArgumentUnknown);
}

}  // namespace
}  // namespace NScrivolt
