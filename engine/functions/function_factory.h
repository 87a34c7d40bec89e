// The built-in script functions by name.
#pragma once

#include <memory>

#include "engine/functions/function.h"
#include "text/base/wide_string.h"

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

// A new object of the built-in function with this lower-cased name, or null.
std::unique_ptr<CFunction> MakeBuiltInFunction(WStringView lowerName);

template <class T>
std::unique_ptr<CFunction> Make() {
  return std::make_unique<T>();
}

}  // namespace NScrivolt
