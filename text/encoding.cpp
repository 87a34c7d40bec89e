#include "text/encoding.h"

#include <algorithm>

#include "platform/codepage.h"
#include "text/base/utf8.h"

namespace NScrivolt {

namespace {

struct EncodingKeyword {
  WStringView name;
  bool selectsType;
  EncodingType type;
};

constexpr EncodingKeyword kKeywords[] = {
    {u"auto", false, EncodingType::Ascii},  {u"ascii", true, EncodingType::Ascii},
    {u"utf8", true, EncodingType::Utf8},    {u"utf16", true, EncodingType::Utf16},
    {u"utf16le", true, EncodingType::Utf16}, {u"utf16be", true, EncodingType::Utf16Be},
};

// Indexed by the type's number.
constexpr WStringView kDisplayNames[kEncodingTypeCount] = {u"ASCII", u"UTF-8", u"UTF-16", u"UTF-16 BE"};
constexpr std::string_view kMarks[kEncodingTypeCount] = {"", "\xEF\xBB\xBF", "\xFF\xFE", "\xFE\xFF"};

bool IsKnownType(EncodingType type) { return static_cast<std::uint32_t>(type) < kEncodingTypeCount; }

bool StartsWith(std::string_view bytes, std::string_view prefix) {
  return bytes.substr(0, prefix.size()) == prefix;
}

EncodingInfo WithMark(EncodingType type, bool found) {
  return {type, true, static_cast<std::uint32_t>(ByteOrderMark(type).size()), found};
}

// Code units as byte pairs; the order of the two bytes is the only difference
// between the two UTF-16 forms. The order is a template argument so that the
// loops have fixed shifts. Both directions go through a local block that is
// appended to the result, so the result is never filled with zeros first.
constexpr size_t kBlockUnits = 4096;

template <bool kBigEndian>
void AppendUtf16(WStringView text, std::string& bytes) {
  constexpr int kFirst = kBigEndian ? 8 : 0;
  constexpr int kSecond = kBigEndian ? 0 : 8;
  bytes.reserve(bytes.size() + 2 * text.size());
  char block[2 * kBlockUnits];
  for (size_t done = 0; done < text.size();) {
    const size_t count = std::min(kBlockUnits, text.size() - done);
    for (size_t i = 0; i < count; ++i) {
      block[2 * i] = static_cast<char>(text[done + i] >> kFirst);
      block[2 * i + 1] = static_cast<char>(text[done + i] >> kSecond);
    }
    bytes.append(block, 2 * count);
    done += count;
  }
}

// An odd last byte is no unit and is left out.
template <bool kBigEndian>
void AppendUtf16AsWide(std::string_view bytes, WString& text) {
  constexpr int kFirst = kBigEndian ? 8 : 0;
  constexpr int kSecond = kBigEndian ? 0 : 8;
  const size_t units = bytes.size() / 2;
  text.reserve(text.size() + units);
  const auto* in = reinterpret_cast<const unsigned char*>(bytes.data());
  WChar block[kBlockUnits];
  for (size_t done = 0; done < units;) {
    const size_t count = std::min(kBlockUnits, units - done);
    for (size_t i = 0; i < count; ++i) {
      block[i] = WChar((in[2 * (done + i)] << kFirst) | (in[2 * (done + i) + 1] << kSecond));
    }
    text.append(block, count);
    done += count;
  }
}

}  // namespace

bool ParseEncodingName(WStringView name, EncodingType& type, bool& isExplicit) {
  isExplicit = true;
  for (const EncodingKeyword& keyword : kKeywords) {
    if (!EqualsIgnoreCase(name, keyword.name)) continue;
    if (keyword.selectsType) {
      type = keyword.type;
    } else {
      isExplicit = false;
    }
    return true;
  }
  return false;
}

WStringView EncodingDisplayName(EncodingType type) {
  return IsKnownType(type) ? kDisplayNames[static_cast<std::uint32_t>(type)] : WStringView();
}

std::string_view ByteOrderMark(EncodingType type) {
  return IsKnownType(type) ? kMarks[static_cast<std::uint32_t>(type)] : std::string_view();
}

EncodingInfo DetectEncoding(std::string_view bytes, EncodingType defaultType) {
  for (std::uint32_t number = 0; number < kEncodingTypeCount; ++number) {
    const auto type = static_cast<EncodingType>(number);
    const std::string_view mark = ByteOrderMark(type);
    if (!mark.empty() && StartsWith(bytes, mark)) return WithMark(type, true);
  }
  EncodingInfo info;
  info.type = defaultType;
  return info;
}

EncodingInfo CheckBom(std::string_view bytes, EncodingType type) {
  const std::string_view mark = ByteOrderMark(type);
  if (!mark.empty() && StartsWith(bytes, mark)) return WithMark(type, false);
  EncodingInfo info;
  info.type = type;
  return info;
}

EncodeResult EncodeText(WStringView text, EncodingType type, bool bom) {
  EncodeResult result;
  if (!IsKnownType(type)) {
    result.ok = false;
    return result;
  }
  if (bom) result.bytes = ByteOrderMark(type);
  result.ok = AppendEncoded(text, type, result.bytes, result.usedDefaultChar);
  if (!result.ok) std::string().swap(result.bytes);
  return result;
}

EncodeResult EncodeText(WStringView text, const EncodingInfo& encoding) {
  return EncodeText(text, encoding.type, encoding.bom);
}

DecodeResult DecodeBytes(std::string_view bytes, EncodingType type, std::uint32_t bomLength) {
  DecodeResult result;
  bytes.remove_prefix(std::min<size_t>(bomLength, bytes.size()));
  result.ok = AppendDecoded(bytes, type, result.text);
  return result;
}

DecodeResult DecodeBytes(std::string_view bytes, const EncodingInfo& encoding) {
  return DecodeBytes(bytes, encoding.type, encoding.bomLength);
}

bool AppendEncoded(WStringView text, EncodingType type, std::string& bytes, bool& usedDefaultChar) {
  usedDefaultChar = false;
  if (text.empty()) return IsKnownType(type);
  switch (type) {
    case EncodingType::Ascii:
      return Platform::EncodeAnsi(text, bytes, usedDefaultChar);
    case EncodingType::Utf8:
      return Platform::EncodeUtf8(text, bytes);
    case EncodingType::Utf16:
      AppendUtf16<false>(text, bytes);
      return true;
    case EncodingType::Utf16Be:
      AppendUtf16<true>(text, bytes);
      return true;
  }
  return false;
}

bool AppendDecoded(std::string_view bytes, EncodingType type, WString& text) {
  if (bytes.empty()) return IsKnownType(type);
  switch (type) {
    case EncodingType::Ascii:
      return Platform::DecodeAnsi(bytes, text);
    case EncodingType::Utf8:
      return Platform::DecodeUtf8(bytes, text);
    case EncodingType::Utf16:
      AppendUtf16AsWide<false>(bytes, text);
      return true;
    case EncodingType::Utf16Be:
      AppendUtf16AsWide<true>(bytes, text);
      return true;
  }
  return false;
}

std::size_t DecodablePrefix(std::string_view bytes, EncodingType type) {
  switch (type) {
    case EncodingType::Ascii:
      return Platform::AnsiCompletePrefix(bytes);
    case EncodingType::Utf8:
      return Utf8CompletePrefix(bytes);
    case EncodingType::Utf16:
    case EncodingType::Utf16Be:
      return bytes.size() & ~std::size_t(1);
  }
  return bytes.size();
}

}  // namespace NScrivolt
