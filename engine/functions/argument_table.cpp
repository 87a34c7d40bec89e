#include "engine/functions/argument_table.h"

#include "engine/functions/function.h"

namespace NScrivolt {

int CArgumentRow::Bind(CFunction& function, const CParsePartRef& part) const {
  if (list != nullptr) {
    (function.*list).push_back(part);
    return kArgumentAccepted;
  }
  if (kept != nullptr) {
    if (function.*kept) return kArgumentGivenTwice;
    function.*kept = part;
    return kArgumentAccepted;
  }
  if (function.*slot != nullptr) return kArgumentGivenTwice;
  function.*slot = part.Get();
  if (choice != nullptr) function.*choice = choiceValue;
  return kArgumentAccepted;
}

CArgumentTable::CArgumentTable(const CArgumentTable& base, std::initializer_list<CArgumentRow> rows)
    : rows_(base.rows_) {
  rows_.insert(rows_.end(), rows);
}

int CArgumentTable::Bind(CFunction& function, WStringView name, const CParsePartRef& part) const {
  const CArgumentRow* row = Find(name);
  return row != nullptr ? row->Bind(function, part) : kArgumentUnknown;
}

const CArgumentRow* CArgumentTable::Find(WStringView name) const {
  for (const CArgumentRow& row : rows_) {
    if (row.name == name) return &row;
  }
  return nullptr;
}

}  // namespace NScrivolt
