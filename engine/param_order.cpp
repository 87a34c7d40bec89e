#include "engine/param_order.h"

#include <algorithm>
#include <cstdint>

#include "engine/param.h"

namespace NScrivolt {

namespace {

// What a child is sorted by: its lower-cased text, compared by code unit.
// The first four lower-cased units are packed into one integer, so most
// comparisons settle without reaching into the nodes.
struct SortKey {
  std::uint64_t head;
  WStringView text;
  CParam* node;
};

std::uint64_t Head(WStringView text) {
  std::uint64_t head = 0;
  for (std::size_t i = 0; i < 4; ++i) head = (head << 16) | (i < text.size() ? LowerAscii(text[i]) : 0);
  return head;
}

// Equal heads mean equal first units (a missing unit packs as 0, and a
// shorter text then also compares first), so the rest decides.
bool LessIgnoringCase(const SortKey& a, const SortKey& b) {
  if (a.head != b.head) return a.head < b.head;
  const std::size_t common = std::min(a.text.size(), b.text.size());
  for (std::size_t i = 4; i < common; ++i) {
    const WChar x = LowerAscii(a.text[i]);
    const WChar y = LowerAscii(b.text[i]);
    if (x != y) return x < y;
  }
  return a.text.size() < b.text.size();
}

void SortBy(std::vector<CParam*>& nodes, WStringView (*textOf)(const CParam&)) {
  std::vector<SortKey> keys;
  keys.reserve(nodes.size());
  for (CParam* node : nodes) {
    const WStringView text = textOf(*node);
    keys.push_back({Head(text), text, node});
  }
  std::stable_sort(keys.begin(), keys.end(), LessIgnoringCase);
  for (std::size_t i = 0; i < keys.size(); ++i) nodes[i] = keys[i].node;
}

// Keys are lower case already, so folding leaves their order by code unit.
WStringView KeyOf(const CParam& node) { return node.GetId().key; }
WStringView ValueOf(const CParam& node) { return node.GetValue(); }

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
