// The names a language module gives languages: its names list
// "EN:English~NL:Engels" says what its own language is called in each
// language, and the name shown for a module follows from it.
#pragma once

#include <map>

#include "text/base/wide_string.h"

namespace NScrivolt {

// Upper-case two-letter abbreviation -> the name in that language.
using LanguageNames = std::map<WString, WString>;

// A language abbreviation as the program compares them: upper case.
WString UpperCaseLanguage(WStringView abbreviation);

// Reads a names list: entries separated by "~", each two characters of
// abbreviation, a colon and the name. The first entry for an abbreviation
// wins; entries shorter than three characters are skipped.
LanguageNames ParseLanguageNames(WStringView list);

// The name of the language `ownAbbreviation` (whose names are `names`) to
// show in `displayLanguage`. With `withNative`, a display language other than
// the module's own adds the module's own name: "Engels (English)". Nothing
// known gives "<unknown>".
WString LanguageDisplayName(WStringView ownAbbreviation, const LanguageNames& names, WStringView displayLanguage,
                            bool withNative);

}  // namespace NScrivolt
