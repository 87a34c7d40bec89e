#include "engine/functions/parameter_functions.h"
#include "engine/syntax/error_report.h"

#include <cstdint>
#include <utility>
#include <vector>

#include "engine/functions/function_factory.h"
#include "engine/functions/param_tree_walks.h"
#include "engine/process_context.h"

namespace NScrivolt {

namespace {

// Evaluates the "param" argument every function here requires.
CErrorText EvaluateTarget(const CFunction& function, ArgumentSlot param, CProcessContext& context,
                          CParamQualifier& qualifier, WString* text = nullptr) {
  return EvaluateQualifier(function, param, u"Param", context, WhenAbsent::IsError, qualifier, text);
}

const CParam* FindExisting(const CProcessContext& context, const CParamQualifier& qualifier) {
  return context.Root().FindParam(qualifier);
}

}  // namespace

// --- set ---------------------------------------------------------------------

const CArgumentTable& CFunctionSet::Arguments() const {
  static const CArgumentTable table{
      Single(u"param", &CFunctionSet::param_),
      Single(u"to", &CFunctionSet::to_),
  };
  return table;
}

CErrorText CFunctionSet::Execute(CProcessContext& context, WString&) {
  CParamQualifier target;
  CErrorText errorText = EvaluateTarget(*this, param_, context, target);
  if (!errorText.empty()) return errorText;
  // The new value is complete before the target is touched, so "to" may name
  // the target itself or one of its sub-parameters.
  CParam value;
  if (to_ != nullptr) errorText = EvaluateParam(*this, to_, u"To", context, WithoutValue::IsError, value);
  if (errorText.empty()) context.Root().FindParam(target, true)->CopyFrom(value);
  return errorText;
}

// --- unset -------------------------------------------------------------------

const CArgumentTable& CFunctionUnset::Arguments() const {
  static const CArgumentTable table{
      Single(u"param", &CFunctionUnset::param_),
  };
  return table;
}

CErrorText CFunctionUnset::Execute(CProcessContext& context, WString&) {
  CParamQualifier target;
  CErrorText errorText = EvaluateTarget(*this, param_, context, target);
  // DeleteParam leaves a missing parameter alone.
  if (errorText.empty()) context.Root().DeleteParam(target);
  return errorText;
}

// --- use ---------------------------------------------------------------------

const CArgumentTable& CFunctionUse::Arguments() const {
  static const CArgumentTable table{
      Single(u"param", &CFunctionUse::param_),
      Single(u"skipifmissing", &CFunctionUse::skipIfMissing_),
  };
  return table;
}

CErrorText CFunctionUse::Execute(CProcessContext& context, WString& output) {
  CEvaluatedPath evaluated;
  CErrorText errorText = EvaluatePathInPlace(*this, param_, u"Param", context, WhenAbsent::IsError, evaluated);
  if (!errorText.empty()) return errorText;
  if (const CParam* found = context.Root().FindParam(*evaluated.path)) {
    found->AppendValueTo(output);
  } else if (skipIfMissing_ == nullptr) {
    errorText = ParamNotSetError(*param_, evaluated.text);
  }
  return errorText;
}

// --- addsubparams ------------------------------------------------------------

const CArgumentTable& CFunctionAddSubParams::Arguments() const {
  static const CArgumentTable table{
      Single(u"param", &CFunctionAddSubParams::param_),
      Repeatable(u"value", &CFunctionAddSubParams::values_),
  };
  return table;
}

// Each value is added as soon as it is evaluated, so a later value can refer
// to the sub-parameters the earlier ones made.
CErrorText CFunctionAddSubParams::Execute(CProcessContext& context, WString&) {
  CParamQualifier target;
  CErrorText errorText = EvaluateTarget(*this, param_, context, target);
  if (!errorText.empty()) return errorText;
  if (values_.empty()) return ArgumentMissingError(CallPart(), u"Value");
  for (const CParsePartRef& part : values_) {
    CParam value;
    errorText = EvaluateParam(*this, part.Get(), u"Value", context, WithoutValue::IsError, value);
    if (!errorText.empty()) break;
    context.Root().FindParam(target, true)->AppendNumbered()->CopyFrom(value);
  }
  return errorText;
}

// --- setsubparams ------------------------------------------------------------

const CArgumentTable& CFunctionSetSubParams::Arguments() const {
  static const CArgumentTable table{
      Single(u"param", &CFunctionSetSubParams::param_),
      Repeatable(u"to", &CFunctionSetSubParams::tos_),
  };
  return table;
}

// All values are taken before the target is cleared, so they may refer to
// the target's own sub-parameters; a failing value changes nothing.
CErrorText CFunctionSetSubParams::Execute(CProcessContext& context, WString&) {
  CParamQualifier target;
  CErrorText errorText = EvaluateTarget(*this, param_, context, target);
  if (!errorText.empty()) return errorText;
  std::vector<CParam> values(tos_.size());
  for (std::size_t i = 0; i < tos_.size(); ++i) {
    errorText = EvaluateParam(*this, tos_[i].Get(), u"To", context, WithoutValue::IsError, values[i]);
    if (!errorText.empty()) return errorText;
  }
  CParam* node = context.Root().FindParam(target, true);
  node->ClearChildren();
  for (const CParam& value : values) node->AppendNumbered()->CopyFrom(value);
  return errorText;
}

// --- unsetsubparams ----------------------------------------------------------

const CArgumentTable& CFunctionUnsetSubParams::Arguments() const {
  static const CArgumentTable table{
      Single(u"param", &CFunctionUnsetSubParams::param_),
  };
  return table;
}

CErrorText CFunctionUnsetSubParams::Execute(CProcessContext& context, WString&) {
  CParamQualifier target;
  CErrorText errorText = EvaluateTarget(*this, param_, context, target);
  if (!errorText.empty()) return errorText;
  // Without creation the lookup changes nothing when the parameter is missing.
  if (CParam* found = context.Root().FindParam(target)) found->ClearChildren();
  return errorText;
}

// --- subparamcount -----------------------------------------------------------

const CArgumentTable& CFunctionSubParamCount::Arguments() const {
  static const CArgumentTable table{
      Single(u"param", &CFunctionSubParamCount::param_),
  };
  return table;
}

CErrorText CFunctionSubParamCount::Execute(CProcessContext& context, WString& output) {
  CParamQualifier qualifier;
  WString text;
  CErrorText errorText = EvaluateTarget(*this, param_, context, qualifier, &text);
  if (!errorText.empty()) return errorText;
  if (const CParam* found = FindExisting(context, qualifier)) {
    output += IntegerToText(std::int64_t(found->Count()));
  } else {
    errorText = ParamNotSetError(*param_, text);
  }
  return errorText;
}

// --- findsubparam ------------------------------------------------------------

const CArgumentTable& CFunctionFindSubParam::Arguments() const {
  static const CArgumentTable table{
      Single(u"param", &CFunctionFindSubParam::param_),
      Single(u"value", &CFunctionFindSubParam::value_),
      Single(u"indextype", &CFunctionFindSubParam::indexType_),
      Single(u"recurse", &CFunctionFindSubParam::recurse_),
      Single(u"casesensitive", &CFunctionFindSubParam::caseSensitive_),
  };
  return table;
}

CErrorText CFunctionFindSubParam::Execute(CProcessContext& context, WString& output) {
  CParamQualifier qualifier;
  WString text;
  CErrorText errorText = EvaluateTarget(*this, param_, context, qualifier, &text);
  WString value;
  if (errorText.empty()) errorText = EvaluateText(*this, value_, u"Value", context, WithoutValue::IsError, value);
  int indexType = 0;  // 0 "number", 1 "name"
  if (errorText.empty() && indexType_ != nullptr) {
    errorText = EvaluateOption(*this, *indexType_, u"IndexType", context, {u"number", u"name"}, indexType);
  }
  if (!errorText.empty()) return errorText;
  const CParam* found = FindExisting(context, qualifier);
  if (found == nullptr) return ParamNotSetError(*param_, text);
  const CSubParamSearch search{value, recurse_ != nullptr, indexType == 0, caseSensitive_ != nullptr};
  WString path;
  if (FindSubParamPath(*found, search, path)) output += path;
  return errorText;
}

// --- sortsubparams -----------------------------------------------------------

const CArgumentTable& CFunctionSortSubParams::Arguments() const {
  static const CArgumentTable table(CFunctionSortOrder::Arguments(), {
      Single(u"param", &CFunctionSortSubParams::param_),
      Single(u"recurse", &CFunctionSortSubParams::recurse_),
  });
  return table;
}

CErrorText CFunctionSortSubParams::Execute(CProcessContext& context, WString&) {
  CParamQualifier qualifier;
  WString text;
  CErrorText errorText = EvaluateTarget(*this, param_, context, qualifier, &text);
  ParamOrder order = ParamOrder::ByValue;
  bool descending = false;
  if (errorText.empty()) errorText = EvaluateOrder(context, order, descending);
  if (!errorText.empty()) return errorText;
  CParam* found = context.Root().FindParam(qualifier);
  if (found == nullptr) return ParamNotSetError(*param_, text);
  SortSubtree(*found, order, descending, recurse_ != nullptr);
  return errorText;
}

// --- _writeparamtree ---------------------------------------------------------

const CArgumentTable& CFunction_WriteParamTree::Arguments() const {
  static const CArgumentTable table{
      Single(u"param", &CFunction_WriteParamTree::param_),
  };
  return table;
}

CErrorText CFunction_WriteParamTree::Execute(CProcessContext& context, WString& output) {
  CParamQualifier qualifier;
  WString text;
  CErrorText errorText = EvaluateTarget(*this, param_, context, qualifier, &text);
  if (!errorText.empty()) return errorText;
  if (const CParam* found = FindExisting(context, qualifier)) {
    WString dump;
    AppendParamTreeDump(*found, dump);
    output += dump;
  } else {
    output += text;
    output += u" not set";
  }
  return errorText;
}

CBuiltInFamily ParameterFunctions() {
  static const CBuiltInFunction kFunctions[] = {
      {u"_writeparamtree", Make<CFunction_WriteParamTree>},
      {u"addsubparams", Make<CFunctionAddSubParams>},
      {u"findsubparam", Make<CFunctionFindSubParam>},
      {u"set", Make<CFunctionSet>},
      {u"setsubparams", Make<CFunctionSetSubParams>},
      {u"sortsubparams", Make<CFunctionSortSubParams>},
      {u"subparamcount", Make<CFunctionSubParamCount>},
      {u"unset", Make<CFunctionUnset>},
      {u"unsetsubparams", Make<CFunctionUnsetSubParams>},
      {u"use", Make<CFunctionUse>},
  };
  return {kFunctions, std::size(kFunctions)};
}

}  // namespace NScrivolt
