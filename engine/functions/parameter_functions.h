// Script functions that create, change, inspect, sort and remove parameters.
#pragma once

#include "engine/function.h"
#include "engine/functions/sort_order.h"

namespace NScrivolt {

// set param: P [to: V] — P becomes a copy of V (value and sub-parameters);
// without "to" P is emptied. No output.
class CFunctionSet : public CFunction {
 public:
  int AcceptArgument(const WString& name, const CParsePartRef& part) override;
  WString Execute(CProcessContext& context, WString& output) override;

 private:
  ArgumentSlot param_ = nullptr;
  ArgumentSlot to_ = nullptr;
};

// use param: P [skipifmissing] — outputs the value of P.
class CFunctionUse : public CFunction {
 public:
  int AcceptArgument(const WString& name, const CParsePartRef& part) override;
  WString Execute(CProcessContext& context, WString& output) override;

 private:
  ArgumentSlot param_ = nullptr;
  ArgumentSlot skipIfMissing_ = nullptr;
};

}  // namespace NScrivolt
