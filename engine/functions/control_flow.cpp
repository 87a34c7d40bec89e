#include "engine/functions/control_flow.h"

#include <cstdint>
#include <utility>

#include "engine/syntax/error_report.h"
#include "engine/functions/function_factory.h"
#include "engine/process_context.h"
#include "text/error_text.h"
#include "text/text.h"

namespace NScrivolt {

namespace {

// Evaluates a body or branch and appends its text to the output.
CErrorText AppendEvaluation(const CFunction& function, ArgumentSlot part, WStringView displayName,
                            CProcessContext& context, WString& output) {
  return AppendText(function, part, displayName, context, WithoutValue::IsError, output);
}

// Sets a loop parameter (found or created) to a number.
void SetNumberParam(CProcessContext& context, const CParamQualifier& qualifier, std::int64_t number) {
  context.Root().FindParam(qualifier, true)->SetValue(IntegerToText(number));
}

// The values a "for" loop takes. The value is counted in 64 bits, so a step
// that would carry it past the ends of the 32-bit range passes the bound
// instead and ends the loop; it never wraps around.
class CForRange {
 public:
  CForRange(std::int32_t from, std::int32_t to, std::int32_t step) : current_(from), to_(to), step_(step) {}
  bool Done() const { return step_ > 0 ? current_ > to_ : current_ < to_; }
  std::int32_t Current() const { return std::int32_t(current_); }
  void Advance() { current_ += step_; }

