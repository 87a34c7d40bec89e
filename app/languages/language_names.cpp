#include "app/languages/language_names.h"

namespace NScrivolt {

namespace {

constexpr WChar kEntrySeparator = u'~';
constexpr size_t kAbbreviationLength = 2;
constexpr size_t kNameStart = 3;  // after the abbreviation and its colon

WStringView NameIn(const LanguageNames& names, WStringView language) {
  auto found = names.find(UpperCaseLanguage(language));
  return found == names.end() ? WStringView() : WStringView(found->second);
}

}  // namespace

WString UpperCaseLanguage(WStringView abbreviation) {
  WString upper(abbreviation);
  for (WChar& c : upper) c = UpperAscii(c);
  return upper;
}

LanguageNames ParseLanguageNames(WStringView list) {
  LanguageNames names;
  size_t start = 0;
  while (start <= list.size()) {
    size_t end = list.find(kEntrySeparator, start);
    if (end == WStringView::npos) end = list.size();
    const WStringView entry = list.substr(start, end - start);
    if (entry.size() >= kNameStart) {
      names.emplace(UpperCaseLanguage(entry.substr(0, kAbbreviationLength)), WString(entry.substr(kNameStart)));
    }
    start = end + 1;
  }
  return names;
}

WString LanguageDisplayName(WStringView ownAbbreviation, const LanguageNames& names, WStringView displayLanguage,
                            bool withNative) {
  WString name(NameIn(names, displayLanguage));
  const WStringView ownName = NameIn(names, ownAbbreviation);
  if (withNative && UpperCaseLanguage(displayLanguage) != UpperCaseLanguage(ownAbbreviation) && !ownName.empty()) {
    if (name.empty()) {
      name = ownName;
    } else {
      name.append(u" (").append(ownName).append(u")");
    }
  }
  return name.empty() ? WString(u"<unknown>") : name;
}

}  // namespace NScrivolt
