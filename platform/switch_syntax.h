// Which command-line tokens are switches. Windows marks every switch with a
// leading "/"; on POSIX an absolute path begins with "/" too, so there only a
// known switch name behind "/" or "--", or any token beginning with "--",
// makes a switch.
#pragma once

namespace NScrivolt::Platform {

enum class SwitchSyntax {
  Slash,           // every token beginning with "/"
  KnownNameOrDash  // "/" or "--" followed by a known switch name, or any "--" token
};

SwitchSyntax NativeSwitchSyntax();

}  // namespace NScrivolt::Platform
