#include "engine/functions/function_factory.h"

#include <cstdint>
#include <utility>
#include <vector>

#include "engine/functions/user_function_call.h"
#include "engine/process_context.h"
#include "engine/syntax/error_report.h"

namespace NScrivolt {

FunctionMaker FindBuiltInFunction(WStringView lowerName) {
  const CBuiltInFamily families[] = {ControlFlowFunctions(), ParameterFunctions(), UserFunctionFunctions(),
                                     TextFunctions(),        CodecFunctions(),     ExternalFileFunctions()};
  for (const CBuiltInFamily& family : families) {
    for (std::size_t i = 0; i < family.count; ++i) {
      if (family.functions[i].name == lowerName) return family.functions[i].make;
    }
  }
  return nullptr;
}

namespace {

// What a call site resolved on its last successful set-up: its function's
// lower-cased name and, for a built-in, its maker; the lower-cased names of
// its written arguments and, for a built-in, the row each binds to. The
// resolution holds while the user functions are the same version; the
// binding follows from the function and the written arguments alone. A user
// function's definition is not held here: its body may hold this very call.
class CCallSetUp : public CPartCache {
 public:
  std::uint64_t userFunctionsVersion = 0;
  WString lowerName;
  FunctionMaker make = nullptr;  // null for a user function
  std::vector<WString> lowerNames;
  std::vector<const CArgumentRow*> rows;  // built-ins only
};

// Finds the function of a valid lower-cased name: the newest user function
// first, then the built-in one. Exactly one of `make` and `definition` is
// set on success.
bool Resolve(const WString& lowerName, const CProcessContext& context, FunctionMaker& make,
             CUserFunctionRef& definition) {
  definition = context.userFunctions.FindDefinition(lowerName);
  if (definition) return true;
  make = FindBuiltInFunction(lowerName);
  return make != nullptr;
}

std::unique_ptr<CFunction> MakeFunction(FunctionMaker make, const CUserFunctionRef& definition) {
  if (make != nullptr) return make();
  return std::make_unique<CFunctionUserFunction>(definition);
}

// Reports a refused argument; empty text when `code` accepts it.
WString ArgumentError(int code, const CParsePart& argument) {
  WString errorText;
  if (code == kArgumentUnknown) AddErrorAt(errorText, MsgUnknownArgument, argument, {{u"[ARG]", argument.Name()}});
  if (code == kArgumentGivenTwice) AddErrorAt(errorText, MsgArgumentOnlyOnce, argument, {{u"[ARG]", argument.Name()}});
  return errorText;
}

// The set-up of a call site seen for the first time, or whose function may
// have changed: resolves, binds by name and, when all went well, leaves what
// it found in the part's cache for the next evaluations.
WString SetUpAnew(const CParsePart& call, const CProcessContext& context, std::unique_ptr<CFunction>& function) {
  auto setUp = std::make_unique<CCallSetUp>();
  WString errorText = CheckFunctionName(call.Name(), call, setUp->lowerName);
  if (!errorText.empty()) return errorText;
  CUserFunctionRef definition;
  if (!Resolve(setUp->lowerName, context, setUp->make, definition)) {
    AddErrorAt(errorText, MsgUnknownFunction, call, {{u"[FUNC]", call.Name()}});
    return errorText;
  }
  function = MakeFunction(setUp->make, definition);
  function->SetCallPart(call);
  for (const CParsePartRef& argument : call.Children()) {
    WString lowerArgument = ToLowerAscii(argument->Name());
    errorText = ArgumentError(function->AcceptArgument(lowerArgument, argument), *argument);
    if (!errorText.empty()) break;
    if (setUp->make != nullptr) setUp->rows.push_back(function->Arguments().Find(lowerArgument));
    setUp->lowerNames.push_back(std::move(lowerArgument));
  }
  if (!errorText.empty()) {
    AddErrorAt(errorText, MsgErrorSettingUpFunction, call, {{u"[FUNC]", call.Name()}});
    function.reset();
    return errorText;
  }
  setUp->userFunctionsVersion = context.userFunctions.Version();
  call.SetCache(std::move(setUp));
  return errorText;
}

// The set-up of a call site whose last set-up still holds: the same function,
// bound the same way without looking names up. A user function binds by the
// names again, as its arguments are known only to the definition.
void SetUpAgain(const CParsePart& call, const CProcessContext& context, const CCallSetUp& setUp,
                std::unique_ptr<CFunction>& function) {
  function = setUp.make != nullptr ? setUp.make() : MakeFunction(nullptr, context.userFunctions.FindDefinition(setUp.lowerName));
  function->SetCallPart(call);
  const std::vector<CParsePartRef>& arguments = call.Children();
  for (std::size_t i = 0; i < arguments.size(); ++i) {
    if (setUp.make != nullptr) {
      setUp.rows[i]->Bind(*function, arguments[i]);
    } else {
      function->AcceptArgument(setUp.lowerNames[i], arguments[i]);
    }
  }
}

}  // namespace

WString SetUpCall(const CParsePart& call, const CProcessContext& context, std::unique_ptr<CFunction>& function) {
  function.reset();
  const auto* cached = static_cast<const CCallSetUp*>(call.Cache());
  if (cached != nullptr && cached->userFunctionsVersion == context.userFunctions.Version()) {
    SetUpAgain(call, context, *cached, function);
    return WString();
  }
  return SetUpAnew(call, context, function);
}

}  // namespace NScrivolt
