// The factory of function objects: the built-in script functions by name,
// the user functions before them, and the setting up of a call.
#pragma once

#include <memory>

#include "engine/functions/function.h"
#include "text/base/wide_string.h"
#include "text/error_text.h"

namespace NScrivolt {

using FunctionMaker = std::unique_ptr<CFunction> (*)();

struct CBuiltInFunction {
  WStringView name;  // lower-case script name
  FunctionMaker make;
};

// Each family of functions lists its members; the factory looks a lower-cased
// name up in all of them.
struct CBuiltInFamily {
  const CBuiltInFunction* functions;
  std::size_t count;
};

CBuiltInFamily ControlFlowFunctions();    // engine/functions/control_flow.cpp
CBuiltInFamily ParameterFunctions();      // engine/functions/parameter_functions.cpp
CBuiltInFamily UserFunctionFunctions();   // engine/functions/user_function_definition.cpp
CBuiltInFamily TextFunctions();           // engine/functions/text_functions.cpp
CBuiltInFamily CodecFunctions();          // engine/functions/codec_functions.cpp
CBuiltInFamily ExternalFileFunctions();   // engine/functions/external_file_functions.cpp

// The bound function object of a Call part. On error (MsgUnknownArgument, MsgArgumentOnlyOnce, each
// followed by MsgErrorSettingUpFunction; or a creation error) no object is returned. A
// successful set-up is kept in the part while the user functions stay as
// they were: a call in a loop resolves its function and binds its arguments
// once, and a built-in's bound object is handed out again on every later
// evaluation (its Execute must leave the object as it is).
CErrorText SetUpCall(const CParsePart& call, const CProcessContext& context, std::shared_ptr<CFunction>& function);

// The maker of the built-in function with this lower-cased name, or null.
FunctionMaker FindBuiltInFunction(WStringView lowerName);

template <class T>
std::unique_ptr<CFunction> Make() {
  return std::make_unique<T>();
}

}  // namespace NScrivolt
