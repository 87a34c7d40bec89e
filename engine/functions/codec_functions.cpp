#include "engine/function_factory.h"

namespace NScrivolt {

CBuiltInFamily CodecFunctions() { return {nullptr, 0}; }

}  // namespace NScrivolt
