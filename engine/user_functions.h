// Functions defined by templates with "makefunction": their definitions and
// the registry that holds them for the rest of a processing run.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <map>
#include <vector>

#include "engine/params/param_id.h"
#include "engine/syntax/parse_part.h"
#include "engine/ref_counter.h"
#include "text/base/wide_string.h"

namespace NScrivolt {

// The kinds of declared arguments, in the order in which a call looks a
// written argument name up.
enum class ArgumentKind : int {
  Arg = 0,          // required, once
  OptArg = 1,       // optional, at most once; absent: the parameter does not exist during the call
  OptEmptyArg = 2,  // optional, at most once; absent: the parameter exists with an empty value
  MultiArg = 3,     // required, one or more times
  OptMultiArg = 4,  // optional, any number of times; absent: exists, empty, without sub-parameters
};
constexpr std::size_t kArgumentKindCount = 5;

struct CArgumentDeclaration {
  CParsePartRef declaredBy;  // the argument of "makefunction" that declared it (its location)
  CParamId param;            // the top-level parameter that carries the value during a call
};

class CUserFunction {
 public:
  WString name;        // as given
  CParsePartRef body;  // an ArgContent part sharing the defining template's parts
  // Per kind: lower-cased argument name -> declaration.
  std::array<std::map<WString, CArgumentDeclaration>, kArgumentKindCount> declarations;
};

using CUserFunctionRef = CRefCounter<CUserFunction*>;

// Lower-cased function name -> its definitions, oldest first. Copying the
// registry shares the definitions.
class CUserFunctions {
 public:
  virtual ~CUserFunctions() = default;

  void AddDefinition(const WString& lowerName, CUserFunctionRef definition);
  // The newest definition of the name, or an empty holder.
  CUserFunctionRef FindDefinition(const WString& lowerName) const;
  // One definition left: the name goes. More: the oldest goes. None: nothing happens.
  void RemoveDefinition(const WString& lowerName);

  bool IsDefined(const WString& lowerName) const { return table_.count(lowerName) != 0; }
  // The whole list of a name, for snapshots that keep or restore single names.
  const std::vector<CUserFunctionRef>* Definitions(const WString& lowerName) const;
  void SetDefinitions(const WString& lowerName, std::vector<CUserFunctionRef> definitions);
  void Forget(const WString& lowerName);

  // Names the registry's content: every change gives a number never given
  // before, and a copy carries the number of the content it copies. So equal
  // versions mean the same definitions, and what was resolved against one
  // version holds for the other.
  std::uint64_t Version() const { return version_; }

 private:
  void Changed();

  std::map<WString, std::vector<CUserFunctionRef>> table_;
  std::uint64_t version_ = 0;
};

}  // namespace NScrivolt
