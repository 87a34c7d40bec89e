// Writes the Windows string table resource from the message list, so that
// the Windows program carries exactly the texts the code was written against.
#include <cstdint>
#include <cstdio>
#include <string>

namespace {

struct Entry {
  std::uint32_t id;
  const char16_t* text;
};

constexpr Entry kEntries[] = {
#define MESSAGE(id, name, text) {id, text},
#include "text/message_list.h"
#undef MESSAGE
};

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

}  // namespace

int main(int argc, char** argv) {
  if (argc != 2) {
    std::fprintf(stderr, "usage: gen_string_table OUTPUT.rc\n");
    return 2;
  }
  std::FILE* out = std::fopen(argv[1], "wb");
  if (out == nullptr) {
    std::perror(argv[1]);
    return 1;
  }
  std::fprintf(out, "// Generated from text/message_list.h; do not edit.\n");
  std::fprintf(out, "LANGUAGE 9, 1\nSTRINGTABLE\nBEGIN\n");
  for (const Entry& entry : kEntries) {
    std::fprintf(out, "  %u, %s\n", unsigned(entry.id), RcLiteral(entry.text).c_str());
  }
  std::fprintf(out, "END\n");
  return std::fclose(out) == 0 ? 0 : 1;
}
