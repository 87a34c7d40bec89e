// CParamId: the identity of a parameter among its parent's children, and one
// component of a parsed parameter reference.
#pragma once

#include <cstdint>
#include <vector>

#include "engine/ref_counter.h"
#include "text/base/wide_string.h"

namespace NScrivolt {

struct CParamId {
  // True when the node was made by number (appended or inserted at a
  // position) and so carries an automatic name; as a reference component,
  // true when it selects by number.
  bool numbered = true;
  // 0-based position among the parent's children; as a reference component,
  // the requested position, negative counting from the end.
  std::int32_t index = 0;
  // Display name as first given (or the automatic name "Param<n>").
  WString name;
  // The name with A-Z lower-cased: what lookups compare.
  WString key;
};

// An id held by several nodes at once; see CParam::AddChild.
using CParamIdShare = CRefCounter<CParamId*>;

// A reference such as "Customer.Lines.#2" as the list of its components,
// walked from a node by CParam::FindParam.
using CParamQualifier = std::vector<CParamId>;

}  // namespace NScrivolt
