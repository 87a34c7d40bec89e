#include "engine/functions/function_factory.h"

#include <utility>

#include "engine/functions/user_function_call.h"
#include "engine/process_context.h"
#include "engine/syntax/error_report.h"

namespace NScrivolt {

std::unique_ptr<CFunction> MakeBuiltInFunction(WStringView lowerName) {
  const CBuiltInFamily families[] = {ControlFlowFunctions(), ParameterFunctions(), UserFunctionFunctions(),
                                     TextFunctions(),        CodecFunctions(),     ExternalFileFunctions()};
  for (const CBuiltInFamily& family : families) {
    for (std::size_t i = 0; i < family.count; ++i) {
      if (family.functions[i].name == lowerName) return family.functions[i].make();
    }
  }
  return nullptr;
}

WString CreateFunction(WStringView writtenName, const CParsePart& at, const CProcessContext& context,
                       std::unique_ptr<CFunction>& function) {
  function.reset();
  WString lowerName;
  WString errorText = CheckFunctionName(writtenName, at, lowerName);
  if (!errorText.empty()) return errorText;
  if (CUserFunctionRef definition = context.userFunctions.FindDefinition(lowerName)) {
    function = std::make_unique<CFunctionUserFunction>(std::move(definition));
  } else {
    function = MakeBuiltInFunction(lowerName);
  }
  if (!function) AddErrorAt(errorText, MsgUnknownFunction, at, {{u"[FUNC]", writtenName}});
  return errorText;
}

WString SetUpCall(const CParsePart& call, const CProcessContext& context, std::unique_ptr<CFunction>& function) {
  WString errorText = CreateFunction(call.Name(), call, context, function);
  if (!errorText.empty()) return errorText;
  function->SetCallPart(call);
  for (const CParsePartRef& argument : call.Children()) {
    const int code = function->AcceptArgument(ToLowerAscii(argument->Name()), argument);
    if (code == kArgumentUnknown) AddErrorAt(errorText, MsgUnknownArgument, *argument, {{u"[ARG]", argument->Name()}});
    if (code == kArgumentGivenTwice) AddErrorAt(errorText, MsgArgumentOnlyOnce, *argument, {{u"[ARG]", argument->Name()}});
    if (!errorText.empty()) break;
  }
  if (!errorText.empty()) {
    AddErrorAt(errorText, MsgErrorSettingUpFunction, call, {{u"[FUNC]", call.Name()}});
    function.reset();
  }
  return errorText;
}

}  // namespace NScrivolt
