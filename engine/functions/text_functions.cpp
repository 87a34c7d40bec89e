#include "engine/functions/text_functions.h"
#include "engine/syntax/error_report.h"

#include <utility>

#include "engine/functions/function_factory.h"
#include "engine/process_context.h"
#include "engine/text_algorithms.h"

namespace NScrivolt {

namespace {

// Evaluates a required text argument and reads it as a whole number.
CErrorText EvaluateInteger(const CFunction& function, const CParsePart* part, WStringView displayName,
                           CProcessContext& context, std::int32_t& value) {
  WString text;
  CErrorText errorText = EvaluateText(function, part, displayName, context, WithoutValue::IsError, text);
  value = ReadInteger(text);
  return errorText;
}

}  // namespace

// --- changecase ----------------------------------------------------------------

const CArgumentTable& CFunctionChangeCase::Arguments() const {
  static const CArgumentTable table{
      Single(u"what", &CFunctionChangeCase::what_),
      Single(u"to", &CFunctionChangeCase::to_),
  };
  return table;
}

CErrorText CFunctionChangeCase::Execute(CProcessContext& context, WString& output) {
  WString what;
  CErrorText errorText = EvaluateText(*this, what_, u"What", context, WithoutValue::IsError, what);
  if (!errorText.empty()) return errorText;
  // An absent "to" is reported as the missing argument it is.
  if (to_ == nullptr) return EvaluateText(*this, to_, u"To", context, WithoutValue::IsError, what);
  int choice = 0;
  errorText = EvaluateOption(*this, *to_, u"To", context, {u"lower", u"upper"}, choice);
  if (errorText.empty()) output += choice == 0 ? ToLowerAscii(what) : ToUpperAscii(what);
  return errorText;
}

// --- count ---------------------------------------------------------------------

const CArgumentTable& CFunctionCount::Arguments() const {
  static const CArgumentTable table{
      Single(u"what", &CFunctionCount::what_),
      Single(u"in", &CFunctionCount::in_),
      Single(u"casesensitive", &CFunctionCount::caseSensitive_),
  };
  return table;
}

CErrorText CFunctionCount::Execute(CProcessContext& context, WString& output) {
  WString what, in;
  CErrorText errorText = EvaluateText(*this, what_, u"What", context, WithoutValue::IsError, what);
  if (errorText.empty()) errorText = EvaluateText(*this, in_, u"In", context, WithoutValue::IsError, in);
  if (errorText.empty()) output += IntegerToText(std::int64_t(CountOccurrences(in, what, caseSensitive_ != nullptr)));
  return errorText;
}

// --- replace -------------------------------------------------------------------

const CArgumentTable& CFunctionReplace::Arguments() const {
  static const CArgumentTable table{
      Single(u"what", &CFunctionReplace::what_),
      Single(u"by", &CFunctionReplace::by_),
      Single(u"in", &CFunctionReplace::in_),
      Single(u"casesensitive", &CFunctionReplace::caseSensitive_),
  };
  return table;
}

CErrorText CFunctionReplace::Execute(CProcessContext& context, WString& output) {
  WString what, by, in;
  CErrorText errorText = EvaluateText(*this, what_, u"What", context, WithoutValue::IsError, what);
  if (errorText.empty() && by_ != nullptr) {
    errorText = EvaluateText(*this, by_, u"By", context, WithoutValue::IsError, by);
  }
  if (errorText.empty()) errorText = EvaluateText(*this, in_, u"In", context, WithoutValue::IsError, in);
  if (errorText.empty()) output += ReplaceOccurrences(in, what, by, caseSensitive_ != nullptr);
  return errorText;
}

// --- search --------------------------------------------------------------------

const CArgumentTable& CFunctionSearch::Arguments() const {
  static const CArgumentTable table{
      Single(u"in", &CFunctionSearch::in_),
      Single(u"for", &CFunctionSearch::for_),
      Single(u"start", &CFunctionSearch::start_),
      Single(u"reverse", &CFunctionSearch::reverse_),
      Single(u"casesensitive", &CFunctionSearch::caseSensitive_),
  };
  return table;
}

CErrorText CFunctionSearch::Execute(CProcessContext& context, WString& output) {
  WString in, pattern;
  CErrorText errorText = EvaluateText(*this, in_, u"In", context, WithoutValue::IsError, in);
  if (errorText.empty()) errorText = EvaluateText(*this, for_, u"For", context, WithoutValue::IsError, pattern);
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

const CArgumentTable& CFunctionSplit::Arguments() const {
  static const CArgumentTable table{
      Single(u"param", &CFunctionSplit::param_),
      Single(u"what", &CFunctionSplit::what_),
      Single(u"on", &CFunctionSplit::on_),
      Single(u"casesensitive", &CFunctionSplit::caseSensitive_),
  };
  return table;
}

CErrorText CFunctionSplit::Execute(CProcessContext& context, WString&) {
  CParamQualifier target;
  WString what, on;
  CErrorText errorText = EvaluateQualifier(*this, param_, u"Param", context, WhenAbsent::IsError, target);
  if (errorText.empty()) errorText = EvaluateText(*this, what_, u"What", context, WithoutValue::IsError, what);
  if (errorText.empty()) errorText = EvaluateText(*this, on_, u"On", context, WithoutValue::IsError, on);
  if (!errorText.empty()) return errorText;
  // Every argument is evaluated: the target can be changed now.
  CParam& param = *context.Root().FindParam(target, true);
  param.ClearChildren();
  SplitText(what, on, caseSensitive_ != nullptr,
            [&param](WStringView piece) { param.AppendNumbered()->SetValue(piece); });
  return errorText;
}

// --- join ----------------------------------------------------------------------

const CArgumentTable& CFunctionJoin::Arguments() const {
  static const CArgumentTable table(CFunctionSortOrder::Arguments(), {
      Single(u"param", &CFunctionJoin::param_),
      Single(u"with", &CFunctionJoin::with_),
  });
  return table;
}

CErrorText CFunctionJoin::Execute(CProcessContext& context, WString& output) {
  CParamQualifier source;
  WString sourceText, with;
  CErrorText errorText = EvaluateQualifier(*this, param_, u"Param", context, WhenAbsent::IsError, source, &sourceText);
  if (errorText.empty()) errorText = EvaluateText(*this, with_, u"With", context, WithoutValue::IsError, with);
  ParamOrder order = ParamOrder::ByNumber;
  bool descending = false;
  if (errorText.empty()) errorText = EvaluateOrder(context, order, descending);
  if (!errorText.empty()) return errorText;
  const CParam* param = std::as_const(context).Root().FindParam(source);
  if (param == nullptr) return ParamNotSetError(*param_, sourceText);
  WString joined;
  for (const CParam* child : param->ListChildren(order, descending)) {
    if (!joined.empty()) joined += with;
    child->AppendValueTo(joined);
  }
  output += joined;
  return errorText;
}

// --- sub -----------------------------------------------------------------------

const CArgumentTable& CFunctionSub::Arguments() const {
  static const CArgumentTable table{
      Single(u"start", &CFunctionSub::start_),
      Single(u"end", &CFunctionSub::end_),
      Single(u"from", &CFunctionSub::from_),
  };
  return table;
}

CErrorText CFunctionSub::Execute(CProcessContext& context, WString& output) {
  std::int32_t start = 0, end = 0;
  WString from;
  CErrorText errorText = EvaluateInteger(*this, start_, u"Start", context, start);
  if (errorText.empty() && end_ != nullptr) errorText = EvaluateInteger(*this, end_, u"End", context, end);
  if (errorText.empty()) errorText = EvaluateText(*this, from_, u"From", context, WithoutValue::IsError, from);
  if (errorText.empty()) output += SubText(from, start, end);
  return errorText;
}

// --- sum -----------------------------------------------------------------------

const CArgumentTable& CFunctionSum::Arguments() const {
  static const CArgumentTable table{
      Repeatable(u"value", &CFunctionSum::values_),
  };
  return table;
}

CErrorText CFunctionSum::Execute(CProcessContext& context, WString& output) {
  CClampedSum sum;
  for (const CParsePartRef& value : values_) {
    std::int32_t number = 0;
    CErrorText errorText = EvaluateInteger(*this, value.Get(), u"Value", context, number);
    if (!errorText.empty()) return errorText;
    sum.Add(number);
  }
  output += IntegerToText(sum.Total());
  return CErrorText();
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
