#include "engine/functions/text_functions.h"
#include "engine/syntax/error_report.h"

#include <utility>

#include "engine/functions/function_factory.h"
#include "engine/process_context.h"
#include "engine/text_algorithms.h"

namespace NScrivolt {

namespace {

// Evaluates a required text argument and reads it as a whole number.
WString EvaluateInteger(const CFunction& function, const CParsePart* part, WStringView displayName,
                        CProcessContext& context, std::int32_t& value) {
  WString text;
  WString errorText = EvaluateText(function, part, displayName, context, false, text);
  value = ReadInteger(text);
  return errorText;
}

}  // namespace

// --- changecase ----------------------------------------------------------------

int CFunctionChangeCase::AcceptArgument(const WString& name, const CParsePartRef& part) {
  if (name == u"what") return BindArgument(what_, part);
  if (name == u"to") return BindArgument(to_, part);
  return kArgumentUnknown;
}

WString CFunctionChangeCase::Execute(CProcessContext& context, WString& output) {
  WString what;
  WString errorText = EvaluateText(*this, what_, u"What", context, false, what);
  if (!errorText.empty()) return errorText;
  // An absent "to" is reported as the missing argument it is.
  if (to_ == nullptr) return EvaluateText(*this, to_, u"To", context, false, what);
  int choice = 0;
  errorText = EvaluateOption(*this, *to_, u"To", context, {u"lower", u"upper"}, choice);
  if (errorText.empty()) output += choice == 0 ? ToLowerAscii(what) : ToUpperAscii(what);
  return errorText;
}

// --- count ---------------------------------------------------------------------

int CFunctionCount::AcceptArgument(const WString& name, const CParsePartRef& part) {
  if (name == u"what") return BindArgument(what_, part);
  if (name == u"in") return BindArgument(in_, part);
  if (name == u"casesensitive") return BindArgument(caseSensitive_, part);
  return kArgumentUnknown;
}

WString CFunctionCount::Execute(CProcessContext& context, WString& output) {
  WString what, in;
  WString errorText = EvaluateText(*this, what_, u"What", context, false, what);
  if (errorText.empty()) errorText = EvaluateText(*this, in_, u"In", context, false, in);
  if (errorText.empty()) output += IntegerToText(std::int64_t(CountOccurrences(in, what, caseSensitive_ != nullptr)));
  return errorText;
}

// --- replace -------------------------------------------------------------------

int CFunctionReplace::AcceptArgument(const WString& name, const CParsePartRef& part) {
  if (name == u"what") return BindArgument(what_, part);
  if (name == u"by") return BindArgument(by_, part);
  if (name == u"in") return BindArgument(in_, part);
  if (name == u"casesensitive") return BindArgument(caseSensitive_, part);
  return kArgumentUnknown;
}

WString CFunctionReplace::Execute(CProcessContext& context, WString& output) {
  WString what, by, in;
  WString errorText = EvaluateText(*this, what_, u"What", context, false, what);
  if (errorText.empty() && by_ != nullptr) errorText = EvaluateText(*this, by_, u"By", context, false, by);
  if (errorText.empty()) errorText = EvaluateText(*this, in_, u"In", context, false, in);
  if (errorText.empty()) output += ReplaceOccurrences(in, what, by, caseSensitive_ != nullptr);
  return errorText;
}

// --- search --------------------------------------------------------------------

int CFunctionSearch::AcceptArgument(const WString& name, const CParsePartRef& part) {
  if (name == u"in") return BindArgument(in_, part);
  if (name == u"for") return BindArgument(for_, part);
  if (name == u"start") return BindArgument(start_, part);
  if (name == u"reverse") return BindArgument(reverse_, part);
  if (name == u"casesensitive") return BindArgument(caseSensitive_, part);
  return kArgumentUnknown;
}

WString CFunctionSearch::Execute(CProcessContext& context, WString& output) {
  WString in, pattern;
  WString errorText = EvaluateText(*this, in_, u"In", context, false, in);
  if (errorText.empty()) errorText = EvaluateText(*this, for_, u"For", context, false, pattern);
  std::optional<std::int32_t> start;
  if (errorText.empty() && start_ != nullptr) {
    std::int32_t value = 0;
    errorText = EvaluateInteger(*this, start_, u"Start", context, value);
    start = value;
  }
  if (errorText.empty()) {
    output += IntegerToText(SearchText(in, pattern, start, reverse_ != nullptr, caseSensitive_ != nullptr));
  }
  return errorText;
}

// --- split ---------------------------------------------------------------------

int CFunctionSplit::AcceptArgument(const WString& name, const CParsePartRef& part) {
  if (name == u"param") return BindArgument(param_, part);
  if (name == u"what") return BindArgument(what_, part);
  if (name == u"on") return BindArgument(on_, part);
  if (name == u"casesensitive") return BindArgument(caseSensitive_, part);
  return kArgumentUnknown;
}

WString CFunctionSplit::Execute(CProcessContext& context, WString&) {
  CParamQualifier target;
  WString what, on;
  WString errorText = EvaluateQualifier(*this, param_, u"Param", context, true, target);
  if (errorText.empty()) errorText = EvaluateText(*this, what_, u"What", context, false, what);
  if (errorText.empty()) errorText = EvaluateText(*this, on_, u"On", context, false, on);
  if (!errorText.empty()) return errorText;
  // Every argument is evaluated: the target can be changed now.
  CParam& param = *context.Root().FindParam(target, true);
  param.ClearChildren();
  SplitText(what, on, caseSensitive_ != nullptr,
            [&param](WStringView piece) { param.AppendNumbered()->SetValue(WString(piece)); });
  return errorText;
}

// --- join ----------------------------------------------------------------------

int CFunctionJoin::AcceptArgument(const WString& name, const CParsePartRef& part) {
  const int code = CFunctionSortOrder::AcceptArgument(name, part);
  if (code != kArgumentUnknown) return code;
  if (name == u"param") return BindArgument(param_, part);
  if (name == u"with") return BindArgument(with_, part);
  return kArgumentUnknown;
}

WString CFunctionJoin::Execute(CProcessContext& context, WString& output) {
  CParamQualifier source;
  WString sourceText, with;
  WString errorText = EvaluateQualifier(*this, param_, u"Param", context, true, source, &sourceText);
  if (errorText.empty()) errorText = EvaluateText(*this, with_, u"With", context, false, with);
  ParamOrder order = ParamOrder::ByNumber;
  bool descending = false;
  if (errorText.empty()) errorText = EvaluateOrder(context, order, descending);
  if (!errorText.empty()) return errorText;
  const CParam* param = std::as_const(context).Root().FindParam(source);
  if (param == nullptr) return ParamNotSetError(*param_, sourceText);
  WString joined;
  for (const CParam* child : param->ListChildren(order, descending)) {
    if (!joined.empty()) joined += with;
    joined += child->GetValue();
  }
  output += joined;
  return errorText;
}

// --- sub -----------------------------------------------------------------------

int CFunctionSub::AcceptArgument(const WString& name, const CParsePartRef& part) {
  if (name == u"start") return BindArgument(start_, part);
  if (name == u"end") return BindArgument(end_, part);
  if (name == u"from") return BindArgument(from_, part);
  return kArgumentUnknown;
}

WString CFunctionSub::Execute(CProcessContext& context, WString& output) {
  std::int32_t start = 0, end = 0;
  WString from;
  WString errorText = EvaluateInteger(*this, start_, u"Start", context, start);
  if (errorText.empty() && end_ != nullptr) errorText = EvaluateInteger(*this, end_, u"End", context, end);
  if (errorText.empty()) errorText = EvaluateText(*this, from_, u"From", context, false, from);
  if (errorText.empty()) output += SubText(from, start, end);
  return errorText;
}

// --- sum -----------------------------------------------------------------------

int CFunctionSum::AcceptArgument(const WString& name, const CParsePartRef& part) {
  if (name == u"value") return AppendArgument(values_, part);
  return kArgumentUnknown;
}

WString CFunctionSum::Execute(CProcessContext& context, WString& output) {
  CClampedSum sum;
  for (const CParsePartRef& value : values_) {
    std::int32_t number = 0;
    WString errorText = EvaluateInteger(*this, value.Get(), u"Value", context, number);
    if (!errorText.empty()) return errorText;
    sum.Add(number);
  }
  output += IntegerToText(sum.Total());
  return WString();
}

CBuiltInFamily TextFunctions() {
  static const CBuiltInFunction kFunctions[] = {
      {u"changecase", Make<CFunctionChangeCase>}, {u"count", Make<CFunctionCount>},
      {u"join", Make<CFunctionJoin>},             {u"replace", Make<CFunctionReplace>},
      {u"search", Make<CFunctionSearch>},         {u"split", Make<CFunctionSplit>},
      {u"sub", Make<CFunctionSub>},               {u"sum", Make<CFunctionSum>},
  };
  return {kFunctions, std::size(kFunctions)};
}

}  // namespace NScrivolt
