#include "engine/functions/sort_order.h"

namespace NScrivolt {

const CArgumentTable& CFunctionSortOrder::Arguments() const {
  static const CArgumentTable table{
      Single(u"orderby", &CFunctionSortOrder::orderBy_),
  };
  return table;
}

CErrorText CFunctionSortOrder::EvaluateOrder(CProcessContext& context, ParamOrder& order, bool& descending) const {
  if (orderBy_ == nullptr) return CErrorText();
  struct Choice {
    ParamOrder order;
    bool descending;
  };
  static constexpr Choice kChoices[] = {
      {ParamOrder::ByName, false},  {ParamOrder::ByNumber, false}, {ParamOrder::ByValue, false},
      {ParamOrder::ByName, true},   {ParamOrder::ByNumber, true},  {ParamOrder::ByValue, true},
  };
  int choice = 0;
  CErrorText errorText =
      EvaluateOption(*this, *orderBy_, u"OrderBy", context,
                     {u"nameasc", u"numberasc", u"valueasc", u"namedesc", u"numberdesc", u"valuedesc"}, choice);
  if (errorText.empty()) {
    order = kChoices[choice].order;
    descending = kChoices[choice].descending;
  }
  return errorText;
}

}  // namespace NScrivolt
