#include <gtest/gtest.h>

#include "engine/codecs/shared_names.h"
#include "text/base/utf8.h"
#include "text/base/wide_string.h"

namespace NScrivolt {
namespace {

// A name asked for again gets the same id; names that differ only in case
// share a key but not an id; every id is a given name without a number.
TEST(SharedNames, OneIdPerSpelling) {
  CSharedNames names;
  const CParamIdShare first = names.For(u"Street");
  const struct {
    const char16_t* name;
    const char16_t* key;
    bool sameAsFirst;
  } cases[] = {
      {u"Street", u"street", true},
      {u"STREET", u"street", false},
      {u"street", u"street", false},
      {u"City", u"city", false},
      {u"", u"", false},
  };
  for (const auto& c : cases) {
    const CParamIdShare id = names.For(c.name);
    EXPECT_EQ(id->name, c.name);
    EXPECT_EQ(id->key, c.key);
    EXPECT_FALSE(id->numbered);
    EXPECT_EQ(id.Get() == first.Get(), c.sameAsFirst) << WideToUtf8(c.name);
  }
}

// Past the limit a name still gets a correct id, but one of its own: the
// table does not grow with a document of ever new keys.
TEST(SharedNames, NamesPastTheLimitGetIdsOfTheirOwn) {
  CSharedNames names;
  for (std::size_t i = 0; i < CSharedNames::kMaxNames; ++i) names.For(u"k" + IntegerToText(std::int64_t(i)));
  const CParamIdShare late = names.For(u"Late");
  EXPECT_EQ(late->key, u"late");
  EXPECT_EQ(late.UseCount(), 1u);
  EXPECT_NE(names.For(u"Late").Get(), late.Get());
  EXPECT_EQ(names.For(u"k7").UseCount(), 2u);
}

}  // namespace
}  // namespace NScrivolt
