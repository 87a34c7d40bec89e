// The switches of the command line, and the rule that tells a switch token
// from an option.
#pragma once

#include "platform/switch_syntax.h"
#include "text/base/wide_string.h"

namespace NScrivolt {

// In the order names are compared; Unknown matches nothing.
enum class SwitchKind {
  Question,
  Help,
  Set,
  SetSubParams,
  Unset,
  BasePath,
  In,
  Out,
  CommandFile,
  FeedbackDest,
  FeedbackMode,
  InEncoding,
  OutEncoding,
  CommandFileEncoding,
  Go,
  Unknown
};

// The name of a switch other than Unknown, without "/".
WStringView SwitchName(SwitchKind kind);

// The switch a name (without its "/" or "--") stands for, ignoring case; no
// abbreviations.
SwitchKind FindSwitch(WStringView name);

// The switch name one or two letters away from `name` (a letter added,
// dropped or changed, ignoring case), for a hint after a typing error; empty
// when no name is that close, or `name` is a switch name itself.
WStringView NearestSwitchName(WStringView name);

// The token without its leading "--" or "/"; other tokens as they are.
WStringView SwitchNameOf(WStringView token);

// Slash: the token begins with "/". KnownNameOrDash: the token begins with
// "--", or it is "/" followed by a name FindSwitch knows.
bool IsSwitchToken(WStringView token, Platform::SwitchSyntax syntax);

}  // namespace NScrivolt
