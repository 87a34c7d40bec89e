#include "text/utf8.h"

#include <cstdint>
#include <cstring>

namespace NScrivolt {

namespace {

// Plain ASCII is copied eight bytes or units at a time; most text is mostly ASCII.
constexpr std::uint64_t kHighBitOfEachByte = 0x8080808080808080ull;
constexpr std::uint64_t kNonAsciiBitsOfEachUnit = 0xFF80FF80FF80FF80ull;

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

WChar* PutCodePoint(WChar* out, unsigned long cp) {
  if (cp < 0x10000) {
    *out++ = WChar(cp);
  } else {
    cp -= 0x10000;
    *out++ = WChar(0xD800 + (cp >> 10));
    *out++ = WChar(0xDC00 + (cp & 0x3FF));
  }
  return out;
}

// Copies the ASCII run at the start of [in, end) and returns where it stopped.
const unsigned char* CopyAsciiRun(const unsigned char* in, const unsigned char* end, WChar*& out) {
  while (end - in >= 8) {
    std::uint64_t block;
    std::memcpy(&block, in, 8);
    if (block & kHighBitOfEachByte) break;
    for (int k = 0; k < 8; ++k) out[k] = in[k];
    in += 8;
    out += 8;
  }
  while (in < end && *in < 0x80) *out++ = *in++;
  return in;
}

bool IsContinuation(unsigned char byte) { return (byte & 0xC0) == 0x80; }

// The two- and three-byte forms of the Basic Multilingual Plane, well formed,
// decoded in line; 0 for anything else, which DecodeOne then handles.
size_t DecodeCommon(const unsigned char* in, const unsigned char* end, WChar& unit) {
  const unsigned lead = in[0];
  if (lead >= 0xC2 && lead <= 0xDF && end - in >= 2 && IsContinuation(in[1])) {
    unit = WChar(((lead & 0x1F) << 6) | (in[1] & 0x3F));
    return 2;
  }
  if (lead >= 0xE0 && lead <= 0xEF && end - in >= 3 && IsContinuation(in[1]) && IsContinuation(in[2])) {
    const unsigned cp = ((lead & 0x0F) << 12) | ((in[1] & 0x3Fu) << 6) | (in[2] & 0x3Fu);
    if (cp < 0x800 || (cp >= 0xD800 && cp <= 0xDFFF)) return 0;
    unit = WChar(cp);
    return 3;
  }
  return 0;
}

// The text never has more units than the bytes, so it is sized once up front;
// when mostly multi-byte sequences leave more than half of it unused, it is
// given back.
bool Decode(std::string_view bytes, WString& text, bool strict) {
  text.assign(bytes.size(), WChar(0));
  const auto* begin = reinterpret_cast<const unsigned char*>(bytes.data());
  const auto* end = begin + bytes.size();
  WChar* const first = &text[0];
  WChar* out = first;
  const unsigned char* in = begin;
  while (in < end) {
    in = CopyAsciiRun(in, end, out);
    if (in == end) break;
    if (const size_t common = DecodeCommon(in, end, *out)) {
      in += common;
      ++out;
      continue;
    }
    size_t length;
    const long cp = DecodeOne(bytes, size_t(in - begin), length);
    if (cp < 0) {
      if (strict) {
        WString().swap(text);
        return false;
      }
      *out++ = kReplacementChar;
    } else {
      out = PutCodePoint(out, static_cast<unsigned long>(cp));
    }
    in += length;
  }
  text.resize(size_t(out - first));
  if (text.size() < bytes.size() / 2) text.shrink_to_fit();
  return true;
}

bool IsHighSurrogate(WChar unit) { return unit >= 0xD800 && unit <= 0xDBFF; }
bool IsLowSurrogate(WChar unit) { return unit >= 0xDC00 && unit <= 0xDFFF; }
bool IsSurrogate(WChar unit) { return unit >= 0xD800 && unit <= 0xDFFF; }

bool StartsPair(WStringView text, size_t i) {
  return IsHighSurrogate(text[i]) && i + 1 < text.size() && IsLowSurrogate(text[i + 1]);
}

bool IsAsciiBlock(const WChar* units) {
  std::uint64_t block;
  std::memcpy(&block, units, 8);
  return (block & kNonAsciiBitsOfEachUnit) == 0;
}

// Bytes per unit: 1 below U+0080, 2 below U+0800, else 3; a surrogate pair
// takes 4 together, a lone surrogate 3 (it becomes U+FFFD).
size_t Utf8Length(WStringView text) {
  size_t length = 0;
  size_t i = 0;
  while (i < text.size()) {
    if (text.size() - i >= 4 && IsAsciiBlock(&text[i])) {
      length += 4;
      i += 4;
      continue;
    }
    const WChar unit = text[i];
    length += unit < 0x80 ? 1 : unit < 0x800 ? 2 : 3;
    if (StartsPair(text, i)) {
      ++length;
      ++i;
    }
    ++i;
  }
  return length;
}

char* PutUtf8(char* out, unsigned long cp) {
  if (cp < 0x800) {
    *out++ = char(0xC0 | (cp >> 6));
    *out++ = char(0x80 | (cp & 0x3F));
  } else if (cp < 0x10000) {
    *out++ = char(0xE0 | (cp >> 12));
    *out++ = char(0x80 | ((cp >> 6) & 0x3F));
    *out++ = char(0x80 | (cp & 0x3F));
  } else {
    *out++ = char(0xF0 | (cp >> 18));
    *out++ = char(0x80 | ((cp >> 12) & 0x3F));
    *out++ = char(0x80 | ((cp >> 6) & 0x3F));
    *out++ = char(0x80 | (cp & 0x3F));
  }
  return out;
}

// Copies the ASCII run at text[i...] and returns the index where it stopped.
size_t NarrowAsciiRun(WStringView text, size_t i, char*& out) {
  while (text.size() - i >= 4 && IsAsciiBlock(&text[i])) {
    for (int k = 0; k < 4; ++k) out[k] = char(text[i + k]);
    i += 4;
    out += 4;
  }
  while (i < text.size() && text[i] < 0x80) *out++ = char(text[i++]);
  return i;
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
  AppendUtf8(text, bytes, replaced);
  return bytes;
}

void AppendUtf8(WStringView text, std::string& bytes, bool* replaced) {
  const size_t start = bytes.size();
  bytes.resize(start + Utf8Length(text));
  char* out = &bytes[0] + start;
  bool anyReplaced = false;
  for (size_t i = 0; i < text.size();) {
    i = NarrowAsciiRun(text, i, out);
    if (i == text.size()) break;
    const WChar unit = text[i];
    if (StartsPair(text, i)) {
      out = PutUtf8(out, 0x10000 + ((unit - 0xD800ul) << 10) + (text[i + 1] - 0xDC00ul));
      i += 2;
      continue;
    }
    anyReplaced |= IsSurrogate(unit);
    out = PutUtf8(out, IsSurrogate(unit) ? kReplacementChar : unit);
    ++i;
  }
  if (replaced) *replaced = anyReplaced;
}

}  // namespace NScrivolt
