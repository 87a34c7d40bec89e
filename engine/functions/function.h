// CFunction: the base of every script function, and the services with which
// a function binds its written arguments and evaluates them.
//
// A call is carried out by a function object: SetUpCall makes it from the
// Call part (user functions first, then the built-in table) and binds each
// written argument through its argument table (argument_table.h); Process's
// evaluation loop runs Execute. Binding only records which parts were given;
// Execute evaluates them when and as often as it needs. A built-in's bound
// object is kept with its call site and runs every evaluation of it, nested
// ones too, so a built-in's Execute reads its members and never changes
// them; a user-function call makes a new object each time.
#pragma once

#include <initializer_list>
#include <memory>
#include <vector>

#include "engine/functions/argument_table.h"
#include "engine/params/param.h"
#include "engine/params/param_id.h"
#include "engine/params/param_path.h"
#include "engine/syntax/parse_part.h"
#include "text/base/wide_string.h"
#include "text/error_text.h"

namespace NScrivolt {

class CProcessContext;

// What an argument written without a value (a flag such as "casesensitive")
// gives where a value is evaluated.
enum class WithoutValue {
  IsError,      // MsgArgumentMissingValue at the argument
  IsEmptyText,  // the empty text
};

// What an argument that is not written at all gives where a parameter
// reference is evaluated.
enum class WhenAbsent {
  IsError,  // MsgArgumentMissing at the call
  IsEmpty,  // the empty reference
};

class CFunction {
 public:
  CFunction() = default;
  CFunction(const CFunction&) = delete;
  CFunction& operator=(const CFunction&) = delete;
  virtual ~CFunction() = default;

  // Carries out the call, appending its result to `output`. Returns the error
  // text (empty on success). The base appends nothing.
  virtual CErrorText Execute(CProcessContext& context, WString& output);

  // The arguments the function takes. The base takes none.
  virtual const CArgumentTable& Arguments() const;

  // Binds one written argument; `name` is lower-cased. Binds from
  // Arguments(); a function whose arguments are not known until the call
  // is made binds on its own.
  virtual int AcceptArgument(const WString& name, const CParsePartRef& part);

  void SetCallPart(const CParsePart& call) { call_ = &call; }
  const CParsePart& CallPart() const { return *call_; }

 private:
  const CParsePart* call_ = nullptr;
};

// Appends a text made elsewhere (a file's content) to the output, without a
// copy when there is nothing before it.
void AppendResult(WString& output, WString&& result);

// Checks a function name given as text: one or more name characters. Error
// MsgInvalidFunctionName located at `at` otherwise; `lowerName` receives the lower-cased name.
CErrorText CheckFunctionName(WStringView name, const CParsePart& at, WString& lowerName);

// Evaluates an argument to text. `part` null: error MsgArgumentMissing at the call, naming
// `displayName`. A flag without value: as `withoutValue` says.
// A quoted text: its value. A reference: the value of the parameter it names
// (MsgParamNotSet when it does not exist). A content: its evaluation.
CErrorText EvaluateText(const CFunction& function, const CParsePart* part, WStringView displayName,
                        CProcessContext& context, WithoutValue withoutValue, WString& result);

// Evaluates an argument as EvaluateText does and appends the text to
// `output`; a content is evaluated straight into it.
CErrorText AppendText(const CFunction& function, const CParsePart* part, WStringView displayName,
                      CProcessContext& context, WithoutValue withoutValue, WString& output);

// Evaluates an argument to text and parses the text as a parameter reference.
// An absent argument is MsgArgumentMissing, or the empty qualifier, as
// `whenAbsent` says.
// `evaluatedText`, when given, receives the text (for messages that name it).
CErrorText EvaluateQualifier(const CFunction& function, const CParsePart* part, WStringView displayName,
                             CProcessContext& context, WhenAbsent whenAbsent, CParamQualifier& qualifier,
                             WString* evaluatedText = nullptr);

// A reference evaluated in place: the parsed path and the text it was
// parsed from (for messages that name it), each kept in the part for a
// constant text and in the storage here for any other.
struct CEvaluatedPath {
  const CParamPath* path = nullptr;
  WStringView text;
  CParamPath pathStorage;
  WString textStorage;
};

// As EvaluateQualifier, without the copy and with the keys prepared.
// `evaluated` is valid while the part is and until its next use.
CErrorText EvaluatePathInPlace(const CFunction& function, const CParsePart* part, WStringView displayName,
                               CProcessContext& context, WhenAbsent whenAbsent, CEvaluatedPath& evaluated);

// Evaluates an argument into `target` (cleared first): a reference makes the
// target a deep copy of the parameter it names, value and sub-parameters;
// any other value sets the target's value.
CErrorText EvaluateParam(const CFunction& function, const CParsePart* part, WStringView displayName,
                         CProcessContext& context, WithoutValue withoutValue, CParam& target);

// As EvaluateParam, without the copy: a reference gives `param` the node it
// names, any other value is set in `storage` and `param` points there. The
// node is for reading before anything changes the tree again.
CErrorText EvaluateParamInPlace(const CFunction& function, const CParsePart* part, WStringView displayName,
                                CProcessContext& context, WithoutValue withoutValue, CParam& storage,
                                const CParam*& param);

// Evaluates an option argument and compares the text, ignoring case, with
// `keywords` in order; `choice` receives the index of the first match. No
// match: error MsgUnknownOption at the argument, with the evaluated text and the
// argument's written name.
CErrorText EvaluateOption(const CFunction& function, const CParsePart& part, WStringView displayName,
                          CProcessContext& context, std::initializer_list<WStringView> keywords, int& choice);

// Parses a parameter reference; errors MsgInvalidParamName and MsgInvalidParamIndex are located at `at`.
CErrorText ParseQualifier(WStringView text, WStringView argName, const CParsePart& at, CParamQualifier& qualifier);

}  // namespace NScrivolt
