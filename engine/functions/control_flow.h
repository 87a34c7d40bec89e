// Script functions that decide what a template produces: conditions, loops,
// the "gate" sandbox, and the two functions that run content for its effects
// ("nooutput") or fail on purpose ("error").
#pragma once

#include "engine/function.h"

namespace NScrivolt {

// nooutput content: C — evaluates C for its effects and drops its text.
class CFunctionNoOutput : public CFunction {
 public:
  int AcceptArgument(const WString& name, const CParsePartRef& part) override;
  WString Execute(CProcessContext& context, WString& output) override;

 private:
  ArgumentSlot content_ = nullptr;
};

// error text: T — fails the processing with T as a detail line.
class CFunctionError : public CFunction {
 public:
  int AcceptArgument(const WString& name, const CParsePartRef& part) override;
  WString Execute(CProcessContext& context, WString& output) override;

 private:
  ArgumentSlot text_ = nullptr;
};

}  // namespace NScrivolt
