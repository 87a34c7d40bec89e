#include "text/text.h"

#include <algorithm>
#include <vector>

#include "text/built_in_strings.h"

namespace NScrivolt {

namespace {

constexpr int kFirstLoadBuffer = 256;

// Loads from one module; false when it does not have the message.
bool LoadFromModule(ModuleHandle module, MessageId id, WString& text) {
  if (module == nullptr) return false;
  EnsureBuiltInStrings();
  std::vector<WChar> buffer(kFirstLoadBuffer);
  for (;;) {
    const int size = int(buffer.size());
    const int loaded = Platform::LoadStringResource(module, id, buffer.data(), size);
    if (loaded <= 0) return false;
    if (loaded < size - 1) {
      text.assign(buffer.data(), size_t(loaded));
      return true;
    }
    buffer.resize(buffer.size() * 2);  // the text may have been cut: try again with more room
  }
}

}  // namespace

WString CText::Load(MessageId id, const CResourceModule& module, const WChar* defaultText) {
  WString text;
  if (LoadFromModule(module.Primary(), id, text)) return text;
  if (LoadFromModule(module.Fallback(), id, text)) return text;
  return defaultText != nullptr ? WString(defaultText) : WString();
}

CText::CText(MessageId id, const WChar* defaultText)
    : text_(Load(id, *GetCurrentResourceModule(), defaultText)) {}

CText::CText(MessageId id, const CResourceModule& module, const WChar* defaultText)
    : text_(Load(id, module, defaultText)) {}

CText::CText(const WChar* text) : text_(text != nullptr ? text : u"") {}

CText::CText(WString text) : text_(std::move(text)) {}

CText& CText::operator=(const WChar* text) {
  text_ = text != nullptr ? text : u"";
  return *this;
}

CText& CText::operator=(WString text) {
  text_ = std::move(text);
  return *this;
}

CText& CText::operator+=(WStringView text) {
  text_.append(text);
  return *this;
}

CText& CText::operator+=(const CText& text) { return *this += WStringView(text.text_); }

// Every occurrence goes through ReplaceAll, which builds the result once
// instead of shifting the rest of the text at each replacement.
CText& CText::Replace(WStringView placeholder, WStringView value, bool firstOnly) {
  if (placeholder.empty()) return *this;
  if (!firstOnly) {
    text_ = ReplaceAll(text_, placeholder, value);
    return *this;
  }
  const size_t position = text_.find(placeholder);
  if (position != WString::npos) text_.replace(position, placeholder.size(), value);
  return *this;
}

CText& CText::Replace(WStringView placeholder, const CText& value, bool firstOnly) {
  return Replace(placeholder, WStringView(value.text_), firstOnly);
}

CText& CText::Replace(WStringView placeholder, std::int32_t value, bool firstOnly) {
  return Replace(placeholder, WStringView(IntegerToText(value)), firstOnly);
}

CText& CText::Fill(std::initializer_list<Filler> fillers) {
  struct Slot {
    size_t position;
    const Filler* filler;
  };
  std::vector<Slot> slots;
  for (const Filler& filler : fillers) {
    const size_t position = filler.placeholder.empty() ? WString::npos : text_.find(filler.placeholder);
    if (position != WString::npos) slots.push_back({position, &filler});
  }
  std::sort(slots.begin(), slots.end(), [](const Slot& a, const Slot& b) { return a.position > b.position; });
  for (const Slot& slot : slots) text_.replace(slot.position, slot.filler->placeholder.size(), slot.filler->value);
  return *this;
}

}  // namespace NScrivolt
