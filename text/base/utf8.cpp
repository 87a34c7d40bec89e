#include "text/base/utf8.h"

#include <algorithm>
#include <cstdint>
#include <cstring>

namespace NScrivolt {

namespace {

// Plain ASCII is converted sixteen bytes or eight units at a time; most text
// is mostly ASCII. The blocks go through local arrays, which lets the
// compiler widen and narrow them with vector instructions.
constexpr std::uint64_t kHighBitOfEachByte = 0x8080808080808080ull;
constexpr std::uint64_t kNonAsciiBitsOfEachUnit = 0xFF80FF80FF80FF80ull;

// Both directions convert into a local block of this many units (or three
// bytes a unit) and append the block to the result, so the result is never
// filled with zeros before it is written.
constexpr std::size_t kBlockUnits = 4096;

bool IsContinuation(unsigned char byte) { return (byte & 0xC0) == 0x80; }

// The continuation bytes a lead byte asks for; 0 for a byte that is a
// sequence of its own (ASCII) or can start none (it is malformed alone).
std::size_t ContinuationsWanted(unsigned char lead) {
  if (lead >= 0xC2 && lead <= 0xDF) return 1;
  if (lead >= 0xE0 && lead <= 0xEF) return 2;
  if (lead >= 0xF0 && lead <= 0xF4) return 3;
  return 0;
}

// Decodes one sequence starting at bytes[i]; returns the code point or -1 for
// a malformed sequence, and sets `length` to the bytes consumed (at least 1).
long DecodeOne(std::string_view bytes, size_t i, size_t& length) {
  const auto byte = [&](size_t k) { return static_cast<unsigned char>(bytes[k]); };
  const unsigned lead = byte(i);
  length = 1;
  if (lead < 0x80) return long(lead);
  const size_t need = ContinuationsWanted(byte(i));
  if (need == 0) return -1;
  constexpr unsigned long kMinimum[] = {0, 0x80, 0x800, 0x10000};
  unsigned long cp = lead & (0x7Fu >> (need + 1));
  for (size_t k = 1; k <= need; ++k) {
    if (i + k >= bytes.size() || !IsContinuation(byte(i + k))) {
      length = k;
      return -1;
    }
    cp = (cp << 6) | (byte(i + k) & 0x3F);
  }
  length = need + 1;
  if (cp < kMinimum[need] || cp > 0x10FFFF || (cp >= 0xD800 && cp <= 0xDFFF)) return -1;
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
  WChar* to = out;
  while (end - in >= 16) {
    unsigned char bytes[16];
    std::memcpy(bytes, in, sizeof bytes);
    std::uint64_t first;
    std::uint64_t second;
    std::memcpy(&first, bytes, 8);
    std::memcpy(&second, bytes + 8, 8);
    if ((first | second) & kHighBitOfEachByte) break;
    WChar units[16];
    for (int k = 0; k < 16; ++k) units[k] = bytes[k];
    std::memcpy(to, units, sizeof units);
    in += 16;
    to += 16;
  }
  while (in < end && *in < 0x80) *to++ = *in++;
  out = to;
  return in;
}

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

// The text never gains more units than there are bytes, so it is reserved
// once for that many.
bool Decode(std::string_view bytes, WString& text, bool strict) {
  const size_t start = text.size();
  text.reserve(start + bytes.size());
  const auto* const begin = reinterpret_cast<const unsigned char*>(bytes.data());
  const auto* const end = begin + bytes.size();
  const unsigned char* in = begin;
  WChar block[kBlockUnits];
  WChar* const blockEnd = block + kBlockUnits;
  while (in < end) {
    WChar* out = block;
    while (in < end && blockEnd - out >= 2) {  // a sequence writes at most two units
      const unsigned char* const asciiEnd = in + std::min(end - in, blockEnd - out);
      in = CopyAsciiRun(in, asciiEnd, out);
      if (in == asciiEnd || blockEnd - out < 2) continue;
      if (const size_t common = DecodeCommon(in, end, *out)) {
        in += common;
        ++out;
        continue;
      }
      size_t length;
      const long cp = DecodeOne(bytes, size_t(in - begin), length);
      if (cp < 0) {
        if (strict) {
          text.resize(start);
          return false;
        }
        *out++ = kReplacementChar;
      } else {
        out = PutCodePoint(out, static_cast<unsigned long>(cp));
      }
      in += length;
    }
    text.append(block, size_t(out - block));
  }
  return true;
}

// A whole conversion reserved one unit a byte; when mostly multi-byte
// sequences leave more than half of that unused, it is given back.
void GiveBackUnusedHalf(WString& text) {
  if (text.size() < text.capacity() / 2) text.shrink_to_fit();
}

bool IsHighSurrogate(WChar unit) { return unit >= 0xD800 && unit <= 0xDBFF; }
bool IsLowSurrogate(WChar unit) { return unit >= 0xDC00 && unit <= 0xDFFF; }
bool IsSurrogate(WChar unit) { return unit >= 0xD800 && unit <= 0xDFFF; }

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

// Copies the ASCII run at the start of [in, end) as bytes and returns where
// it stopped.
const WChar* NarrowAsciiRun(const WChar* in, const WChar* end, char*& out) {
  char* to = out;
  while (end - in >= 8) {
    WChar units[8];
    std::memcpy(units, in, sizeof units);
    std::uint64_t first;
    std::uint64_t second;
    std::memcpy(&first, units, 8);
    std::memcpy(&second, units + 4, 8);
    if ((first | second) & kNonAsciiBitsOfEachUnit) break;
    char narrow[8];
    for (int k = 0; k < 8; ++k) narrow[k] = char(units[k]);
    std::memcpy(to, narrow, sizeof narrow);
    in += 8;
    to += 8;
  }
  while (in < end && *in < 0x80) *to++ = char(*in++);
  out = to;
  return in;
}

}  // namespace

WString Utf8ToWide(std::string_view bytes) {
  WString text;
  Decode(bytes, text, false);
  GiveBackUnusedHalf(text);
  return text;
}

bool AppendUtf8AsWide(std::string_view bytes, WString& text, bool strict) { return Decode(bytes, text, strict); }

// Only the last three bytes can hold the start of a sequence that is cut
// off: the lead of the last sequence is found by stepping back over
// continuation bytes. When the last three bytes are all continuation bytes,
// whatever sequence they belong to is complete.
std::size_t Utf8CompletePrefix(std::string_view bytes) {
  const std::size_t size = bytes.size();
  for (std::size_t back = 1; back <= 3 && back <= size; ++back) {
    const auto byte = static_cast<unsigned char>(bytes[size - back]);
    if (IsContinuation(byte)) continue;
    return ContinuationsWanted(byte) >= back ? size - back : size;
  }
  return size;
}

std::string WideToUtf8(WStringView text, bool* replaced) {
  std::string bytes;
  AppendUtf8(text, bytes, replaced);
  return bytes;
}

// Each unit takes at most three bytes; a pair of surrogates takes four for
// its two units, and may reach one unit past the block's share of the text.
void AppendUtf8(WStringView text, std::string& bytes, bool* replaced) {
  bytes.reserve(bytes.size() + text.size());
  const WChar* in = text.data();
  const WChar* const end = in + text.size();
  char block[3 * kBlockUnits + 1];
  bool anyReplaced = false;
  while (in < end) {
    const WChar* const stop = in + std::min<std::ptrdiff_t>(end - in, kBlockUnits);
    char* out = block;
    while (in < stop) {
      in = NarrowAsciiRun(in, stop, out);
      if (in == stop) break;
      const WChar unit = *in;
      if (IsHighSurrogate(unit) && end - in >= 2 && IsLowSurrogate(in[1])) {
        out = PutUtf8(out, 0x10000 + ((unit - 0xD800ul) << 10) + (in[1] - 0xDC00ul));
        in += 2;
        continue;
      }
      anyReplaced |= IsSurrogate(unit);
      out = PutUtf8(out, IsSurrogate(unit) ? kReplacementChar : unit);
      ++in;
    }
    bytes.append(block, size_t(out - block));
  }
  if (replaced) *replaced = anyReplaced;
}

}  // namespace NScrivolt
