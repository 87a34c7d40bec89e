// "makefunction" and "deletefunction": templates define and remove their own
// functions.
#pragma once

#include "engine/functions/function.h"
#include "engine/user_functions.h"
#include "text/error_text.h"

namespace NScrivolt {

// makefunction name: N content: (...) [arg: A] [optarg: A] [optemptyarg: A]
// [multiarg: A] [optmultiarg: A] — registers a function; no output.
class CFunctionMakeFunction : public CFunction {
 public:
  const CArgumentTable& Arguments() const override;
  CErrorText Execute(CProcessContext& context, WString& output) override;

 private:
  CErrorText DeclareArguments(CProcessContext& context, CUserFunction& definition) const;

  ArgumentSlot name_ = nullptr;
  CParsePartRef content_;
  // The declarations of each kind, in written order.
  ArgumentList args_;
  ArgumentList optArgs_;
  ArgumentList optEmptyArgs_;
  ArgumentList multiArgs_;
  ArgumentList optMultiArgs_;
};

// deletefunction name: N — removes the oldest definition of N; no output.
class CFunctionDeleteFunction : public CFunction {
 public:
  const CArgumentTable& Arguments() const override;
  CErrorText Execute(CProcessContext& context, WString& output) override;

 private:
  ArgumentSlot name_ = nullptr;
};

}  // namespace NScrivolt
