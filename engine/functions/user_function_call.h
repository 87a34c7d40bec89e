// CFunctionUserFunction: one call of a function defined by "makefunction".
//
// The written arguments are evaluated in the caller's state, then put into
// top-level parameters named after the declared arguments for the time the
// body runs; afterwards those parameters get back what they held before.
#pragma once

#include <map>
#include <memory>

#include "engine/functions/function.h"
#include "engine/user_functions.h"
#include "text/error_text.h"

namespace NScrivolt {

class CFunctionUserFunction : public CFunction {
 public:
  explicit CFunctionUserFunction(CUserFunctionRef definition);

  // The arguments are those the definition declares, known only when the
  // script has run "makefunction", so they are bound without a table.
  int AcceptArgument(const WString& name, const CParsePartRef& part) override;
  CErrorText Execute(CProcessContext& context, WString& output) override;

 private:
  struct Entry {
    ArgumentKind kind;
    CParamId param;
    ArgumentList parts;                  // written for this argument, in order
    std::unique_ptr<CParam> savedState;  // null when the parameter did not exist
    std::unique_ptr<CParam> newValue;    // null when the call gives it no value
  };

  void SaveArguments(const CProcessContext& context);
  CErrorText EvaluateArguments(CProcessContext& context);
  CErrorText EvaluateArgument(CProcessContext& context, Entry& entry);
  void ApplyArguments(CProcessContext& context);
  void RestoreArguments(CProcessContext& context);

  CUserFunctionRef definition_;
  std::map<WString, Entry> entries_;  // by lower-cased argument name
};

}  // namespace NScrivolt
