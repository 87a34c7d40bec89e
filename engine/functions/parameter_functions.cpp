#include "engine/functions/parameter_functions.h"

#include <utility>

#include "engine/function_factory.h"
#include "engine/process_context.h"

namespace NScrivolt {

int CFunctionSet::AcceptArgument(const WString& name, const CParsePartRef& part) {
  if (name == u"param") return BindArgument(param_, part);
  if (name == u"to") return BindArgument(to_, part);
  return kArgumentUnknown;
}

WString CFunctionSet::Execute(CProcessContext& context, WString&) {
  CParamQualifier target;
  WString errorText = EvaluateQualifier(*this, param_, u"Param", context, true, target);
  if (!errorText.empty()) return errorText;
  // The new value is complete before the target is touched, so "to" may name
  // the target itself or one of its sub-parameters.
  CParam value;
  if (to_ != nullptr) errorText = EvaluateParam(*this, to_, u"To", context, false, value);
  if (errorText.empty()) context.Root().FindParam(target, true)->CopyFrom(value);
  return errorText;
}

int CFunctionUse::AcceptArgument(const WString& name, const CParsePartRef& part) {
  if (name == u"param") return BindArgument(param_, part);
  if (name == u"skipifmissing") return BindArgument(skipIfMissing_, part);
  return kArgumentUnknown;
}

WString CFunctionUse::Execute(CProcessContext& context, WString& output) {
  CParamQualifier qualifier;
  WString text;
  WString errorText = EvaluateQualifier(*this, param_, u"Param", context, true, qualifier, &text);
  if (!errorText.empty()) return errorText;
  if (const CParam* found = std::as_const(context).Root().FindParam(qualifier)) {
    output += found->GetValue();
  } else if (skipIfMissing_ == nullptr) {
    errorText = ParamNotSetError(*param_, text);
  }
  return errorText;
}

CBuiltInFamily ParameterFunctions() {
  static const CBuiltInFunction kFunctions[] = {
      {u"set", Make<CFunctionSet>},
      {u"use", Make<CFunctionUse>},
  };
  return {kFunctions, std::size(kFunctions)};
}

}  // namespace NScrivolt
