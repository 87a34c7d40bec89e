// The four file encodings, their byte-order marks, and conversion between
// bytes on disk and wide text. Newlines and every other character pass
// through unchanged; only the mark and the code-page rules touch the bytes.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "text/base/wide_string.h"

namespace NScrivolt {

// Stored and passed as numbers, so the values are fixed.
enum class EncodingType : std::uint32_t {
  Ascii = 0,    // the ANSI code page of the running thread, not 7-bit ASCII
  Utf8 = 1,
  Utf16 = 2,    // little-endian
  Utf16Be = 3,
};

constexpr std::uint32_t kEncodingTypeCount = 4;

// The encoding that travels with a text. The zero value (Ascii, no mark) is
// where every automatic detection starts.
struct EncodingInfo {
  EncodingType type = EncodingType::Ascii;
  bool bom = false;             // reading: a mark was there; writing: write one
  std::uint32_t bomLength = 0;  // mark bytes at the start of the data
  bool found = false;           // detection matched a mark
};

struct EncodeResult {
  bool ok = true;
  std::string bytes;
  bool usedDefaultChar = false;  // a character was not in the ANSI code page
};

struct DecodeResult {
  bool ok = true;
  WString text;
};

// Keywords, ignoring case: "auto", "ascii", "utf8", "utf16", "utf16le",
// "utf16be". "auto" sets isExplicit false and leaves type alone; a type
// keyword sets type; anything else returns false with type left alone.
// isExplicit is true for every name but "auto".
bool ParseEncodingName(WStringView name, EncodingType& type, bool& isExplicit);

// "ASCII", "UTF-8", "UTF-16", "UTF-16 BE"; empty for a number out of range.
WStringView EncodingDisplayName(EncodingType type);

// The type's byte-order mark; empty for Ascii.
std::string_view ByteOrderMark(EncodingType type);

// Only a mark decides: the first type whose mark begins the bytes, else
// defaultType without a mark.
EncodingInfo DetectEncoding(std::string_view bytes, EncodingType defaultType);

// Compares only `type`'s own mark; the result always has that type.
EncodingInfo CheckBom(std::string_view bytes, EncodingType type);

// The mark (when asked for) followed by the text in the type's form. For
// Ascii, characters outside the code page take their best-fit equivalent or
// the default character, and the latter sets usedDefaultChar. On failure ok
// is false and the bytes are empty.
EncodeResult EncodeText(WStringView text, EncodingType type, bool bom);
EncodeResult EncodeText(WStringView text, const EncodingInfo& encoding);

// Skips the first bomLength bytes and converts the rest. UTF-16 ignores an odd
// trailing byte; UTF-8 replaces malformed sequences; Ascii is strict, so a
// byte sequence invalid in the code page fails (ok false, text empty).
DecodeResult DecodeBytes(std::string_view bytes, EncodingType type, std::uint32_t bomLength);
DecodeResult DecodeBytes(std::string_view bytes, const EncodingInfo& encoding);

// The conversions of EncodeText and DecodeBytes without any mark, appending
// to what `bytes` or `text` holds, for texts converted piece by piece. False
// when the conversion fails; a failed decoding leaves `text` as it was.
bool AppendEncoded(WStringView text, EncodingType type, std::string& bytes, bool& usedDefaultChar);
bool AppendDecoded(std::string_view bytes, EncodingType type, WString& text);

// The length of the longest start of `bytes` that AppendDecoded converts to
// what the same bytes give within any longer data: it ends before a
// character whose bytes may go on past the end. Bytes decoded piece by piece,
// each piece cut there and the rest carried into the next, give the text
// that decoding them whole gives.
std::size_t DecodablePrefix(std::string_view bytes, EncodingType type);

}  // namespace NScrivolt
