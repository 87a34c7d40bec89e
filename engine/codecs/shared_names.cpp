#include "engine/codecs/shared_names.h"

#include <utility>

#include "text/base/wide_string.h"

namespace NScrivolt {

namespace {

CParamIdShare NewId(const WString& name) {
  CParamId id;
  id.numbered = false;
  id.name = name;
  id.key = ToLowerAscii(name);
  return CParamIdShare::Make(std::move(id));
}

}  // namespace

CParamIdShare CSharedNames::For(const WString& name) {
  const auto found = names_.find(name);
  if (found != names_.end()) return found->second;
  CParamIdShare id = NewId(name);
  if (names_.size() < kMaxNames) names_.emplace(name, id);
  return id;
}

}  // namespace NScrivolt
