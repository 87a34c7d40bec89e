#include "engine/params/param_order.h"

#include <algorithm>
#include <cstdint>

#include "engine/params/param.h"

namespace NScrivolt {

namespace {

// What a child is sorted by: its lower-cased text, compared by code unit.
// The texts are compared eight units at a time: a key packs the eight units
// at one depth of its text into two integers (a missing unit packs as 0) and
// tells how many of them the text has, or that it goes on behind them. Keys
// are sorted on that; a run of equal keys whose texts go on is then sorted
// again on the next eight units. So the nodes' texts are read once per
// depth, in order, and never while comparing, whose cost would otherwise grow
// with the cache misses of a large list.
struct SortKey {
  std::uint64_t first;   // units depth .. depth + 3
  std::uint64_t second;  // units depth + 4 .. depth + 7
  std::uint32_t length;  // units of the text from depth on, at most kGoesOn
  std::uint32_t index;   // the child's position in number order
};

constexpr std::size_t kUnitsPerKey = 8;
constexpr std::uint32_t kGoesOn = kUnitsPerKey + 1;

// A key is a WStringView, a value a CParamValue read in its compact form.
std::size_t UnitCount(WStringView text) { return text.size(); }
std::size_t UnitCount(const CParamValue& text) { return text.Size(); }
WChar UnitAt(WStringView text, std::size_t position) { return text[position]; }
WChar UnitAt(const CParamValue& text, std::size_t position) { return text.At(position); }

template <typename Text>
SortKey MakeKey(const Text& text, std::size_t depth, std::uint32_t index) {
  SortKey key{0, 0, 0, index};
  const std::size_t size = UnitCount(text);
  for (std::size_t k = 0; k < kUnitsPerKey; ++k) {
    const std::uint64_t unit = depth + k < size ? LowerAscii(UnitAt(text, depth + k)) : 0;
    std::uint64_t& half = k < kUnitsPerKey / 2 ? key.first : key.second;
    half = (half << 16) | unit;
  }
  key.length = std::uint32_t(std::min<std::size_t>(size - depth, kGoesOn));
  return key;
}

// The keys hold the same units, and so do their texts up to there.
bool SameUnits(const SortKey& a, const SortKey& b) {
  return a.first == b.first && a.second == b.second && a.length == b.length;
}

// Of two texts that match so far, the shorter one packs 0 where the longer
// one goes on, or has the smaller length: it comes first, as it must. Equal
// texts keep number order. A function object, so that the sort inlines it.
struct KeyLess {
  bool operator()(const SortKey& a, const SortKey& b) const {
    if (a.first != b.first) return a.first < b.first;
    if (a.second != b.second) return a.second < b.second;
    if (a.length != b.length) return a.length < b.length;
    return a.index < b.index;
  }
};

struct KeyRange {
  std::size_t begin;
  std::size_t end;
  std::size_t depth;  // of the units the keys in the range hold
};

// Ranges wait on a stack of their own, so no input can deepen the call stack.
template <typename TextOf>
void SortBy(std::vector<CParam*>& nodes, TextOf textOf) {
  std::vector<SortKey> keys;
  keys.reserve(nodes.size());
  for (CParam* node : nodes) keys.push_back(MakeKey(textOf(*node), 0, std::uint32_t(keys.size())));
  std::vector<KeyRange> pending{{0, keys.size(), 0}};
  while (!pending.empty()) {
    const KeyRange range = pending.back();
    pending.pop_back();
    std::sort(keys.begin() + std::ptrdiff_t(range.begin), keys.begin() + std::ptrdiff_t(range.end), KeyLess());
    for (std::size_t first = range.begin; first < range.end;) {
      std::size_t last = first + 1;
      while (last < range.end && SameUnits(keys[first], keys[last])) ++last;
      if (last - first > 1 && keys[first].length == kGoesOn) {
        const std::size_t depth = range.depth + kUnitsPerKey;
        for (std::size_t i = first; i < last; ++i) {
          keys[i] = MakeKey(textOf(*nodes[keys[i].index]), depth, keys[i].index);
        }
        pending.push_back({first, last, depth});
      }
      first = last;
    }
  }
  std::vector<CParam*> sorted;
  sorted.reserve(keys.size());
  for (const SortKey& key : keys) sorted.push_back(nodes[key.index]);
  nodes.swap(sorted);
}

// Keys are lower case already, so folding leaves their order by code unit.
WStringView KeyOf(const CParam& node) { return node.GetKey(); }
const CParamValue& ValueOf(const CParam& node) { return node.Value(); }

}  // namespace

void OrderParams(std::vector<CParam*>& nodes, ParamOrder order, bool descending) {
  switch (order) {
    case ParamOrder::ByNumber:
      break;
    case ParamOrder::ByName:
      SortBy(nodes, KeyOf);
      break;
    case ParamOrder::ByValue:
      SortBy(nodes, ValueOf);
      break;
  }
  if (descending) std::reverse(nodes.begin(), nodes.end());
}

}  // namespace NScrivolt
