// CFunctionCompare: the condition arguments shared by "if", "while" and
// "until".
//
//   condition  := subject [comparison] ["not"] ["casesensitive"]
//   subject    := "what" | "paramset" | "paramnotset"
//   comparison := "is" | "isnot" | "islowerthan" | "islowerthaneq"
//               | "isgreaterthan" | "isgreaterthaneq"
//
// The subject arguments share one slot and the comparison arguments another,
// so at most one of each may be written. "paramset" and "paramnotset" test
// whether a parameter exists; every other condition compares two texts,
// code unit by code unit ("10" is lower than "9").
#pragma once

#include "engine/functions/function.h"
#include "text/error_text.h"

namespace NScrivolt {

class CFunctionCompare : public CFunction {
 public:
  // The condition arguments; deriving classes start their tables from it.
  const CArgumentTable& Arguments() const override;

 protected:
  // Evaluates the arguments afresh and tells whether the condition holds.
  // Error MsgComparisonMissing at the call when neither a comparison nor "paramset" /
  // "paramnotset" was written.
  CErrorText EvaluateCondition(CProcessContext& context, bool& holds) const;

 private:
  CErrorText TestParamExists(CProcessContext& context, bool& holds) const;
  CErrorText CompareTexts(CProcessContext& context, bool& holds) const;

  ArgumentSlot subject_ = nullptr;
  ArgumentSlot comparand_ = nullptr;
  ArgumentSlot not_ = nullptr;
  ArgumentSlot caseSensitive_ = nullptr;
  int kind_ = 9;  // a ComparisonKind; 9 while no comparison is written
};

}  // namespace NScrivolt
