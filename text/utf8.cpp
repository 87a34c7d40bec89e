#include "text/utf8.h"

namespace NScrivolt {

namespace {

// Decodes one sequence starting at bytes[i]; returns the code point or -1 for
// a malformed sequence, and sets `length` to the bytes consumed (at least 1).
long DecodeOne(std::string_view bytes, size_t i, size_t& length) {
  const auto byte = [&](size_t k) { return static_cast<unsigned char>(bytes[k]); };
  const unsigned lead = byte(i);
  length = 1;
  if (lead < 0x80) return long(lead);
  size_t need;
  unsigned long cp;
  unsigned long minimum;
  if (lead >= 0xC2 && lead <= 0xDF) { need = 1; cp = lead & 0x1F; minimum = 0x80; }
  else if (lead >= 0xE0 && lead <= 0xEF) { need = 2; cp = lead & 0x0F; minimum = 0x800; }
  else if (lead >= 0xF0 && lead <= 0xF4) { need = 3; cp = lead & 0x07; minimum = 0x10000; }
  else return -1;
  for (size_t k = 1; k <= need; ++k) {
    if (i + k >= bytes.size() || (byte(i + k) & 0xC0) != 0x80) {
      length = k;
      return -1;
    }
    cp = (cp << 6) | (byte(i + k) & 0x3F);
  }
  length = need + 1;
  if (cp < minimum || cp > 0x10FFFF || (cp >= 0xD800 && cp <= 0xDFFF)) return -1;
  return long(cp);
}

void AppendCodePoint(WString& text, unsigned long cp) {
  if (cp < 0x10000) {
    text.push_back(WChar(cp));
  } else {
    cp -= 0x10000;
    text.push_back(WChar(0xD800 + (cp >> 10)));
    text.push_back(WChar(0xDC00 + (cp & 0x3FF)));
  }
}

bool Decode(std::string_view bytes, WString& text, bool strict) {
  text.clear();
  text.reserve(bytes.size());
  for (size_t i = 0; i < bytes.size();) {
    size_t length;
    const long cp = DecodeOne(bytes, i, length);
    if (cp < 0) {
      if (strict) {
        text.clear();
        return false;
      }
      text.push_back(kReplacementChar);
    } else {
      AppendCodePoint(text, static_cast<unsigned long>(cp));
    }
    i += length;
  }
  return true;
}

}  // namespace

WString Utf8ToWide(std::string_view bytes) {
  WString text;
  Decode(bytes, text, false);
  return text;
}

bool Utf8ToWideStrict(std::string_view bytes, WString& text) { return Decode(bytes, text, true); }

std::string WideToUtf8(WStringView text, bool* replaced) {
  std::string bytes;
  bytes.reserve(text.size() + text.size() / 2);
  bool anyReplaced = false;
  for (size_t i = 0; i < text.size(); ++i) {
    unsigned long cp = text[i];
    if (cp >= 0xD800 && cp <= 0xDBFF && i + 1 < text.size() && text[i + 1] >= 0xDC00 &&
        text[i + 1] <= 0xDFFF) {
      cp = 0x10000 + ((cp - 0xD800) << 10) + (text[i + 1] - 0xDC00);
      ++i;
    } else if (cp >= 0xD800 && cp <= 0xDFFF) {
      cp = kReplacementChar;
      anyReplaced = true;
    }
    if (cp < 0x80) {
      bytes.push_back(char(cp));
    } else if (cp < 0x800) {
      bytes.push_back(char(0xC0 | (cp >> 6)));
      bytes.push_back(char(0x80 | (cp & 0x3F)));
    } else if (cp < 0x10000) {
      bytes.push_back(char(0xE0 | (cp >> 12)));
      bytes.push_back(char(0x80 | ((cp >> 6) & 0x3F)));
      bytes.push_back(char(0x80 | (cp & 0x3F)));
    } else {
      bytes.push_back(char(0xF0 | (cp >> 18)));
      bytes.push_back(char(0x80 | ((cp >> 12) & 0x3F)));
      bytes.push_back(char(0x80 | ((cp >> 6) & 0x3F)));
      bytes.push_back(char(0x80 | (cp & 0x3F)));
    }
  }
  if (replaced) *replaced = anyReplaced;
  return bytes;
}

}  // namespace NScrivolt
