// Writes a Windows string table resource from one of the message lists, so
// that the program and its language modules carry exactly the texts written
// in the lists. A translated list is checked against the built-in English
// one first: a missing or unknown id, or a text that lost a placeholder,
// stops the build with one line per problem and writes nothing.
//
//   gen_string_table LANGUAGE PRIMARY-LANGUAGE-ID SUBLANGUAGE-ID OUTPUT.rc
//   gen_string_table nl 0x13 0x01 strings_nl.rc
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>

#include "languages/translation_check.h"

namespace {

using NScrivolt::Languages::CheckTranslation;
using NScrivolt::Languages::DescribeProblem;
using NScrivolt::Languages::kBuiltInCatalogue;
using NScrivolt::Languages::kTranslatedCatalogues;
using NScrivolt::Languages::MessageCatalogue;
using NScrivolt::Languages::MessageEntry;

constexpr unsigned long kMaxPrimaryLanguage = 0x3FF;
constexpr unsigned long kMaxSubLanguage = 0x3F;

// A resource-compiler wide string literal: printable ASCII as it is, the
// double quote doubled, everything else as a four-digit hexadecimal escape.
std::string RcLiteral(const char16_t* text) {
  std::string literal = "L\"";
  for (; *text != 0; ++text) {
    const char16_t c = *text;
    if (c == u'"') {
      literal += "\"\"";
    } else if (c >= 0x20 && c < 0x7F && c != u'\\') {
      literal += char(c);
    } else {
      char escape[8];
      std::snprintf(escape, sizeof escape, "\\x%04x", unsigned(c));
      literal += escape;
    }
  }
  return literal + "\"";
}

const MessageCatalogue* FindCatalogue(const char* code) {
  if (std::strcmp(code, kBuiltInCatalogue.code) == 0) return &kBuiltInCatalogue;
  for (const MessageCatalogue& catalogue : kTranslatedCatalogues) {
    if (std::strcmp(code, catalogue.code) == 0) return &catalogue;
  }
  return nullptr;
}

// A language or sublanguage id: a decimal or 0x-hexadecimal number up to
// `max`; false for anything else.
bool ParseLanguageId(const char* text, unsigned long max, unsigned long& value) {
  char* end = nullptr;
  errno = 0;
  value = std::strtoul(text, &end, 0);
  return *text != 0 && *text != '-' && *end == 0 && errno == 0 && value <= max;
}

// Prints every problem of a translated list; true when there was none.
bool TranslationIsComplete(const MessageCatalogue& catalogue) {
  if (&catalogue == &kBuiltInCatalogue) return true;
  const auto problems = CheckTranslation(kBuiltInCatalogue, catalogue);
  for (const auto& problem : problems) {
    std::fprintf(stderr, "gen_string_table: %s\n", DescribeProblem(problem, kBuiltInCatalogue, catalogue).c_str());
  }
  return problems.empty();
}

std::string StringTable(const MessageCatalogue& catalogue, unsigned long primary, unsigned long sub) {
  std::string rc = std::string("// Generated from ") + catalogue.listFile + "; do not edit.\n";
  rc += "LANGUAGE " + std::to_string(primary) + ", " + std::to_string(sub) + "\nSTRINGTABLE\nBEGIN\n";
  for (std::size_t i = 0; i < catalogue.count; ++i) {
    const MessageEntry& entry = catalogue.entries[i];
    rc += "  " + std::to_string(entry.id) + ", " + RcLiteral(entry.text) + "\n";
  }
  return rc + "END\n";
}

// Writes beside the target and renames, so a failed run leaves no partial
// resource file that a later build could take for finished.
bool WriteWhole(const std::string& path, const std::string& content) {
  const std::string temporary = path + ".part";
  std::FILE* out = std::fopen(temporary.c_str(), "wb");
  if (out == nullptr) {
    std::fprintf(stderr, "gen_string_table: cannot create %s: %s\n", temporary.c_str(), std::strerror(errno));
    return false;
  }
  const bool written = std::fwrite(content.data(), 1, content.size(), out) == content.size();
  if (std::fclose(out) != 0 || !written || std::rename(temporary.c_str(), path.c_str()) != 0) {
    std::fprintf(stderr, "gen_string_table: cannot write %s: %s\n", path.c_str(), std::strerror(errno));
    std::remove(temporary.c_str());
    return false;
  }
  return true;
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 5) {
    std::fprintf(stderr, "usage: gen_string_table LANGUAGE PRIMARY-LANGUAGE-ID SUBLANGUAGE-ID OUTPUT.rc\n");
    return 2;
  }
  const MessageCatalogue* catalogue = FindCatalogue(argv[1]);
  if (catalogue == nullptr) {
    std::fprintf(stderr, "gen_string_table: there is no message list for the language \"%s\"\n", argv[1]);
    return 2;
  }
  unsigned long primary = 0;
  unsigned long sub = 0;
  if (!ParseLanguageId(argv[2], kMaxPrimaryLanguage, primary) || !ParseLanguageId(argv[3], kMaxSubLanguage, sub)) {
    std::fprintf(stderr, "gen_string_table: \"%s %s\" is not a language id and sublanguage id (up to 0x3FF and 0x3F)\n",
                 argv[2], argv[3]);
    return 2;
  }
  if (!TranslationIsComplete(*catalogue)) {
    std::fprintf(stderr, "gen_string_table: %s not written; correct %s first\n", argv[4], catalogue->listFile);
    return 1;
  }
  return WriteWhole(argv[4], StringTable(*catalogue, primary, sub)) ? 0 : 1;
}
