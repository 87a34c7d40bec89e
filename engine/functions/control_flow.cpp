#include "engine/functions/control_flow.h"

#include "engine/function_factory.h"
#include "text/error_text.h"

namespace NScrivolt {

int CFunctionNoOutput::AcceptArgument(const WString& name, const CParsePartRef& part) {
  if (name == u"content") return BindArgument(content_, part);
  return kArgumentUnknown;
}

WString CFunctionNoOutput::Execute(CProcessContext& context, WString&) {
  WString dropped;
  return EvaluateText(*this, content_, u"Content", context, false, dropped);
}

int CFunctionError::AcceptArgument(const WString& name, const CParsePartRef& part) {
  if (name == u"text") return BindArgument(text_, part);
  return kArgumentUnknown;
}

WString CFunctionError::Execute(CProcessContext& context, WString&) {
  WString text;
  WString errorText = EvaluateText(*this, text_, u"Text", context, false, text);
  if (errorText.empty()) AddErrorDetail(errorText, text);
  return errorText;
}

CBuiltInFamily ControlFlowFunctions() {
  static const CBuiltInFunction kFunctions[] = {
      {u"error", Make<CFunctionError>},
      {u"nooutput", Make<CFunctionNoOutput>},
  };
  return {kFunctions, std::size(kFunctions)};
}

}  // namespace NScrivolt
