#include "engine/process_context.h"

#include <utility>
#include <vector>

#include "engine/syntax/error_report.h"
#include "engine/syntax/parse_part.h"
#include "platform/paths.h"
#include "text/text.h"

namespace NScrivolt {

CProcessContext::CProcessContext() { records.push_back(&baseRecord_); }

void KeepTreesUntilProcessEnds(const CProcessContext& context) {
  // Never freed, and reachable through this pointer to the end.
  static auto* const kept = new std::vector<CParams>();
  kept->push_back(context.parameters);
  kept->push_back(context.setAside);
}

CErrorText EnterNesting(CProcessContext& context, const CParsePart& at) {
  CErrorText errorText;
  if (context.nestingDepth > kMaxNestingDepth) {
    AddErrorAt(errorText, MsgTooManyNestedCalls, at, {{u"[NUMBER]", IntegerToText(std::int64_t(kMaxNestingDepth))}});
  } else {
    ++context.nestingDepth;
  }
  return errorText;
}

void LeaveNesting(CProcessContext& context) { --context.nestingDepth; }

WString TopLevelValue(const CProcessContext& context, WStringView name) {
  const CParam* param = context.Root().GetChildByName(name);
  return param != nullptr ? param->GetValue() : WString();
}

void SetTopLevelValue(CProcessContext& context, WStringView name, WString value) {
  context.Root().GetChildByName(name, true)->SetValue(std::move(value));
}

WString BaseFolder(const CProcessContext& context) {
  WString basePath = TopLevelValue(context, kBasePathParam);
  if (!basePath.empty()) return basePath;
  const WString currentInFile = TopLevelValue(context, kCurrentInFileParam);
  if (currentInFile.empty()) return WString();
  for (size_t i = currentInFile.size(); i > 0; --i) {
    if (Platform::IsPathSeparator(currentInFile[i - 1])) return currentInFile.substr(0, i - 1);
  }
  return currentInFile;
}

void SetBasePath(CProcessContext& context, const WString& path) {
  SetTopLevelValue(context, kBasePathParam, path);
}

}  // namespace NScrivolt
