#include "engine/param_order.h"

#include <algorithm>

#include "engine/param.h"

namespace NScrivolt {

namespace {

// Compares two texts as their lower-cased forms would compare, without
// making those forms.
bool LessIgnoringCase(WStringView a, WStringView b) {
  const std::size_t common = std::min(a.size(), b.size());
  for (std::size_t i = 0; i < common; ++i) {
    const WChar x = LowerAscii(a[i]);
    const WChar y = LowerAscii(b[i]);
    if (x != y) return x < y;
  }
  return a.size() < b.size();
}

}  // namespace

void OrderParams(std::vector<CParam*>& nodes, ParamOrder order, bool descending) {
  switch (order) {
    case ParamOrder::ByNumber:
      break;
    case ParamOrder::ByName:
      // Keys are unique among siblings: no ties to keep stable.
      std::sort(nodes.begin(), nodes.end(), [](const CParam* a, const CParam* b) {
        return a->GetId().key < b->GetId().key;
      });
      break;
    case ParamOrder::ByValue:
      std::stable_sort(nodes.begin(), nodes.end(), [](const CParam* a, const CParam* b) {
        return LessIgnoringCase(a->GetValue(), b->GetValue());
      });
      break;
  }
  if (descending) std::reverse(nodes.begin(), nodes.end());
}

}  // namespace NScrivolt
