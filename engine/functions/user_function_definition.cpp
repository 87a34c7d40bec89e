#include "engine/functions/user_function_definition.h"

#include <utility>

#include "engine/syntax/error_report.h"
#include "engine/functions/function_factory.h"
#include "engine/process_context.h"
#include "text/text.h"

namespace NScrivolt {

namespace {

// Names in messages of the declarations of "makefunction", per kind.
constexpr WStringView kKindDisplayNames[kArgumentKindCount] = {u"Arg", u"OptArg", u"OptEmptyArg", u"MultiArg",
                                                               u"OptMultiArg"};

// Evaluates the "name" argument and checks it is a function name.
CErrorText EvaluateFunctionName(const CFunction& function, ArgumentSlot namePart, CProcessContext& context,
                                WString& name, WString& lowerName) {
  CErrorText errorText = EvaluateText(function, namePart, u"Name", context, WithoutValue::IsError, name);
  if (errorText.empty()) errorText = CheckFunctionName(name, *namePart, lowerName);
  return errorText;
}

}  // namespace

const CArgumentTable& CFunctionMakeFunction::Arguments() const {
  static const CArgumentTable table{
      Single(u"name", &CFunctionMakeFunction::name_),
      Kept(u"content", &CFunctionMakeFunction::content_),
      Repeatable(u"arg", &CFunctionMakeFunction::args_),
      Repeatable(u"optarg", &CFunctionMakeFunction::optArgs_),
      Repeatable(u"optemptyarg", &CFunctionMakeFunction::optEmptyArgs_),
      Repeatable(u"multiarg", &CFunctionMakeFunction::multiArgs_),
      Repeatable(u"optmultiarg", &CFunctionMakeFunction::optMultiArgs_),
  };
  return table;
}

CErrorText CFunctionMakeFunction::Execute(CProcessContext& context, WString&) {
  WString name;
  WString lowerName;
  CErrorText errorText = EvaluateFunctionName(*this, name_, context, name, lowerName);
  if (!errorText.empty()) return errorText;
  if (!content_) return ArgumentMissingError(CallPart(), u"Content");
  CUserFunctionRef definition = CUserFunctionRef::Make();
  definition->name = std::move(name);
  definition->body = content_;
  errorText = DeclareArguments(context, *definition);
  if (errorText.empty()) context.userFunctions.AddDefinition(lowerName, std::move(definition));
  return errorText;
}

// Each declared argument names the one top-level parameter that carries its
// value during a call; a later declaration of a name under the same kind wins.
CErrorText CFunctionMakeFunction::DeclareArguments(CProcessContext& context, CUserFunction& definition) const {
  const ArgumentList* const declarations[kArgumentKindCount] = {&args_, &optArgs_, &optEmptyArgs_, &multiArgs_,
                                                                &optMultiArgs_};
  for (std::size_t kind = 0; kind < kArgumentKindCount; ++kind) {
    for (const CParsePartRef& argument : *declarations[kind]) {
      CParamQualifier qualifier;
      WString text;
      CErrorText errorText = EvaluateQualifier(*this, argument.Get(), kKindDisplayNames[kind], context,
                                               WhenAbsent::IsError, qualifier, &text);
      if (errorText.empty() && qualifier.size() != 1) {
        AddErrorAt(errorText, MsgArgumentDefinitionHasIndices, *argument, {{u"[PARAM]", text}});
      }
      if (!errorText.empty()) return errorText;
      definition.declarations[kind][qualifier.front().key] = CArgumentDeclaration{argument, qualifier.front()};
    }
  }
  return CErrorText();
}

const CArgumentTable& CFunctionDeleteFunction::Arguments() const {
  static const CArgumentTable table{
      Single(u"name", &CFunctionDeleteFunction::name_),
  };
  return table;
}

CErrorText CFunctionDeleteFunction::Execute(CProcessContext& context, WString&) {
  WString name;
  WString lowerName;
  CErrorText errorText = EvaluateFunctionName(*this, name_, context, name, lowerName);
  if (errorText.empty()) context.userFunctions.RemoveDefinition(lowerName);
  return errorText;
}

CBuiltInFamily UserFunctionFunctions() {
  static const CBuiltInFunction kFunctions[] = {
      {u"deletefunction", Make<CFunctionDeleteFunction>},
      {u"makefunction", Make<CFunctionMakeFunction>},
  };
  return {kFunctions, std::size(kFunctions)};
}

}  // namespace NScrivolt
