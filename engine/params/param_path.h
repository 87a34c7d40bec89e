// CParamPath: a parameter reference parsed once and walked again and again
// (a reference written as a constant in a template), with the lookup of
// each named component prepared beside it: the key's tag, the number of an
// automatic key and the key's hash are computed once, so a walk only
// compares. Nothing about the tree is kept: every walk finds each node anew.
#pragma once

#include <cstddef>
#include <vector>

#include "engine/params/param_id.h"
#include "engine/params/param_key_index.h"

namespace NScrivolt {

class CParamPath {
 public:
  CParamPath() = default;
  // The prepared keys view the components' keys, which must stay in place.
  CParamPath(const CParamPath&) = delete;
  CParamPath& operator=(const CParamPath&) = delete;

  // Takes the components and prepares their keys.
  void Assign(CParamQualifier components);

  const CParamQualifier& Components() const { return components_; }
  // The prepared key of the component at `position`; that of a numbered
  // component is the empty key's and unused.
  const CPreparedKey& Key(std::size_t position) const { return keys_[position]; }

 private:
  CParamQualifier components_;
  std::vector<CPreparedKey> keys_;
};

}  // namespace NScrivolt
