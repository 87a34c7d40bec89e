#include "text/encoding.h"

#include <algorithm>

#include "platform/codepage.h"

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
// loops have fixed shifts and compile to block moves.
template <bool kBigEndian>
void AppendUtf16(WStringView text, std::string& bytes) {
  constexpr int kFirst = kBigEndian ? 8 : 0;
  constexpr int kSecond = kBigEndian ? 0 : 8;
  const size_t start = bytes.size();
  bytes.resize(start + 2 * text.size());
  auto* out = reinterpret_cast<unsigned char*>(&bytes[0] + start);
  for (size_t i = 0; i < text.size(); ++i) {
    out[2 * i] = static_cast<unsigned char>(text[i] >> kFirst);
    out[2 * i + 1] = static_cast<unsigned char>(text[i] >> kSecond);
  }
}

template <bool kBigEndian>
WString Utf16ToWide(std::string_view bytes) {
  constexpr int kFirst = kBigEndian ? 8 : 0;
  constexpr int kSecond = kBigEndian ? 0 : 8;
  WString text(bytes.size() / 2, WChar(0));
  const auto* in = reinterpret_cast<const unsigned char*>(bytes.data());
  for (size_t i = 0; i < text.size(); ++i) {
    text[i] = WChar((in[2 * i] << kFirst) | (in[2 * i + 1] << kSecond));
  }
  return text;
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
  if (text.empty()) return result;
  switch (type) {
    case EncodingType::Ascii:
      result.ok = Platform::EncodeAnsi(text, result.bytes, result.usedDefaultChar);
      break;
    case EncodingType::Utf8:
      result.ok = Platform::EncodeUtf8(text, result.bytes);
      break;
    case EncodingType::Utf16:
      AppendUtf16<false>(text, result.bytes);
      break;
    case EncodingType::Utf16Be:
      AppendUtf16<true>(text, result.bytes);
      break;
  }
  if (!result.ok) std::string().swap(result.bytes);
  return result;
}

EncodeResult EncodeText(WStringView text, const EncodingInfo& encoding) {
  return EncodeText(text, encoding.type, encoding.bom);
}

DecodeResult DecodeBytes(std::string_view bytes, EncodingType type, std::uint32_t bomLength) {
  DecodeResult result;
  if (!IsKnownType(type)) {
    result.ok = false;
    return result;
  }
  bytes.remove_prefix(std::min<size_t>(bomLength, bytes.size()));
  if (bytes.empty()) return result;
  switch (type) {
    case EncodingType::Ascii:
      result.ok = Platform::DecodeAnsi(bytes, result.text);
      break;
    case EncodingType::Utf8:
      result.ok = Platform::DecodeUtf8(bytes, result.text);
      break;
    case EncodingType::Utf16:
      result.text = Utf16ToWide<false>(bytes);
      break;
    case EncodingType::Utf16Be:
      result.text = Utf16ToWide<true>(bytes);
      break;
  }
  if (!result.ok) WString().swap(result.text);
  return result;
}

DecodeResult DecodeBytes(std::string_view bytes, const EncodingInfo& encoding) {
  return DecodeBytes(bytes, encoding.type, encoding.bomLength);
}

}  // namespace NScrivolt
