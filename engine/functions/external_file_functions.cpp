#include "engine/function_factory.h"

namespace NScrivolt {

CBuiltInFamily ExternalFileFunctions() { return {nullptr, 0}; }

}  // namespace NScrivolt
