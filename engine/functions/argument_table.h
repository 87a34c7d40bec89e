// CArgumentTable: the written arguments a script function takes, and where
// each one is bound.
//
// A function lists its arguments once, as rows:
//
//   const CArgumentTable& CFunctionCount::Arguments() const {
//     static const CArgumentTable table{
//         Single(u"what", &CFunctionCount::what_),
//         Single(u"in", &CFunctionCount::in_),
//         Single(u"casesensitive", &CFunctionCount::caseSensitive_),
//     };
//     return table;
//   }
//
// A class that others build on (the condition of "if", the "orderby" of the
// sorting functions, the "fileencoding" of the file functions) has a table of
// its own, and a deriving class starts its table from it:
// `CArgumentTable table(CFunctionSortOrder::Arguments(), {...})`.
//
// Binding only records which parts were written; the function evaluates them
// in Execute. The rows point at members of the function class, so one table
// serves every call of the function.
#pragma once

#include <initializer_list>
#include <vector>

#include "engine/syntax/parse_part.h"
#include "text/base/wide_string.h"

namespace NScrivolt {

class CFunction;

// What binding one written argument gives; the call set-up reports the
// refusals with the argument's written name.
enum AcceptResult : int {
  kArgumentAccepted = 0,
  kArgumentUnknown = 1,     // reported as MsgUnknownArgument
  kArgumentGivenTwice = 3,  // reported as MsgArgumentOnlyOnce
};

// A single argument: the bound part, null while not given. The parse tree
// outlives every function object, so the slot does not own the part.
using ArgumentSlot = const CParsePart*;
// A repeatable argument: every written occurrence, in written order.
using ArgumentList = std::vector<CParsePartRef>;

// One argument of a function. Exactly one of `slot`, `list` and `kept` is set.
struct CArgumentRow {
  WStringView name;                          // lower-cased written name
  ArgumentSlot CFunction::*slot = nullptr;   // single: a second one is refused
  ArgumentList CFunction::*list = nullptr;   // repeatable: every one is kept
  CParsePartRef CFunction::*kept = nullptr;  // single, held beyond the call
  int CFunction::*choice = nullptr;          // when set, receives `choiceValue`
  int choiceValue = 0;

  int Bind(CFunction& function, const CParsePartRef& part) const;
};

class CArgumentTable {
 public:
  CArgumentTable(std::initializer_list<CArgumentRow> rows) : rows_(rows) {}
  // The rows of `base` followed by `rows`.
  CArgumentTable(const CArgumentTable& base, std::initializer_list<CArgumentRow> rows);

  // Binds the argument written as `name` (lower-cased) to `function`.
  int Bind(CFunction& function, WStringView name, const CParsePartRef& part) const;
  // The row of the argument written as `name` (lower-cased); null when the
  // function takes no argument of that name.
  const CArgumentRow* Find(WStringView name) const;

 private:
  std::vector<CArgumentRow> rows_;
};

// A single argument bound to `slot`.
template <class Function>
CArgumentRow Single(WStringView name, ArgumentSlot Function::*slot) {
  return CArgumentRow{name, static_cast<ArgumentSlot CFunction::*>(slot)};
}

// A single argument that also records which of several arguments sharing
// one slot was written: binding it sets `choice` to `value`.
template <class Function>
CArgumentRow Choice(WStringView name, ArgumentSlot Function::*slot, int Function::*choice, int value) {
  CArgumentRow row = Single(name, slot);
  row.choice = static_cast<int CFunction::*>(choice);
  row.choiceValue = value;
  return row;
}

// A repeatable argument appended to `list`.
template <class Function>
CArgumentRow Repeatable(WStringView name, ArgumentList Function::*list) {
  CArgumentRow row{name};
  row.list = static_cast<ArgumentList CFunction::*>(list);
  return row;
}

// A single argument whose part the function keeps after the call (a body
// that a definition holds on to).
template <class Function>
CArgumentRow Kept(WStringView name, CParsePartRef Function::*part) {
  CArgumentRow row{name};
  row.kept = static_cast<CParsePartRef CFunction::*>(part);
  return row;
}

}  // namespace NScrivolt
