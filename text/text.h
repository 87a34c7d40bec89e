// CText: a wide message text, loaded from the string table by id, with named
// placeholders such as "[FILEPATH]" filled by Replace.
#pragma once

#include <cstdint>
#include <initializer_list>

#include "text/message_ids.h"
#include "text/resource_module.h"
#include "text/base/wide_string.h"

namespace NScrivolt {

class CText {
 public:
  CText() = default;
  // Loads message `id` through the current resource module; when neither of
  // its modules has it, the text is `defaultText` (empty for null).
  explicit CText(MessageId id, const WChar* defaultText = nullptr);
  CText(MessageId id, const CResourceModule& module, const WChar* defaultText = nullptr);
  CText(const WChar* text);  // null gives the empty text
  CText(WString text);
  CText(const CText&) = default;
  CText(CText&&) = default;
  CText& operator=(const CText&) = default;
  CText& operator=(CText&&) = default;
  CText& operator=(const WChar* text);
  CText& operator=(WString text);
  virtual ~CText() = default;

  CText& operator+=(WStringView text);
  CText& operator+=(const CText& text);

  const WChar* c_str() const { return text_.c_str(); }
  const WString& str() const { return text_; }
  operator const WString&() const { return text_; }
  bool empty() const { return text_.empty(); }

  // Replaces `placeholder` by `value`, searching on behind each inserted value
  // so a value holding the placeholder is not expanded again. With firstOnly
  // only the first occurrence is replaced. A missing placeholder changes nothing.
  CText& Replace(WStringView placeholder, WStringView value, bool firstOnly = true);
  CText& Replace(WStringView placeholder, const CText& value, bool firstOnly = true);
  CText& Replace(WStringView placeholder, const WChar* value, bool firstOnly = true) {
    return Replace(placeholder, WStringView(value), firstOnly);
  }
  CText& Replace(WStringView placeholder, const WString& value, bool firstOnly = true) {
    return Replace(placeholder, WStringView(value), firstOnly);
  }
  CText& Replace(WStringView placeholder, std::int32_t value, bool firstOnly = true);

  struct Filler {
    WStringView placeholder;
    WStringView value;
  };
  // Fills the first occurrence of each placeholder. The placeholders are
  // filled from the last one in the text to the first, so a value that holds
  // another placeholder's name is never mistaken for that placeholder.
  CText& Fill(std::initializer_list<Filler> fillers);

  // Loads by the rules of a resource module: the primary module with a buffer
  // of 256 units, doubled while a load fills it; then the fallback; then the default.
  static WString Load(MessageId id, const CResourceModule& module, const WChar* defaultText);

 private:
  WString text_;
};

}  // namespace NScrivolt
