#include "cmdline/switch_table.h"

#include <iterator>

namespace NScrivolt {

namespace {

// Indexed by SwitchKind.
constexpr WStringView kSwitchNames[] = {
    u"?",   u"help", u"set",          u"setsubparams", u"unset",      u"basepath",
    u"in",  u"out",  u"commandfile",  u"feedbackdest", u"feedbackmode", u"inencoding",
    u"outencoding",  u"commandfileencoding",           u"go",
};
static_assert(std::size(kSwitchNames) == std::size_t(SwitchKind::Unknown), "one name per switch");

constexpr WStringView kDashes = u"--";

bool StartsWithDashes(WStringView token) { return token.substr(0, kDashes.size()) == kDashes; }

}  // namespace

SwitchKind FindSwitch(WStringView name) {
  for (std::size_t i = 0; i < std::size(kSwitchNames); ++i) {
    if (EqualsIgnoreCase(name, kSwitchNames[i])) return SwitchKind(i);
  }
  return SwitchKind::Unknown;
}

WStringView SwitchNameOf(WStringView token) {
  if (StartsWithDashes(token)) return token.substr(kDashes.size());
  if (!token.empty() && token[0] == u'/') return token.substr(1);
  return token;
}

bool IsSwitchToken(WStringView token, Platform::SwitchSyntax syntax) {
  if (token.empty()) return false;
  if (syntax == Platform::SwitchSyntax::Slash) return token[0] == u'/';
  if (StartsWithDashes(token)) return true;
  return token[0] == u'/' && FindSwitch(token.substr(1)) != SwitchKind::Unknown;
}

}  // namespace NScrivolt
