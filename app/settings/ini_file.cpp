#include "app/settings/ini_file.h"

#include <limits>
#include <string>
#include <utility>

#include "platform/files.h"

namespace NScrivolt {

namespace {

constexpr WStringView kLineEnd = u"\r\n";
constexpr WStringView kSectionGap = u"\r\n\r\n";

WStringView TrimBlanks(WStringView text) {
  while (!text.empty() && IsBlank(text.front())) text.remove_prefix(1);
  while (!text.empty() && IsBlank(text.back())) text.remove_suffix(1);
  return text;
}

// Reads like a 32-bit wide-text-to-unsigned-long conversion: leading white
// space, an optional sign (a minus negates modulo 2^32), decimal digits up
// to the first other unit; too many digits give the largest value.
std::uint32_t ReadUnsigned(WStringView text) {
  const WStringView trimmed = TrimBlanks(text);
  size_t i = 0;
  bool negative = false;
  if (i < trimmed.size() && (trimmed[i] == u'+' || trimmed[i] == u'-')) negative = trimmed[i++] == u'-';
  constexpr std::uint64_t kMax = std::numeric_limits<std::uint32_t>::max();
  std::uint64_t value = 0;
  for (; i < trimmed.size() && trimmed[i] >= u'0' && trimmed[i] <= u'9'; ++i) {
    value = value * 10 + std::uint64_t(trimmed[i] - u'0');
    if (value > kMax) return std::uint32_t(kMax);
  }
  return negative ? std::uint32_t(0 - value) : std::uint32_t(value);
}

// "[name]" with at least one unit between the brackets.
bool IsSectionHeader(WStringView line) {
  return line.size() >= 3 && line.front() == u'[' && line.back() == u']';
}

template <typename Entry>
Entry* FindOrCreate(std::map<WString, std::unique_ptr<Entry>>& entries, WStringView name, Lookup lookup) {
  WString key = ToLowerAscii(name);
  const auto found = entries.find(key);
  if (found != entries.end()) return found->second.get();
  if (lookup == Lookup::FindOnly) return nullptr;
  auto& entry = entries[std::move(key)];
  entry = std::make_unique<Entry>(WString(name));
  return entry.get();
}

}  // namespace

WString CINISetting::GetText(WStringView fallback) const { return value_.empty() ? WString(fallback) : value_; }

std::int32_t CINISetting::GetInt(std::int32_t fallback) const {
  return value_.empty() ? fallback : ReadInteger(value_);
}

std::uint32_t CINISetting::GetUnsigned(std::uint32_t fallback) const {
  return value_.empty() ? fallback : ReadUnsigned(value_);
}

void CINISetting::SetInt(std::int32_t value) { value_ = IntegerToText(value); }

CINISetting* CINISection::GetSetting(WStringView key, Lookup lookup) {
  return FindOrCreate(settings_, key, lookup);
}

CINISection* CINIFile::GetSection(WStringView name, Lookup lookup) {
  return FindOrCreate(sections_, name, lookup);
}

bool CINIFile::Read(const WString& path, EncodingType hint) {
  path_ = path;
  sections_.clear();
  std::string bytes;
  return Platform::ReadWholeFile(path, bytes) && ReadBytes(bytes, hint);
}

bool CINIFile::ReadBytes(std::string_view bytes, EncodingType hint) {
  sections_.clear();
  const EncodingInfo found = DetectEncoding(bytes, hint);
  DecodeResult decoded = DecodeBytes(bytes, found);
  if (!decoded.ok) return false;
  encoding_ = EncodingInfo{found.type, found.bom};
  Parse(decoded.text);
  return true;
}

// line      = section | setting | anything else (dropped)
// section   = "[" name "]"              whole line, at least three units
// setting   = key "=" value             key not empty before trimming
// Lines end at CR LF only; names, keys and values lose blanks at both ends.
void CINIFile::Parse(WStringView text) {
  CINISection* current = nullptr;
  while (!text.empty()) {
    const size_t end = text.find(kLineEnd);
    const WStringView line = text.substr(0, end);
    text.remove_prefix(end == WStringView::npos ? text.size() : end + kLineEnd.size());
    if (IsSectionHeader(line)) {
      current = GetSection(TrimBlanks(line.substr(1, line.size() - 2)), Lookup::Create);
      continue;
    }
    const size_t equals = line.find(u'=');
    if (current == nullptr || equals == 0 || equals == WStringView::npos) continue;
    current->GetSetting(TrimBlanks(line.substr(0, equals)), Lookup::Create)
        ->SetText(WString(TrimBlanks(line.substr(equals + 1))));
  }
}

WString CINIFile::ToText() const {
  WString text;
  for (const auto& [lowerName, section] : sections_) {
    if (!text.empty()) text += kSectionGap;
    text += u'[';
    text += section->Name();
    text += u']';
    for (const auto& [lowerKey, setting] : section->Settings()) {
      text += kLineEnd;
      text += setting->Key();
      text += u'=';
      text += setting->Value();
    }
  }
  return text;
}

bool CINIFile::ToBytes(std::string& bytes) const {
  EncodeResult encoded = EncodeText(ToText(), encoding_);
  if (!encoded.ok || encoded.usedDefaultChar) return false;
  bytes = std::move(encoded.bytes);
  return true;
}

bool CINIFile::Write(const WString* path) {
  const WString& target = path != nullptr ? *path : path_;
  std::string bytes;
  if (target.empty() || !ToBytes(bytes) || !Platform::WriteWholeFile(target, bytes)) return false;
  if (path != nullptr) path_ = *path;
  return true;
}

}  // namespace NScrivolt
