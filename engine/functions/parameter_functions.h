// Script functions that create, change, inspect, sort and remove parameters.
#pragma once

#include "engine/functions/function.h"
#include "engine/functions/sort_order.h"
#include "text/error_text.h"

namespace NScrivolt {

// set param: P [to: V] — P becomes a copy of V (value and sub-parameters);
// without "to" P is emptied. No output.
class CFunctionSet : public CFunction {
 public:
  const CArgumentTable& Arguments() const override;
  CErrorText Execute(CProcessContext& context, WString& output) override;

 private:
  ArgumentSlot param_ = nullptr;
  ArgumentSlot to_ = nullptr;
};

// unset param: P — removes P when it exists. No output.
class CFunctionUnset : public CFunction {
 public:
  const CArgumentTable& Arguments() const override;
  CErrorText Execute(CProcessContext& context, WString& output) override;

 private:
  ArgumentSlot param_ = nullptr;
};

// use param: P [skipifmissing] — outputs the value of P.
class CFunctionUse : public CFunction {
 public:
  const CArgumentTable& Arguments() const override;
  CErrorText Execute(CProcessContext& context, WString& output) override;

 private:
  ArgumentSlot param_ = nullptr;
  ArgumentSlot skipIfMissing_ = nullptr;
};

// addsubparams param: P value: V [value: V ...] — appends one numbered
// sub-parameter per value, each a copy of its value. No output.
class CFunctionAddSubParams : public CFunction {
 public:
  const CArgumentTable& Arguments() const override;
  CErrorText Execute(CProcessContext& context, WString& output) override;

 private:
  ArgumentSlot param_ = nullptr;
  ArgumentList values_;
};

// setsubparams param: P [to: V ...] — P keeps its value and gets exactly the
// given sub-parameters, numbered in written order. No output.
class CFunctionSetSubParams : public CFunction {
 public:
  const CArgumentTable& Arguments() const override;
  CErrorText Execute(CProcessContext& context, WString& output) override;

 private:
  ArgumentSlot param_ = nullptr;
  ArgumentList tos_;
};

// unsetsubparams param: P — removes the sub-parameters of P, keeps its value.
class CFunctionUnsetSubParams : public CFunction {
 public:
  const CArgumentTable& Arguments() const override;
  CErrorText Execute(CProcessContext& context, WString& output) override;

 private:
  ArgumentSlot param_ = nullptr;
};

// subparamcount param: P — outputs the number of direct sub-parameters of P.
class CFunctionSubParamCount : public CFunction {
 public:
  const CArgumentTable& Arguments() const override;
  CErrorText Execute(CProcessContext& context, WString& output) override;

 private:
  ArgumentSlot param_ = nullptr;
};

// findsubparam param: P value: V [indextype: number|name] [recurse]
// [casesensitive] — outputs the path, relative to P, of the first
// sub-parameter whose value is V; all children of a node are tested before
// any of their descendants.
class CFunctionFindSubParam : public CFunction {
 public:
  const CArgumentTable& Arguments() const override;
  CErrorText Execute(CProcessContext& context, WString& output) override;

 private:
  ArgumentSlot param_ = nullptr;
  ArgumentSlot value_ = nullptr;
  ArgumentSlot indexType_ = nullptr;
  ArgumentSlot recurse_ = nullptr;
  ArgumentSlot caseSensitive_ = nullptr;
};

// sortsubparams param: P [orderby: O] [recurse] — reorders and renumbers the
// sub-parameters of P (and, with recurse, of every parameter below it).
class CFunctionSortSubParams : public CFunctionSortOrder {
 public:
  const CArgumentTable& Arguments() const override;
  CErrorText Execute(CProcessContext& context, WString& output) override;

 private:
  ArgumentSlot param_ = nullptr;
  ArgumentSlot recurse_ = nullptr;
};

// _writeparamtree param: P — outputs P and everything below it, one line per
// parameter, for inspecting a tree while writing a template.
class CFunction_WriteParamTree : public CFunction {
 public:
  const CArgumentTable& Arguments() const override;
  CErrorText Execute(CProcessContext& context, WString& output) override;

 private:
  ArgumentSlot param_ = nullptr;
};

}  // namespace NScrivolt
