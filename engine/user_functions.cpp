#include "engine/user_functions.h"

#include <utility>

namespace NScrivolt {

void CUserFunctions::AddDefinition(const WString& lowerName, CUserFunctionRef definition) {
  table_[lowerName].push_back(std::move(definition));
}

CUserFunctionRef CUserFunctions::FindDefinition(const WString& lowerName) const {
  const auto found = table_.find(lowerName);
  if (found == table_.end() || found->second.empty()) return CUserFunctionRef();
  return found->second.back();
}

void CUserFunctions::RemoveDefinition(const WString& lowerName) {
  const auto found = table_.find(lowerName);
  if (found == table_.end()) return;
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
}

}  // namespace NScrivolt
