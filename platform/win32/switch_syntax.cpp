#include "platform/switch_syntax.h"

namespace NScrivolt::Platform {

SwitchSyntax NativeSwitchSyntax() { return SwitchSyntax::Slash; }

}  // namespace NScrivolt::Platform
