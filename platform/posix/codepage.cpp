#include "platform/codepage.h"

#include "platform/posix/character_set.h"
#include "platform/posix/windows1252.h"
#include "text/base/utf8.h"

namespace NScrivolt::Platform {

bool DecodeAnsi(std::string_view bytes, WString& text) {
  if (LocaleCharacterSet() == AnsiCharacterSet::Windows1252) return DecodeWindows1252(bytes, text);
  return AppendUtf8AsWide(bytes, text, true);
}

// Windows-1252 has one byte per character.
std::size_t AnsiCompletePrefix(std::string_view bytes) {
  if (LocaleCharacterSet() == AnsiCharacterSet::Windows1252) return bytes.size();
  return Utf8CompletePrefix(bytes);
}

// In a UTF-8 locale every character is representable except a lone
// surrogate, which is written as U+FFFD, the set's default character.
bool EncodeAnsi(WStringView text, std::string& bytes, bool& usedDefaultChar) {
  if (LocaleCharacterSet() == AnsiCharacterSet::Windows1252) {
    EncodeWindows1252(text, bytes, usedDefaultChar);
  } else {
    AppendUtf8(text, bytes, &usedDefaultChar);
  }
  return true;
}

bool DecodeUtf8(std::string_view bytes, WString& text) { return AppendUtf8AsWide(bytes, text, false); }

bool EncodeUtf8(WStringView text, std::string& bytes) {
  AppendUtf8(text, bytes);
  return true;
}

}  // namespace NScrivolt::Platform
