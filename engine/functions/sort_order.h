// CFunctionSortOrder: the "orderby" argument shared by the functions that
// walk sub-parameters in an order ("foreach", "join", "sortsubparams").
#pragma once

#include "engine/functions/function.h"
#include "engine/params/param_order.h"
#include "text/error_text.h"

namespace NScrivolt {

class CFunctionSortOrder : public CFunction {
 public:
  // "orderby"; deriving classes start their tables from it.
  const CArgumentTable& Arguments() const override;

 protected:
  // Evaluates "orderby" into an order and a direction; leaves the caller's
  // defaults untouched when the argument is absent. Error MsgUnknownOption for a word
  // other than "nameasc", "numberasc", "valueasc", "namedesc", "numberdesc",
  // "valuedesc" (compared ignoring case).
  CErrorText EvaluateOrder(CProcessContext& context, ParamOrder& order, bool& descending) const;

 private:
  ArgumentSlot orderBy_ = nullptr;
};

}  // namespace NScrivolt
