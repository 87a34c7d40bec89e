// CProcessContext: everything one processing run works on — the parameter
// tree, the user-defined functions, the nesting depth and the stack of file
// records — handed by reference to every engine operation.
#pragma once

#include <vector>

#include "engine/file_record.h"
#include "engine/params/param.h"
#include "engine/user_functions.h"
#include "text/base/wide_string.h"
#include "text/encoded_output.h"
#include "text/error_text.h"

namespace NScrivolt {

class CParsePart;

// Part lists may be evaluated this many levels below the template itself.
// The fuzz build lowers it, and bounds loops, so that every random template
// ends soon; other builds have no bound on loops.
#ifdef SCRIVOLT_FUZZ_LIMITS
constexpr int kMaxNestingDepth = 32;
constexpr long long kMaxLoopRounds = 16;
#else
constexpr int kMaxNestingDepth = 1000;
constexpr long long kMaxLoopRounds = 0x7fffffffffffffffLL;
#endif

// Names of the parameters the engine itself reads and sets.
inline constexpr WStringView kBasePathParam = u"_BasePath";
inline constexpr WStringView kCurrentInFileParam = u"_CurrentInFile";
inline constexpr WStringView kInFileParam = u"_InFile";
inline constexpr WStringView kCurrentFileParam = u"_CurrentFile";
inline constexpr WStringView kOutFileParam = u"_OutFile";

class CProcessContext {
 public:
  CProcessContext();
  CProcessContext(const CProcessContext&) = delete;
  CProcessContext& operator=(const CProcessContext&) = delete;
  virtual ~CProcessContext() = default;

  CParams parameters;
  // The tree an isolated processing worked on, put aside when it ended and
  // freed when the next processing starts (or the context goes), so that a
  // run does not wait for a large tree to be freed node by node.
  CParams setAside;
  CUserFunctions userFunctions;
  int nestingDepth = 0;
  // The innermost record is the last one; the base record is always first.
  std::vector<CFileRecord*> records;
  // The output of the innermost processing when its destination keeps it
  // encoded: EvaluateParts hands that text to `encodedOutput` whenever it
  // has grown large. Both null while the output is kept whole.
  WString* encodedTarget = nullptr;
  CEncodedOutput* encodedOutput = nullptr;

  CParam& Root() { return parameters.Root(); }
  const CParam& Root() const { return parameters.Root(); }
  CFileRecord& CurrentRecord() { return *records.back(); }

 private:
  CFileRecord baseRecord_;
};

// Hands the context's parameter trees over to the end of the process: they
// are never freed node by node, as the system takes the whole memory back at
// once. For a program's last step after its last processing.
void KeepTreesUntilProcessEnds(const CProcessContext& context);

// Enters one more level of nested evaluation; error MsgTooManyNestedCalls located at `at`
// when the depth is already above the limit.
CErrorText EnterNesting(CProcessContext& context, const CParsePart& at);
void LeaveNesting(CProcessContext& context);

// The folder relative paths are resolved against: _BasePath when not empty,
// else the folder part of _CurrentInFile when that is not empty, else empty.
WString BaseFolder(const CProcessContext& context);

// Sets _BasePath at the top of the tree, creating it when needed.
void SetBasePath(CProcessContext& context, const WString& path);

// Value of a top-level parameter, empty when it does not exist.
WString TopLevelValue(const CProcessContext& context, WStringView name);
// Sets a top-level parameter's value, creating it when needed.
void SetTopLevelValue(CProcessContext& context, WStringView name, WString value);

}  // namespace NScrivolt
