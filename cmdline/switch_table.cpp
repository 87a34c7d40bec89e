#include "cmdline/switch_table.h"

#include <algorithm>
#include <iterator>
#include <vector>

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

WStringView SwitchName(SwitchKind kind) { return kSwitchNames[std::size_t(kind)]; }

SwitchKind FindSwitch(WStringView name) {
  for (std::size_t i = 0; i < std::size(kSwitchNames); ++i) {
    if (EqualsIgnoreCase(name, kSwitchNames[i])) return SwitchKind(i);
  }
  return SwitchKind::Unknown;
}

namespace {

constexpr std::size_t kMaxHintDistance = 2;

WChar LowerLetter(WChar c) { return c >= u'A' && c <= u'Z' ? WChar(c - u'A' + u'a') : c; }

// The number of single-letter edits between two names, ignoring case: one
// row of the table at a time.
std::size_t EditDistance(WStringView a, WStringView b) {
  std::vector<std::size_t> row(b.size() + 1);
  for (std::size_t j = 0; j <= b.size(); ++j) row[j] = j;
  for (std::size_t i = 1; i <= a.size(); ++i) {
    std::size_t diagonal = row[0];
    row[0] = i;
    for (std::size_t j = 1; j <= b.size(); ++j) {
      const std::size_t above = row[j];
      const bool same = LowerLetter(a[i - 1]) == LowerLetter(b[j - 1]);
      row[j] = std::min({above + 1, row[j - 1] + 1, diagonal + (same ? 0 : 1)});
      diagonal = above;
    }
  }
  return row[b.size()];
}

}  // namespace

WStringView NearestSwitchName(WStringView name) {
  if (FindSwitch(name) != SwitchKind::Unknown || name.size() > 64) return WStringView();
  WStringView nearest;
  std::size_t best = kMaxHintDistance + 1;
  for (const WStringView candidate : kSwitchNames) {
    const std::size_t distance = EditDistance(name, candidate);
    if (distance < best && distance < candidate.size()) {
      best = distance;
      nearest = candidate;
    }
  }
  return nearest;
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
