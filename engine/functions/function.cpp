#include "engine/functions/function.h"

#include <memory>
#include <utility>

#include "engine/syntax/char_class.h"
#include "engine/syntax/error_report.h"
#include "engine/params/param_path.h"
#include "engine/params/param_qualifier.h"
#include "engine/process.h"
#include "engine/process_context.h"
#include "text/text.h"

namespace NScrivolt {

CErrorText CFunction::Execute(CProcessContext&, WString&) { return CErrorText(); }

const CArgumentTable& CFunction::Arguments() const {
  static const CArgumentTable none{};
  return none;
}

int CFunction::AcceptArgument(const WString& name, const CParsePartRef& part) {
  return Arguments().Bind(*this, name, part);
}

void AppendResult(WString& output, WString&& result) {
  if (output.empty()) {
    output = std::move(result);
  } else {
    output += result;
  }
}

CErrorText CheckFunctionName(WStringView name, const CParsePart& at, WString& lowerName) {
  CErrorText errorText;
  if (!IsValidName(name)) {
    AddErrorAt(errorText, MsgInvalidFunctionName, at, {{u"[NAME]", name}});
    return errorText;
  }
  lowerName = ToLowerAscii(name);
  return errorText;
}

namespace {

// A reference written as a constant (a quoted text or a reference), parsed
// on the part's first evaluation.
class CConstantPath : public CPartCache {
 public:
  CParamPath path;
};

// The reference the constant value of an ArgText or ArgReference part names:
// parsed once and kept in the part, since its text never changes. A text
// that is no reference is parsed again each time, so that the error names
// the argument as the caller does.
CErrorText ConstantPath(const CParsePart& part, WStringView argName, const CParamPath*& path) {
  if (const auto* cached = static_cast<const CConstantPath*>(part.Cache())) {
    path = &cached->path;
    return CErrorText();
  }
  CParamQualifier qualifier;
  CErrorText errorText = ParseQualifier(part.Value(), argName, part, qualifier);
  if (!errorText.empty()) return errorText;
  auto parsed = std::make_unique<CConstantPath>();
  parsed->path.Assign(std::move(qualifier));
  path = &parsed->path;
  part.SetCache(std::move(parsed));
  return errorText;
}

// The parameter an ArgReference part names, or null with the error set.
const CParam* FindReferenced(const CParsePart& part, CProcessContext& context, CErrorText& errorText) {
  const CParamPath* path = nullptr;
  errorText = ConstantPath(part, part.Name(), path);
  if (!errorText.empty()) return nullptr;
  const CParam* found = std::as_const(context).Root().FindParam(*path);
  if (found == nullptr) errorText = ParamNotSetError(part, part.Value());
  return found;
}

// The checks common to every evaluation: a missing argument, a flag without
// value. True when the caller should go on with the part's kind.
bool CheckPresence(const CFunction& function, const CParsePart* part, WStringView displayName,
                   WithoutValue withoutValue, CErrorText& errorText) {
  if (part == nullptr) {
    errorText = ArgumentMissingError(function.CallPart(), displayName);
    return false;
  }
  if (part->Kind() == PartKind::ArgFlag) {
    if (withoutValue == WithoutValue::IsError) {
      AddErrorAt(errorText, MsgArgumentMissingValue, *part, {{u"[ARG]", displayName}});
    }
    return false;
  }
  return true;
}

}  // namespace

CErrorText AppendText(const CFunction& function, const CParsePart* part, WStringView displayName,
                      CProcessContext& context, WithoutValue withoutValue, WString& output) {
  CErrorText errorText;
  if (!CheckPresence(function, part, displayName, withoutValue, errorText)) return errorText;
  switch (part->Kind()) {
    case PartKind::ArgText:
      output.append(part->Value());
      break;
    case PartKind::ArgReference:
      if (const CParam* found = FindReferenced(*part, context, errorText)) found->AppendValueTo(output);
      break;
    case PartKind::ArgContent:
      errorText = EvaluateParts(*part, context, output);
      break;
    default:
      break;
  }
  return errorText;
}

CErrorText EvaluateText(const CFunction& function, const CParsePart* part, WStringView displayName,
                        CProcessContext& context, WithoutValue withoutValue, WString& result) {
  result.clear();
  return AppendText(function, part, displayName, context, withoutValue, result);
}

CErrorText EvaluateQualifier(const CFunction& function, const CParsePart* part, WStringView displayName,
                             CProcessContext& context, WhenAbsent whenAbsent, CParamQualifier& qualifier,
                             WString* evaluatedText) {
  qualifier.clear();
  if (part == nullptr && whenAbsent == WhenAbsent::IsEmpty) return CErrorText();
  if (part != nullptr && part->Kind() == PartKind::ArgText) {
    if (evaluatedText != nullptr) evaluatedText->assign(part->Value());
    const CParamPath* constant = nullptr;
    CErrorText errorText = ConstantPath(*part, displayName, constant);
    if (constant != nullptr) qualifier = constant->Components();
    return errorText;
  }
  WString text;
  CErrorText errorText = EvaluateText(function, part, displayName, context, WithoutValue::IsError, text);
  if (errorText.empty()) errorText = ParseQualifier(text, displayName, *part, qualifier);
  if (evaluatedText != nullptr) *evaluatedText = std::move(text);
  return errorText;
}

CErrorText EvaluatePathInPlace(const CFunction& function, const CParsePart* part, WStringView displayName,
                               CProcessContext& context, WhenAbsent whenAbsent, CEvaluatedPath& evaluated) {
  evaluated.path = &evaluated.pathStorage;
  evaluated.text = WStringView();
  evaluated.pathStorage.Assign(CParamQualifier());
  if (part == nullptr && whenAbsent == WhenAbsent::IsEmpty) return CErrorText();
  if (part != nullptr && part->Kind() == PartKind::ArgText) {
    evaluated.text = part->Value();
    const CParamPath* constant = nullptr;
    CErrorText errorText = ConstantPath(*part, displayName, constant);
    if (constant != nullptr) evaluated.path = constant;
    return errorText;
  }
  WString& text = evaluated.textStorage;
  CParamQualifier qualifier;
  CErrorText errorText = EvaluateText(function, part, displayName, context, WithoutValue::IsError, text);
  if (errorText.empty()) errorText = ParseQualifier(text, displayName, *part, qualifier);
  evaluated.text = text;
  evaluated.pathStorage.Assign(std::move(qualifier));
  return errorText;
}

CErrorText EvaluateParamInPlace(const CFunction& function, const CParsePart* part, WStringView displayName,
                                CProcessContext& context, WithoutValue withoutValue, CParam& storage,
                                const CParam*& param) {
  param = nullptr;
  CErrorText errorText;
  if (part != nullptr && part->Kind() == PartKind::ArgReference) {
    param = FindReferenced(*part, context, errorText);
    return errorText;
  }
  storage.Clear();
  WString value;
  errorText = EvaluateText(function, part, displayName, context, withoutValue, value);
  if (!errorText.empty()) return errorText;
  storage.SetValue(std::move(value));
  param = &storage;
  return errorText;
}

CErrorText EvaluateParam(const CFunction& function, const CParsePart* part, WStringView displayName,
                         CProcessContext& context, WithoutValue withoutValue, CParam& target) {
  target.Clear();
  if (part != nullptr && part->Kind() == PartKind::ArgReference) {
    CErrorText errorText;
    if (const CParam* found = FindReferenced(*part, context, errorText)) target.CopyFrom(*found);
    return errorText;
  }
  WString value;
  CErrorText errorText = EvaluateText(function, part, displayName, context, withoutValue, value);
  if (errorText.empty()) target.SetValue(std::move(value));
  return errorText;
}

CErrorText EvaluateOption(const CFunction& function, const CParsePart& part, WStringView displayName,
                          CProcessContext& context, std::initializer_list<WStringView> keywords, int& choice) {
  WString text;
  CErrorText errorText = EvaluateText(function, &part, displayName, context, WithoutValue::IsError, text);
  if (!errorText.empty()) return errorText;
  choice = 0;
  for (WStringView keyword : keywords) {
    if (EqualsIgnoreCase(text, keyword)) return errorText;
    ++choice;
  }
  return UnknownOptionError(part, text);
}

CErrorText ParseQualifier(WStringView text, WStringView argName, const CParsePart& at, CParamQualifier& qualifier) {
  CQualifierParse parsed = ParseQualifierText(text, argName);
  CErrorText errorText;
  if (!parsed.message.empty()) {
    AddError(errorText, parsed.message, at.Location());
    qualifier.clear();
  } else {
    qualifier = std::move(parsed.qualifier);
  }
  return errorText;
}

}  // namespace NScrivolt
