#include "engine/functions/user_function_call.h"
#include "engine/syntax/error_report.h"

#include <utility>

#include "engine/process_context.h"

namespace NScrivolt {

namespace {

bool IsRepeatable(ArgumentKind kind) { return kind == ArgumentKind::MultiArg || kind == ArgumentKind::OptMultiArg; }

void PutTopLevel(CProcessContext& context, const CParamId& id, const CParam* state) {
  if (state != nullptr) {
    context.Root().GetChild(id, true)->CopyFrom(*state);
  } else if (std::as_const(context).Root().GetChild(id) != nullptr) {
    context.Root().DeleteParam(CParamQualifier{id});
  }
}

}  // namespace

CFunctionUserFunction::CFunctionUserFunction(CUserFunctionRef definition) : definition_(std::move(definition)) {
  // A name declared under several kinds counts under the first of them.
  for (std::size_t kind = 0; kind < kArgumentKindCount; ++kind) {
    for (const auto& [key, declaration] : definition_->declarations[kind]) {
      entries_.try_emplace(key, Entry{ArgumentKind(kind), declaration.param, {}, nullptr, nullptr});
    }
  }
}

int CFunctionUserFunction::AcceptArgument(const WString& name, const CParsePartRef& part) {
  const auto found = entries_.find(name);
  if (found == entries_.end()) return kArgumentUnknown;
  Entry& entry = found->second;
  if (!entry.parts.empty() && !IsRepeatable(entry.kind)) return kArgumentGivenTwice;
  entry.parts.push_back(part);
  return kArgumentAccepted;
}

CErrorText CFunctionUserFunction::Execute(CProcessContext& context, WString& output) {
  SaveArguments(context);
  CErrorText errorText = EvaluateArguments(context);
  if (!errorText.empty()) return errorText;
  ApplyArguments(context);
  errorText = AppendText(*this, definition_->body.Get(), u"Content", context, WithoutValue::IsError, output);
  // After a failing body the parameters stay as the call left them; the
  // error ends the processing anyway.
  if (errorText.empty()) RestoreArguments(context);
  return errorText;
}

void CFunctionUserFunction::SaveArguments(const CProcessContext& context) {
  for (auto& [key, entry] : entries_) {
    const CParam* existing = context.Root().GetChild(entry.param);
    entry.savedState = existing != nullptr ? std::make_unique<CParam>(*existing) : nullptr;
  }
}

CErrorText CFunctionUserFunction::EvaluateArguments(CProcessContext& context) {
  for (auto& [key, entry] : entries_) {
    CErrorText errorText = EvaluateArgument(context, entry);
    if (!errorText.empty()) return errorText;
  }
  return CErrorText();
}

CErrorText CFunctionUserFunction::EvaluateArgument(CProcessContext& context, Entry& entry) {
  CErrorText errorText;
  if (entry.parts.empty()) {
    if (entry.kind == ArgumentKind::Arg || entry.kind == ArgumentKind::MultiArg) {
      errorText = ArgumentMissingError(CallPart(), entry.param.name);
    } else if (entry.kind != ArgumentKind::OptArg) {
      entry.newValue = std::make_unique<CParam>();
    }
    return errorText;
  }
  entry.newValue = std::make_unique<CParam>();
  for (const CParsePartRef& part : entry.parts) {
    CParam value;
    errorText = EvaluateParam(*this, part.Get(), entry.param.name, context, WithoutValue::IsEmptyText, value);
    if (!errorText.empty()) return errorText;
    if (IsRepeatable(entry.kind)) {
      entry.newValue->AppendNumbered()->CopyFrom(value);
    } else {
      entry.newValue->CopyFrom(value);
    }
  }
  return errorText;
}

void CFunctionUserFunction::ApplyArguments(CProcessContext& context) {
  for (auto& [key, entry] : entries_) PutTopLevel(context, entry.param, entry.newValue.get());
}

void CFunctionUserFunction::RestoreArguments(CProcessContext& context) {
  for (auto& [key, entry] : entries_) PutTopLevel(context, entry.param, entry.savedState.get());
}

}  // namespace NScrivolt
