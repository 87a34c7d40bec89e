#include "engine/function_factory.h"

namespace NScrivolt {

CBuiltInFamily TextFunctions() { return {nullptr, 0}; }

}  // namespace NScrivolt
