#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <utility>

#include "engine/params/param_name.h"
#include "text/base/utf8.h"
#include "unit/param_test_util.h"

namespace NScrivolt {
namespace {

// What a name reads as, in one line.
std::string Describe(const CParamName& name) {
  if (name.IsAutomatic()) return "automatic " + std::to_string(name.AutomaticNumber());
  if (name.Given() == nullptr) return "none";
  return "given " + WideToUtf8(name.Given()->name) + "/" + WideToUtf8(WString(name.GivenKey()));
}

// Each kind of name, and the same name after its id was written out: a copy
// reads as the original did before (a written-out automatic name is copied
// by its number alone), and the original's own id holds the expected text.
TEST(ParamName, CopiesAndOwnIdsOfEveryKind) {
  struct Case {
    const char* what;
    CParamName (*make)();
    const char* described;
    const char* ownName;
    const char* ownKey;
  };
  const Case cases[] = {
      {"none", [] { return CParamName(); }, "none", "", ""},
      {"given", [] { return CParamName(SharedName(u"Street", u"street")); }, "given Street/street", "Street", "street"},
      {"automatic",
       [] {
         CParamName name;
         name.SetAutomatic(17);
         return name;
       },
       "automatic 17", "Param17", "param17"},
      {"automatic beyond 32 bits",
       [] {
         CParamName name;
         name.SetAutomatic((std::uint64_t(1) << 40) - 1);
         return name;
       },
       "automatic 1099511627775", "Param1099511627775", "param1099511627775"},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.what);
    CParamName name = c.make();
    EXPECT_EQ(Describe(name), c.described);
    const CParamName before(name);
    const CParamId& own = name.OwnId();
    EXPECT_EQ(WideToUtf8(own.name), c.ownName);
    EXPECT_EQ(WideToUtf8(own.key), c.ownKey);
    EXPECT_EQ(&name.OwnId(), &own) << "the own id is kept";
    const CParamName after(name);
    EXPECT_EQ(Describe(before), c.described);
    if (name.IsAutomatic()) {
      EXPECT_EQ(Describe(name), c.described);
      EXPECT_EQ(Describe(after), c.described);
      EXPECT_EQ(after.Given(), nullptr);
    }
  }
}

TEST(ParamName, SharesAGivenIdUntilOneHolderTakesItsOwn) {
  const CParamIdShare id = SharedName(u"City", u"city");
  {
    CParamName first(id);
    const CParamName second(first);
    EXPECT_EQ(id.UseCount(), 3u);
    EXPECT_EQ(first.Given(), id.Get());
    EXPECT_EQ(second.Given(), id.Get());

    CParamId& own = first.OwnId();
    EXPECT_NE(&own, id.Get());
    EXPECT_EQ(id.UseCount(), 2u);
    own.name = u"Town";
    EXPECT_EQ(id->name, u"City");
    EXPECT_EQ(second.Given()->name, u"City");

    first.SetAutomatic(5);
    EXPECT_EQ(id.UseCount(), 2u);
    EXPECT_EQ(Describe(first), "automatic 5");
  }
  EXPECT_EQ(id.UseCount(), 1u);
}

TEST(ParamName, AnIdOfItsOwnIsNotCopiedAgain) {
  const CParamIdShare id = SharedName(u"Zip", u"zip");
  CParamName name(id);
  CParamId& own = name.OwnId();
  EXPECT_EQ(&name.OwnId(), &own);
  name.Reset();
  EXPECT_EQ(Describe(name), "none");
  EXPECT_EQ(id.UseCount(), 1u);
}

}  // namespace
}  // namespace NScrivolt
