#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <string>
#include <utility>
#include <vector>

#include "engine/params/param_child_list.h"
#include "unit/param_test_util.h"

namespace NScrivolt {
namespace {

constexpr std::size_t kInline = CParamChildList::kInlineSlots;
constexpr std::size_t kScanLimit = CParamChildList::kLinearScanLimit;

// The lengths where a list changes how it keeps or finds its children: the
// last inline slot, the first heap one, the last scanned length, the first
// indexed one, and the index's first growth.
const std::size_t kBoundaryLengths[] = {
    1, kInline - 1, kInline, kInline + 1, kScanLimit, kScanLimit + 1, 2 * kScanLimit + 1, 40,
};

WString KeyName(std::size_t i) { return u"Key" + IntegerToText(std::int64_t(i)); }

// What a node's children must be: their names and values in number order.
using Model = std::vector<std::pair<WString, WString>>;

std::string Describe(const Model& model) {
  std::string text;
  for (const auto& [name, value] : model) {
    if (!text.empty()) text += ", ";
    text += WideToUtf8(name) + "=" + WideToUtf8(value);
  }
  return text;
}

// The node's children match the model in order, each is found by its name
// (in any case) and by its number, and the positions are up to date.
void ExpectMatches(const CParam& node, const Model& model, const std::string& what) {
  EXPECT_EQ(Children(node), Describe(model)) << what;
  EXPECT_EQ(node.Count(), model.size()) << what;
  EXPECT_TRUE(NumberedInOrder(node)) << what;
  for (std::size_t i = 0; i < model.size(); ++i) {
    const CParam* byName = node.GetChildByName(ToLowerAscii(model[i].first));
    ASSERT_NE(byName, nullptr) << what << ": " << WideToUtf8(model[i].first);
    EXPECT_EQ(byName, node.GetByNumber(std::int32_t(i))) << what << ": " << WideToUtf8(model[i].first);
  }
  EXPECT_EQ(node.GetChildByName(u"absent"), nullptr) << what;
}

CParam* AppendNamed(CParam& node, Model& model, std::size_t i) {
  CParam* child = node.GetChildByName(KeyName(i), true);
  child->SetValue(u"v" + IntegerToText(std::int64_t(i)));
  model.emplace_back(KeyName(i), child->GetValue());
  return child;
}

CParam WithNamedChildren(std::size_t count, Model& model) {
  CParam node;
  for (std::size_t i = 0; i < count; ++i) AppendNamed(node, model, i);
  return node;
}

void RemoveFromModel(Model& model, const WString& name) {
  model.erase(std::find_if(model.begin(), model.end(), [&](const auto& entry) { return entry.first == name; }));
}

// Lists built up to each boundary, by name, by number and mixed, keep every
// child in order and findable.
TEST(ParamChildList, GrowingAcrossTheInlineSlotsAndTheIndexKeepsEveryChild) {
  for (std::size_t length : kBoundaryLengths) {
    Model model;
    CParam node;
    for (std::size_t i = 0; i < length; ++i) {
      if (i % 3 == 2) {
        CParam* child = node.AppendNumbered();
        child->SetValue(u"n" + IntegerToText(std::int64_t(i)));
        model.emplace_back(child->GetId().name, child->GetValue());
      } else {
        AppendNamed(node, model, i);
      }
    }
    ExpectMatches(node, model, "length " + std::to_string(length));
  }
}

// Reserved room, more or less than what comes, changes nothing a reader sees.
TEST(ParamChildList, ReservedRoomOfAnySizeHoldsTheChildren) {
  const std::pair<std::size_t, std::size_t> cases[] = {
      {kInline, 2}, {kInline + 2, kInline + 2}, {kInline + 2, kInline + 5}, {3, 30}, {kScanLimit * 2, 1},
  };
  for (const auto& [reserved, length] : cases) {
    Model model;
    CParam node;
    node.ReserveChildren(reserved);
    for (std::size_t i = 0; i < length; ++i) AppendNamed(node, model, i);
    ExpectMatches(node, model, "reserved " + std::to_string(reserved) + ", length " + std::to_string(length));
  }
}

// Insertion by number at the front, the middle and the end, into lists whose
// inline slots are full or nearly so.
TEST(ParamChildList, InsertionByNumberShiftsTheLaterChildren) {
  for (std::size_t length : kBoundaryLengths) {
    for (std::size_t position : {std::size_t(0), length / 2, length}) {
      Model model;
      CParam node = WithNamedChildren(length, model);
      CParamId id;
      id.index = std::int32_t(position);
      CParam* inserted = node.AddChild(id);
      inserted->SetValue(u"inserted");
      model.insert(model.begin() + std::ptrdiff_t(position), {inserted->GetId().name, u"inserted"});
      ExpectMatches(node, model, "length " + std::to_string(length) + ", at " + std::to_string(position));
    }
  }
}

// Removals by name leave gaps that later accesses close; what remains is in
// order whichever side of a boundary the list ends up on, and the index of
// a list that shrank below the scan limit and grew again still finds the
// children added in between.
TEST(ParamChildList, RemovalGapsCloseAcrossTheBoundaries) {
  struct Case {
    std::size_t length;
    std::vector<std::size_t> removed;  // by key, in this order
    std::size_t addedAfter;
  };
  const Case cases[] = {
      {kInline, {0}, 0},
      {kInline + 1, {1, 3}, 0},
      {kInline + 1, {0, 1, 2, 3, 4}, kInline + 1},
      {kScanLimit + 1, {0}, 3},
      {kScanLimit + 1, {8, 7, 6, 5, 4, 3}, 0},
      {40, {39, 0, 17, 18, 19, 5}, 0},
      {40, {1, 3, 5, 7, 9, 11, 13, 15, 17, 19, 21, 23, 25, 27, 29, 31, 33, 35}, 10},
  };
  for (const Case& c : cases) {
    const std::string what = "length " + std::to_string(c.length) + ", " + std::to_string(c.removed.size()) +
                             " removed, " + std::to_string(c.addedAfter) + " added";
    Model model;
    CParam node = WithNamedChildren(c.length, model);
    node.GetChildByName(u"key0");  // a long list builds its index now
    for (std::size_t i : c.removed) {
      node.DeleteParam(Ref(KeyName(i)));
      RemoveFromModel(model, KeyName(i));
    }
    for (std::size_t i = 0; i < c.addedAfter; ++i) AppendNamed(node, model, 100 + i);
    ExpectMatches(node, model, what);
  }
}

// Removal by number from the front, the middle and the end.
TEST(ParamChildList, RemovalByNumberRenumbersTheRest) {
  for (std::size_t length : kBoundaryLengths) {
    for (std::size_t position : {std::size_t(0), length / 2, length - 1}) {
      Model model;
      CParam node = WithNamedChildren(length, model);
      node.DeleteParam(Ref(u"#" + IntegerToText(std::int64_t(position) + 1)));
      model.erase(model.begin() + std::ptrdiff_t(position));
      ExpectMatches(node, model, "length " + std::to_string(length) + ", #" + std::to_string(position + 1));
    }
  }
}

// Sorting rewrites the slots in place, inline or on the heap.
TEST(ParamChildList, SortingKeepsEveryChildFindable) {
  for (std::size_t length : kBoundaryLengths) {
    Model model;
    CParam node = WithNamedChildren(length, model);
    node.SortChildren(ParamOrder::ByName, true);
    std::sort(model.begin(), model.end(), [](const auto& a, const auto& b) {
      return ToLowerAscii(a.first) > ToLowerAscii(b.first);
    });
    ExpectMatches(node, model, "length " + std::to_string(length));
  }
}

// A copy shares the list; a change on either side clones it, with every
// child, and leaves the other side as it was.
TEST(ParamChildList, ChangingACopyClonesTheSharedList) {
  for (std::size_t length : kBoundaryLengths) {
    const std::string what = "length " + std::to_string(length);
    Model model;
    CParam original = WithNamedChildren(length, model);
    CParam copy(original);
    Model copied = model;
    AppendNamed(copy, copied, 1000);
    copy.DeleteParam(Ref(KeyName(0)));
    RemoveFromModel(copied, KeyName(0));
    copy.GetByNumber(0)->SetValue(u"changed");
    copied[0].second = u"changed";
    ExpectMatches(copy, copied, what + ", the copy");
    ExpectMatches(original, model, what + ", the original");
  }
}

// Keys of one length that begin and end alike share their short digest; in
// a list of any length each finds its own child, and a key of the automatic
// form finds both a numbered child and one given such a name.
TEST(ParamChildList, KeysWithTheSameDigestAreToldApartAtAnyLength) {
  for (std::size_t length : kBoundaryLengths) {
    const std::string what = "length " + std::to_string(length);
    CParam node;
    for (std::size_t i = 0; i < length; ++i) {
      node.GetChildByName(u"a" + WString(1, WChar(u'a' + i % 26)) + WString(i / 26, u'x') + u"b", true);
    }
    CParam* numbered = node.AppendNumbered();
    const WString numberedKey = ToLowerAscii(numbered->GetId().name);
    CParam* named = node.GetChildByName(u"Param1x", true);
    for (std::size_t i = 0; i < length; ++i) {
      const WString key = u"a" + WString(1, WChar(u'a' + i % 26)) + WString(i / 26, u'x') + u"b";
      const CParam* found = node.GetChildByName(key);
      ASSERT_NE(found, nullptr) << what << ": " << WideToUtf8(key);
      EXPECT_EQ(found->GetId().key, key) << what;
    }
    EXPECT_EQ(node.GetChildByName(numberedKey), numbered) << what;
    EXPECT_EQ(node.GetChildByName(u"param1x"), named) << what;
    EXPECT_EQ(node.GetChildByName(u"a_b"), nullptr) << what;
  }
}

// Names of the automatic form are found by their number: around 2^31, where
// the index stops telling them apart by the number alone, and beside
// numbered children whose numbers share the low bits of a larger one.
TEST(ParamChildList, NamesOfTheAutomaticFormAreEachFoundAsTheirOwn) {
  const WString givenKeys[] = {
      u"param2147483647", u"param2147483648", u"param4294967313", u"param017", u"param0", u"param",
  };
  for (std::size_t length : kBoundaryLengths) {
    const std::string what = "length " + std::to_string(length);
    CParam node;
    std::vector<std::pair<WString, const CParam*>> expected;
    for (std::size_t i = 0; i < length; ++i) {
      const CParam* numbered = node.AppendNumbered();
      expected.emplace_back(ToLowerAscii(numbered->GetId().name), numbered);
    }
    for (const WString& key : givenKeys) expected.emplace_back(key, node.GetChildByName(key, true));
    const CParam* low = node.GetChildByName(u"param17", true);
    expected.emplace_back(u"param17", low);
    for (const auto& [key, child] : expected) {
      EXPECT_EQ(node.GetChildByName(key), child) << what << ": " << WideToUtf8(key);
    }
    EXPECT_EQ(node.GetChildByName(u"param2147483646"), nullptr) << what;
    EXPECT_EQ(node.GetChildByName(u"param8589934609"), nullptr) << what;  // 2^33 + 17
  }
}

}  // namespace
}  // namespace NScrivolt
