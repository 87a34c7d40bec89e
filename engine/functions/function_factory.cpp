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

// What a call site resolved on its last successful set-up, kept while the
// user functions are the version it was made with. A built-in is kept bound:
// its Execute reads its argument slots and changes nothing in the object, so
// the one object serves every evaluation of the site, nested ones included.
// A user-function call keeps state of its own while it runs, so each
// evaluation makes a new object, from the names kept here; the definition
// itself is not held, since its body may contain this very call.
class CCallSetUp : public CPartCache {
 public:
  std::uint64_t userFunctionsVersion = 0;
  std::shared_ptr<CFunction> builtIn;  // bound; null for a user function
  WString lowerName;
  std::vector<WString> lowerNames;  // of the written arguments
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

// Reports a refused argument; empty text when `code` accepts it.
CErrorText ArgumentError(int code, const CParsePart& argument) {
  if (code == kArgumentUnknown) return ErrorAt(MsgUnknownArgument, argument, {{u"[ARG]", argument.Name()}});
  if (code == kArgumentGivenTwice) return ErrorAt(MsgArgumentOnlyOnce, argument, {{u"[ARG]", argument.Name()}});
  return CErrorText();
}

// The set-up of a call site seen for the first time, or whose function may
// have changed: resolves, binds by name and, when all went well, leaves what
// it found in the part's cache for the next evaluations. An object that an
// evaluation further up is still running stays alive through its own share.
CErrorText SetUpAnew(const CParsePart& call, const CProcessContext& context, std::shared_ptr<CFunction>& function) {
  auto setUp = std::make_unique<CCallSetUp>();
  CErrorText errorText = CheckFunctionName(call.Name(), call, setUp->lowerName);
  if (!errorText.empty()) return errorText;
  FunctionMaker make = nullptr;
  CUserFunctionRef definition;
  if (!Resolve(setUp->lowerName, context, make, definition)) {
    AddErrorAt(errorText, MsgUnknownFunction, call, {{u"[FUNC]", call.Name()}});
    return errorText;
  }
  function = make != nullptr ? std::shared_ptr<CFunction>(make()) : std::make_shared<CFunctionUserFunction>(definition);
  function->SetCallPart(call);
  for (const CParsePartRef& argument : call.Children()) {
    WString lowerArgument = ToLowerAscii(argument->Name());
    errorText = ArgumentError(function->AcceptArgument(lowerArgument, argument), *argument);
    if (!errorText.empty()) break;
    setUp->lowerNames.push_back(std::move(lowerArgument));
  }
  if (!errorText.empty()) {
    AddErrorAt(errorText, MsgErrorSettingUpFunction, call, {{u"[FUNC]", call.Name()}});
    function.reset();
    return errorText;
  }
  if (make != nullptr) setUp->builtIn = function;
  setUp->userFunctionsVersion = context.userFunctions.Version();
  call.SetCache(std::move(setUp));
  return errorText;
}

// A user-function call at a site whose set-up still holds: the same
// definition, bound by the names kept, which it accepted before.
std::shared_ptr<CFunction> CallUserFunctionAgain(const CParsePart& call, const CProcessContext& context,
                                                 const CCallSetUp& setUp) {
  auto function = std::make_shared<CFunctionUserFunction>(context.userFunctions.FindDefinition(setUp.lowerName));
  function->SetCallPart(call);
  const std::vector<CParsePartRef>& arguments = call.Children();
  for (std::size_t i = 0; i < arguments.size(); ++i) function->AcceptArgument(setUp.lowerNames[i], arguments[i]);
  return function;
}

}  // namespace

CErrorText SetUpCall(const CParsePart& call, const CProcessContext& context, std::shared_ptr<CFunction>& function) {
  function.reset();
  const auto* cached = static_cast<const CCallSetUp*>(call.Cache());
  if (cached != nullptr && cached->userFunctionsVersion == context.userFunctions.Version()) {
    function = cached->builtIn != nullptr ? cached->builtIn : CallUserFunctionAgain(call, context, *cached);
    return CErrorText();
  }
  return SetUpAnew(call, context, function);
}

}  // namespace NScrivolt