 private:
  std::int64_t current_;
  std::int64_t to_;
  std::int64_t step_;
};

}  // namespace

// --- if ----------------------------------------------------------------------

const CArgumentTable& CFunctionIf::Arguments() const {
  static const CArgumentTable table(CFunctionCompare::Arguments(), {
      Single(u"then", &CFunctionIf::then_),
      Single(u"else", &CFunctionIf::else_),
  });
  return table;
}

CErrorText CFunctionIf::Execute(CProcessContext& context, WString& output) {
  bool holds = false;
  CErrorText errorText = EvaluateCondition(context, holds);
  if (!errorText.empty()) return errorText;
  if (holds) return AppendEvaluation(*this, then_, u"Then", context, output);
  if (else_ != nullptr) return AppendEvaluation(*this, else_, u"Else", context, output);
  return errorText;
}

// --- while, until ------------------------------------------------------------

const CArgumentTable& CConditionalLoop::Arguments() const {
  static const CArgumentTable table(CFunctionCompare::Arguments(), {
      Single(u"do", &CConditionalLoop::do_),
      Single(u"loopnumber", &CConditionalLoop::loopNumber_),
  });
  return table;
}

// Rounds are counted in 64 bits: a loop number never wraps around.
CErrorText CConditionalLoop::RunLoop(CProcessContext& context, CLoopRule rule, WString& output) const {
  const bool testFirst = rule.test == CLoopRule::Test::BeforeRound;
  CParamQualifier loopNumber;
  CErrorText errorText = EvaluateQualifier(*this, loopNumber_, u"LoopNr", context, WhenAbsent::IsEmpty, loopNumber);
  for (std::int64_t round = 1; errorText.empty() && round <= kMaxLoopRounds; ++round) {
    if (loopNumber_ != nullptr) SetNumberParam(context, loopNumber, round);
    bool holds = false;
    if (testFirst) {
      errorText = EvaluateCondition(context, holds);
      if (!errorText.empty() || holds != rule.continueWhile) break;
    }
    errorText = AppendEvaluation(*this, do_, u"Do", context, output);
    if (!errorText.empty()) break;
    if (!testFirst) {
      errorText = EvaluateCondition(context, holds);
      if (!errorText.empty() || holds != rule.continueWhile) break;
    }
  }
  return errorText;
}

CErrorText CFunctionWhile::Execute(CProcessContext& context, WString& output) {
  return RunLoop(context, kWhileRule, output);
}

CErrorText CFunctionUntil::Execute(CProcessContext& context, WString& output) {
  return RunLoop(context, kUntilRule, output);
}

// --- for ---------------------------------------------------------------------

const CArgumentTable& CFunctionFor::Arguments() const {
  static const CArgumentTable table{
      Single(u"value", &CFunctionFor::value_),
      Single(u"from", &CFunctionFor::from_),
      Single(u"to", &CFunctionFor::to_),
      Single(u"step", &CFunctionFor::step_),
      Single(u"loopnumber", &CFunctionFor::loopNumber_),
      Single(u"do", &CFunctionFor::do_),
  };
  return table;
}

CErrorText CFunctionFor::Execute(CProcessContext& context, WString& output) {
  CParamQualifier value;
  CParamQualifier loopNumber;
  WString from;
  WString to;
  WString step = u"1";
  CErrorText errorText = EvaluateQualifier(*this, value_, u"Value", context, WhenAbsent::IsEmpty, value);
  if (errorText.empty()) {
    errorText = EvaluateQualifier(*this, loopNumber_, u"LoopNr", context, WhenAbsent::IsEmpty, loopNumber);
  }
  if (errorText.empty()) errorText = EvaluateText(*this, from_, u"From", context, WithoutValue::IsError, from);
  if (errorText.empty()) errorText = EvaluateText(*this, to_, u"To", context, WithoutValue::IsError, to);
  if (errorText.empty() && step_ != nullptr) {
    errorText = EvaluateText(*this, step_, u"Step", context, WithoutValue::IsError, step);
  }
  if (!errorText.empty()) return errorText;
  const std::int32_t stepNumber = ReadInteger(step);
  if (stepNumber == 0) {
    AddErrorAt(errorText, MsgStepIsZero, *step_, {{u"[STEP]", step_->Name()}, {u"[FUNC]", CallPart().Name()}});
    return errorText;
  }
  std::int64_t round = 1;
  for (CForRange range(ReadInteger(from), ReadInteger(to), stepNumber); !range.Done() && round <= kMaxLoopRounds;
       range.Advance(), ++round) {
    if (value_ != nullptr) context.Root().FindParam(value, true)->SetValueNumber(range.Current());
    if (loopNumber_ != nullptr) SetNumberParam(context, loopNumber, round);
    errorText = AppendEvaluation(*this, do_, u"Do", context, output);
    if (!errorText.empty()) break;
  }
  return errorText;
}

// --- foreach -----------------------------------------------------------------

const CArgumentTable& CFunctionForEach::Arguments() const {
  static const CArgumentTable table(CFunctionSortOrder::Arguments(), {
      Single(u"value", &CFunctionForEach::value_),
      Single(u"indexname", &CFunctionForEach::indexName_),
      Single(u"indexnumber", &CFunctionForEach::indexNumber_),
      Single(u"loopnumber", &CFunctionForEach::loopNumber_),
      Single(u"in", &CFunctionForEach::in_),
      Single(u"do", &CFunctionForEach::do_),
  });
  return table;
}

CErrorText CFunctionForEach::Execute(CProcessContext& context, WString& output) {
  CParamQualifier value;
  CParamQualifier indexName;
  CParamQualifier indexNumber;
  CParamQualifier loopNumber;
  CParamQualifier in;
  WString inText;
  CErrorText errorText = EvaluateQualifier(*this, value_, u"Value", context, WhenAbsent::IsEmpty, value);
  if (errorText.empty()) {
    errorText = EvaluateQualifier(*this, indexName_, u"IndexName", context, WhenAbsent::IsEmpty, indexName);
  }
  if (errorText.empty()) {
    errorText = EvaluateQualifier(*this, indexNumber_, u"IndexNumber", context, WhenAbsent::IsEmpty, indexNumber);
  }
  if (errorText.empty()) {
    errorText = EvaluateQualifier(*this, loopNumber_, u"LoopNr", context, WhenAbsent::IsEmpty, loopNumber);
  }
  if (errorText.empty()) errorText = EvaluateQualifier(*this, in_, u"In", context, WhenAbsent::IsError, in, &inText);
  ParamOrder order = ParamOrder::ByNumber;
  bool descending = false;
  if (errorText.empty()) errorText = EvaluateOrder(context, order, descending);
  if (!errorText.empty()) return errorText;
  const CParam* found = std::as_const(context).Root().FindParam(in);
  if (found == nullptr) return ParamNotSetError(*in_, inText);
  // The rounds walk a copy (O(1): it shares the children), so what the body
  // does to the collection does not change the walk.
  const CParam collection(*found);
  std::int64_t round = 1;
  for (const CParam* child : collection.ListChildren(order, descending)) {
    if (value_ != nullptr) context.Root().FindParam(value, true)->CopyFrom(*child);
    if (indexName_ != nullptr) context.Root().FindParam(indexName, true)->SetValue(child->GetName());
    if (indexNumber_ != nullptr) SetNumberParam(context, indexNumber, std::int64_t(child->GetId().index) + 1);
    if (loopNumber_ != nullptr) SetNumberParam(context, loopNumber, round++);
    errorText = AppendEvaluation(*this, do_, u"Do", context, output);
    if (!errorText.empty()) break;
  }
  return errorText;
}

// --- gate --------------------------------------------------------------------

const CArgumentTable& CFunctionGate::Arguments() const {
  static const CArgumentTable table{
      Single(u"content", &CFunctionGate::content_),
      Repeatable(u"param", &CFunctionGate::params_),
      Single(u"allparams", &CFunctionGate::allParams_),
      Repeatable(u"function", &CFunctionGate::functions_),
      Single(u"allfunctions", &CFunctionGate::allFunctions_),
  };
  return table;
}

CErrorText CFunctionGate::EvaluateParams(CProcessContext& context, std::vector<CParamQualifier>& params) const {
  params.resize(params_.size());
  for (std::size_t i = 0; i < params_.size(); ++i) {
    CErrorText errorText =
        EvaluateQualifier(*this, params_[i].Get(), u"Param", context, WhenAbsent::IsError, params[i]);
    if (!errorText.empty()) return errorText;
  }
  return CErrorText();
}

CErrorText CFunctionGate::EvaluateFunctionNames(CProcessContext& context, std::vector<WString>& names) const {
  names.resize(functions_.size());
  for (std::size_t i = 0; i < functions_.size(); ++i) {
    WString text;
    CErrorText errorText = EvaluateText(*this, functions_[i].Get(), u"Function", context, WithoutValue::IsError, text);
    if (errorText.empty()) errorText = CheckFunctionName(text, *functions_[i], names[i]);
    if (!errorText.empty()) return errorText;
  }
  return CErrorText();
}

namespace {

// Carries the listed parameters' live state into the snapshot: copied when
// they exist, removed from the snapshot when they do not (DeleteParam leaves
// a parameter the snapshot lacks too alone).
void KeepParams(const CParam& live, CParam& snapshot, const std::vector<CParamQualifier>& params) {
  for (const CParamQualifier& qualifier : params) {
    if (const CParam* current = live.FindParam(qualifier)) {
      snapshot.FindParam(qualifier, true)->CopyFrom(*current);
    } else {
      snapshot.DeleteParam(qualifier);
    }
  }
}

void KeepFunctions(const CUserFunctions& live, CUserFunctions& snapshot, const std::vector<WString>& names) {
  for (const WString& name : names) {
    if (const std::vector<CUserFunctionRef>* definitions = live.Definitions(name)) {
      snapshot.SetDefinitions(name, *definitions);
    } else {
      snapshot.Forget(name);
    }
  }
}

}  // namespace

// The snapshots are O(1) copies: the tree shares its child lists and the
// registry its definitions, so only what the content changes is duplicated.
CErrorText CFunctionGate::Execute(CProcessContext& context, WString& output) {
  const bool keepParams = allParams_ == nullptr;
  const bool keepFunctions = allFunctions_ == nullptr;
  CParams paramSnapshot;
  std::vector<CParamQualifier> params;
  CErrorText errorText;
  if (keepParams) {
    paramSnapshot = context.parameters;
    errorText = EvaluateParams(context, params);
  }
  CUserFunctions functionSnapshot;
  std::vector<WString> functionNames;
  if (errorText.empty() && keepFunctions) {
    functionSnapshot = context.userFunctions;
    errorText = EvaluateFunctionNames(context, functionNames);
  }
  if (errorText.empty()) errorText = AppendEvaluation(*this, content_, u"Content", context, output);
  if (!errorText.empty()) return errorText;
  if (keepParams) {
    KeepParams(std::as_const(context).Root(), paramSnapshot.Root(), params);
    context.parameters = paramSnapshot;
  }
  if (keepFunctions) {
    KeepFunctions(context.userFunctions, functionSnapshot, functionNames);
    context.userFunctions = functionSnapshot;
  }
  return errorText;
}

// --- nooutput, error ---------------------------------------------------------

const CArgumentTable& CFunctionNoOutput::Arguments() const {
  static const CArgumentTable table{
      Single(u"content", &CFunctionNoOutput::content_),
  };
  return table;
}

CErrorText CFunctionNoOutput::Execute(CProcessContext& context, WString&) {
  WString dropped;
  return EvaluateText(*this, content_, u"Content", context, WithoutValue::IsError, dropped);
}

const CArgumentTable& CFunctionError::Arguments() const {
  static const CArgumentTable table{
      Single(u"text", &CFunctionError::text_),
  };
  return table;
}

CErrorText CFunctionError::Execute(CProcessContext& context, WString&) {
  WString text;
  CErrorText errorText = EvaluateText(*this, text_, u"Text", context, WithoutValue::IsError, text);
  if (errorText.empty()) errorText.AddDetail(text);
  return errorText;
}

CBuiltInFamily ControlFlowFunctions() {
  static const CBuiltInFunction kFunctions[] = {
      {u"error", Make<CFunctionError>},     {u"for", Make<CFunctionFor>},
      {u"foreach", Make<CFunctionForEach>}, {u"gate", Make<CFunctionGate>},
      {u"if", Make<CFunctionIf>},           {u"nooutput", Make<CFunctionNoOutput>},
      {u"until", Make<CFunctionUntil>},     {u"while", Make<CFunctionWhile>},
  };
  return {kFunctions, std::size(kFunctions)};
}

}  // namespace NScrivolt
