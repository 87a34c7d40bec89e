// Every message list of the program as a table: the built-in English one and
// the translations that become language modules. The string-table generator
// and the unit tests read the lists from here, so both see the same texts.
#pragma once

#include <cstddef>
#include <cstdint>
#include <iterator>

namespace NScrivolt::Languages {

struct MessageEntry {
  std::uint32_t id;
  const char* name;
  const char16_t* text;
};

struct MessageCatalogue {
  const char* code;      // the argument that selects it, such as "nl"
  const char* language;  // its language in English, for reports
  const char* listFile;  // where its texts are written, for reports
  const MessageEntry* entries;
  std::size_t count;
};

inline constexpr MessageEntry kEnglishMessages[] = {
#define MESSAGE(id, name, text) {id, #name, text},
#include "text/message_list.h"
#undef MESSAGE
};

inline constexpr MessageEntry kDutchMessages[] = {
#define MESSAGE(id, name, text) {id, #name, text},
#include "languages/nl/message_list.h"
#undef MESSAGE
};

// The built-in list, against which every translation is checked.
inline constexpr MessageCatalogue kBuiltInCatalogue = {
    "en", "English", "text/message_list.h", kEnglishMessages, std::size(kEnglishMessages)};

inline constexpr MessageCatalogue kTranslatedCatalogues[] = {
    {"nl", "Dutch", "languages/nl/message_list.h", kDutchMessages, std::size(kDutchMessages)},
};

}  // namespace NScrivolt::Languages
