#include "platform/posix/character_set.h"

#include <langinfo.h>
#include <locale.h>

#include <string>

namespace NScrivolt::Platform {

namespace {

constexpr std::string_view kWestern[] = {"CP1252", "WINDOWS1252", "ISO88591", "ISO885915"};

// Upper case without "-" and "_", so "iso-8859-1" and "ISO8859_1" compare equal.
std::string Canonical(std::string_view name) {
  std::string canonical;
  for (const char c : name) {
    if (c == '-' || c == '_') continue;
    canonical.push_back((c >= 'a' && c <= 'z') ? char(c - 32) : c);
  }
  return canonical;
}

// The user's locale is read into a locale object of its own, so the
// process-wide locale of the C library stays as it was.
std::string LocaleCodeset() {
  const locale_t user = newlocale(LC_CTYPE_MASK, "", locale_t(0));
  if (user == locale_t(0)) return {};
  std::string codeset = nl_langinfo_l(CODESET, user);
  freelocale(user);
  return codeset;
}

}  // namespace

AnsiCharacterSet CharacterSetNamed(std::string_view codeset) {
  const std::string canonical = Canonical(codeset);
  for (const std::string_view western : kWestern) {
    if (canonical == western) return AnsiCharacterSet::Windows1252;
  }
  return AnsiCharacterSet::Utf8;
}

AnsiCharacterSet LocaleCharacterSet() {
  static const AnsiCharacterSet set = CharacterSetNamed(LocaleCodeset());
  return set;
}

}  // namespace NScrivolt::Platform
