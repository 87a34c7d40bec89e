// Script functions that compute with text and whole numbers: changecase,
// count, replace, search, split, join, sub and sum. The text work itself is
// in engine/text_algorithms.h.
#pragma once

#include "engine/functions/function.h"
#include "engine/functions/sort_order.h"
#include "text/error_text.h"

namespace NScrivolt {

// changecase what: T to: "lower"|"upper" — T with A-Z or a-z converted.
class CFunctionChangeCase : public CFunction {
 public:
  const CArgumentTable& Arguments() const override;
  CErrorText Execute(CProcessContext& context, WString& output) override;

 private:
  ArgumentSlot what_ = nullptr;
  ArgumentSlot to_ = nullptr;
};

// count what: P in: T [casesensitive] — the number of occurrences of P in T.
class CFunctionCount : public CFunction {
 public:
  const CArgumentTable& Arguments() const override;
  CErrorText Execute(CProcessContext& context, WString& output) override;

 private:
  ArgumentSlot what_ = nullptr;
  ArgumentSlot in_ = nullptr;
  ArgumentSlot caseSensitive_ = nullptr;
};

// replace what: P [by: R] in: T [casesensitive] — T with each P replaced by R.
class CFunctionReplace : public CFunction {
 public:
  const CArgumentTable& Arguments() const override;
  CErrorText Execute(CProcessContext& context, WString& output) override;

 private:
  ArgumentSlot what_ = nullptr;
  ArgumentSlot by_ = nullptr;
  ArgumentSlot in_ = nullptr;
  ArgumentSlot caseSensitive_ = nullptr;
};

// search in: T for: P [start: N] [reverse] [casesensitive] — the 1-based
// position of P in T, 0 when not found.
class CFunctionSearch : public CFunction {
 public:
  const CArgumentTable& Arguments() const override;
  CErrorText Execute(CProcessContext& context, WString& output) override;

 private:
  ArgumentSlot in_ = nullptr;
  ArgumentSlot for_ = nullptr;
  ArgumentSlot start_ = nullptr;
  ArgumentSlot reverse_ = nullptr;
  ArgumentSlot caseSensitive_ = nullptr;
};

// split param: P what: T on: S [casesensitive] — the pieces of T cut at S
// become the numbered sub-parameters of P. No output.
class CFunctionSplit : public CFunction {
 public:
  const CArgumentTable& Arguments() const override;
  CErrorText Execute(CProcessContext& context, WString& output) override;

 private:
  ArgumentSlot param_ = nullptr;
  ArgumentSlot what_ = nullptr;
  ArgumentSlot on_ = nullptr;
  ArgumentSlot caseSensitive_ = nullptr;
};

// join param: P with: S [orderby: O] — the values of P's sub-parameters with
// S written before each one that follows some non-empty text.
class CFunctionJoin : public CFunctionSortOrder {
 public:
  const CArgumentTable& Arguments() const override;
  CErrorText Execute(CProcessContext& context, WString& output) override;

 private:
  ArgumentSlot param_ = nullptr;
  ArgumentSlot with_ = nullptr;
};

// sub start: N [end: M] from: T — the units of T from position N to M.
class CFunctionSub : public CFunction {
 public:
  const CArgumentTable& Arguments() const override;
  CErrorText Execute(CProcessContext& context, WString& output) override;

 private:
  ArgumentSlot start_ = nullptr;
  ArgumentSlot end_ = nullptr;
  ArgumentSlot from_ = nullptr;
};

// sum [value: N]... — the total of the values.
class CFunctionSum : public CFunction {
 public:
  const CArgumentTable& Arguments() const override;
  CErrorText Execute(CProcessContext& context, WString& output) override;

 private:
  ArgumentList values_;
};

}  // namespace NScrivolt
