#include "engine/params/param_path.h"

#include <utility>

namespace NScrivolt {

void CParamPath::Assign(CParamQualifier components) {
  components_ = std::move(components);
  keys_.clear();
  keys_.reserve(components_.size());
  for (const CParamId& component : components_) {
    keys_.emplace_back(component.numbered ? WStringView() : WStringView(component.key));
  }
}

}  // namespace NScrivolt
