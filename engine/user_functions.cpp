#include "engine/user_functions.h"

#include <utility>

namespace NScrivolt {

void CUserFunctions::Changed() {
  static std::uint64_t lastVersion = 0;
  version_ = ++lastVersion;
}

void CUserFunctions::AddDefinition(const WString& lowerName, CUserFunctionRef definition) {
  table_[lowerName].push_back(std::move(definition));
  Changed();
}

CUserFunctionRef CUserFunctions::FindDefinition(const WString& lowerName) const {
  const auto found = table_.find(lowerName);
  if (found == table_.end() || found->second.empty()) return CUserFunctionRef();
  return found->second.back();
}

void CUserFunctions::RemoveDefinition(const WString& lowerName) {
  const auto found = table_.find(lowerName);
  if (found == table_.end()) return;
  Changed();
  if (found->second.size() <= 1) {
    table_.erase(found);
  } else {
    found->second.erase(found->second.begin());
  }
}

const std::vector<CUserFunctionRef>* CUserFunctions::Definitions(const WString& lowerName) const {
  const auto found = table_.find(lowerName);
  return found != table_.end() ? &found->second : nullptr;
}

void CUserFunctions::SetDefinitions(const WString& lowerName, std::vector<CUserFunctionRef> definitions) {
  table_[lowerName] = std::move(definitions);
  Changed();
}

void CUserFunctions::Forget(const WString& lowerName) {
  table_.erase(lowerName);
  Changed();
}

}  // namespace NScrivolt
