#include "engine/functions/compare.h"

#include <algorithm>
#include <utility>

#include "engine/syntax/error_report.h"
#include "engine/process_context.h"
#include "text/text.h"

namespace NScrivolt {

namespace {

// What a condition tests; the numbers are the ones the condition keeps.
enum ComparisonKind : int {
  kParamSet = 0,
  kParamNotSet = 1,
  kIs = 2,
  kIsNot = 3,
  kIsLowerThan = 4,
  kIsLowerThanEq = 5,
  kIsGreaterThan = 6,
  kIsGreaterThanEq = 7,
};

// Display names of the comparison arguments, indexed by kind.
constexpr WStringView kComparandNames[] = {
    u"", u"",  // the existence tests have no comparand
    u"Is", u"IsNot", u"IsLowerThan", u"IsLowerThanEq", u"IsGreaterThan", u"IsGreaterThanEq",
};

// Negative, zero or positive as `a` comes before, equals or follows `b`.
// Without case sensitivity the units are compared with A-Z folded to lower
// case, one by one, without a lower-cased copy of either text.
int CompareText(WStringView a, WStringView b, bool caseSensitive) {
  if (caseSensitive) return a.compare(b);
  const std::size_t common = std::min(a.size(), b.size());
  for (std::size_t i = 0; i < common; ++i) {
    const WChar x = LowerAscii(a[i]);
    const WChar y = LowerAscii(b[i]);
    if (x != y) return x < y ? -1 : 1;
  }
  return a.size() == b.size() ? 0 : (a.size() < b.size() ? -1 : 1);
}

}  // namespace

// "what", "paramset" and "paramnotset" share the subject slot, the
// comparisons the comparand slot; each records the kind it stands for.
const CArgumentTable& CFunctionCompare::Arguments() const {
  static const CArgumentTable table{
      Single(u"not", &CFunctionCompare::not_),
      Single(u"casesensitive", &CFunctionCompare::caseSensitive_),
      Single(u"what", &CFunctionCompare::subject_),
      Choice(u"paramset", &CFunctionCompare::subject_, &CFunctionCompare::kind_, kParamSet),
      Choice(u"paramnotset", &CFunctionCompare::subject_, &CFunctionCompare::kind_, kParamNotSet),
      Choice(u"is", &CFunctionCompare::comparand_, &CFunctionCompare::kind_, kIs),
      Choice(u"isnot", &CFunctionCompare::comparand_, &CFunctionCompare::kind_, kIsNot),
      Choice(u"islowerthan", &CFunctionCompare::comparand_, &CFunctionCompare::kind_, kIsLowerThan),
      Choice(u"islowerthaneq", &CFunctionCompare::comparand_, &CFunctionCompare::kind_, kIsLowerThanEq),
      Choice(u"isgreaterthan", &CFunctionCompare::comparand_, &CFunctionCompare::kind_, kIsGreaterThan),
      Choice(u"isgreaterthaneq", &CFunctionCompare::comparand_, &CFunctionCompare::kind_, kIsGreaterThanEq),
  };
  return table;
}

CErrorText CFunctionCompare::EvaluateCondition(CProcessContext& context, bool& holds) const {
  holds = false;
  CErrorText errorText =
      kind_ == kParamSet || kind_ == kParamNotSet ? TestParamExists(context, holds) : CompareTexts(context, holds);
  if (errorText.empty() && not_ != nullptr) holds = !holds;
  return errorText;
}

CErrorText CFunctionCompare::TestParamExists(CProcessContext& context, bool& holds) const {
  CParamQualifier qualifier;
  const WStringView displayName = kind_ == kParamSet ? u"ParamSet" : u"ParamNotSet";
  CErrorText errorText = EvaluateQualifier(*this, subject_, displayName, context, WhenAbsent::IsError, qualifier);
  if (errorText.empty()) holds = std::as_const(context).Root().ParamExists(qualifier) == (kind_ == kParamSet);
  return errorText;
}

CErrorText CFunctionCompare::CompareTexts(CProcessContext& context, bool& holds) const {
  if (comparand_ == nullptr) return ErrorAt(MsgComparisonMissing, CallPart());
  WString subject;
  WString comparand;
  CErrorText errorText = EvaluateText(*this, subject_, u"What", context, WithoutValue::IsError, subject);
  if (errorText.empty()) {
    errorText = EvaluateText(*this, comparand_, kComparandNames[kind_], context, WithoutValue::IsError, comparand);
  }
  if (!errorText.empty()) return errorText;
  const int order = CompareText(subject, comparand, caseSensitive_ != nullptr);
  switch (kind_) {
    case kIs: holds = order == 0; break;
    case kIsNot: holds = order != 0; break;
    case kIsLowerThan: holds = order < 0; break;
    case kIsLowerThanEq: holds = order <= 0; break;
    case kIsGreaterThan: holds = order > 0; break;
    case kIsGreaterThanEq: holds = order >= 0; break;
    default: break;
  }
  return errorText;
}

}  // namespace NScrivolt
