#include "platform/switch_syntax.h"

namespace NScrivolt::Platform {

SwitchSyntax NativeSwitchSyntax() { return SwitchSyntax::KnownNameOrDash; }

}  // namespace NScrivolt::Platform
