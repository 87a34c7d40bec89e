// CSharedNames: the names of a decoded document's members, each held once.
//
// A JSON array of a million objects with the same seven keys would otherwise
// give every member node an id of its own, with the name and its key as
// texts of their own. A decoder asks this table for each member name and
// gives the member node the shared id it returns. The table keeps at most
// kMaxNames names; a name beyond them gets an id of its own, so a document of
// ever new keys costs no more than it did.
#pragma once

#include <cstddef>
#include <unordered_map>

#include "engine/params/param_id.h"
#include "text/base/wide_string.h"

namespace NScrivolt {

class CSharedNames {
 public:
  static constexpr std::size_t kMaxNames = 4096;

  // The id of a named node with this display name.
  CParamIdShare For(const WString& name);

 private:
  std::unordered_map<WString, CParamIdShare> names_;
};

}  // namespace NScrivolt
