#include "platform/posix/windows1252.h"

namespace NScrivolt::Platform {

namespace {

constexpr char kDefaultChar = '?';
constexpr WChar kUndefined = 0;

// Bytes 0x80 to 0x9F; every other byte is the code point of the same number.
constexpr WChar kHighControls[32] = {
    0x20AC, kUndefined, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,
    0x02C6, 0x2030,     0x0160, 0x2039, 0x0152, kUndefined, 0x017D, kUndefined,
    kUndefined, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,
    0x02DC, 0x2122,     0x0161, 0x203A, 0x0153, kUndefined, 0x017E, 0x0178,
};

// Best fit for Latin Extended-A, U+0100 to U+017F; "?" has none. The seven
// letters of the block that the code page holds are found in kHighControls first.
constexpr char kLatinExtendedA[] =
    "AaAaAaCcCcCcCcDd"
    "DdEeEeEeEeEeGgGg"
    "GgGgHhHhIiIiIiIi"
    "Ii??JjKk?LlLlLlL"
    "lLlNnNnNn???OoOo"
    "Oo??RrRrRrSsSsSs"
    "??TtTtTtUuUuUuUu"
    "UuUuWwYy?ZzZz???";
static_assert(sizeof(kLatinExtendedA) == 0x80 + 1, "one letter per code point");

struct BestFit {
  WChar unit;
  char letter;
};

// Letters of Latin Extended-B in common use (Romanian, Vietnamese, pinyin).
constexpr BestFit kLatinExtendedB[] = {
    {0x01A0, 'O'}, {0x01A1, 'o'}, {0x01AF, 'U'}, {0x01B0, 'u'}, {0x01CD, 'A'}, {0x01CE, 'a'},
    {0x01CF, 'I'}, {0x01D0, 'i'}, {0x01D1, 'O'}, {0x01D2, 'o'}, {0x01D3, 'U'}, {0x01D4, 'u'},
    {0x01D5, 'U'}, {0x01D6, 'u'}, {0x01D7, 'U'}, {0x01D8, 'u'}, {0x01D9, 'U'}, {0x01DA, 'u'},
    {0x01DB, 'U'}, {0x01DC, 'u'}, {0x0218, 'S'}, {0x0219, 's'}, {0x021A, 'T'}, {0x021B, 't'},
};

bool IsUndefinedByte(unsigned char byte) {
  return byte >= 0x80 && byte < 0xA0 && kHighControls[byte - 0x80] == kUndefined;
}

// The byte for `unit`, or the default character when there is none.
char ByteFor(WChar unit, bool& usedDefaultChar) {
  if (unit < 0x80 || (unit >= 0xA0 && unit <= 0xFF)) return char(unit);
  for (int k = 0; k < 32; ++k) {
    if (kHighControls[k] == unit) return char(0x80 + k);
  }
  char letter = kDefaultChar;
  if (unit >= 0x100 && unit < 0x180) letter = kLatinExtendedA[unit - 0x100];
  for (const BestFit& fit : kLatinExtendedB) {
    if (fit.unit == unit) letter = fit.letter;
  }
  if (letter == kDefaultChar) usedDefaultChar = true;
  return letter;
}

}  // namespace

bool DecodeWindows1252(std::string_view bytes, WString& text) {
  const size_t start = text.size();
  text.resize(start + bytes.size());
  WChar* out = &text[start];
  for (const char c : bytes) {
    const auto byte = static_cast<unsigned char>(c);
    if (byte < 0x80 || byte >= 0xA0) {
      *out++ = byte;
    } else if (IsUndefinedByte(byte)) {
      text.resize(start);
      return false;
    } else {
      *out++ = kHighControls[byte - 0x80];
    }
  }
  return true;
}

void EncodeWindows1252(WStringView text, std::string& bytes, bool& usedDefaultChar) {
  usedDefaultChar = false;
  const size_t start = bytes.size();
  bytes.resize(start + text.size());
  char* out = &bytes[0] + start;
  for (const WChar unit : text) *out++ = ByteFor(unit, usedDefaultChar);
}

}  // namespace NScrivolt::Platform
