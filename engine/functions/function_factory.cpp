#include "engine/functions/function_factory.h"

namespace NScrivolt {

std::unique_ptr<CFunction> MakeBuiltInFunction(WStringView lowerName) {
  const CBuiltInFamily families[] = {ControlFlowFunctions(), ParameterFunctions(), UserFunctionFunctions(),
                                     TextFunctions(),        CodecFunctions(),     ExternalFileFunctions()};
  for (const CBuiltInFamily& family : families) {
    for (std::size_t i = 0; i < family.count; ++i) {
      if (family.functions[i].name == lowerName) return family.functions[i].make();
    }
  }
  return nullptr;
}

}  // namespace NScrivolt
