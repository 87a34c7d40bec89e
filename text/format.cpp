#include "text/format.h"

#include "platform/error_text.h"

namespace NScrivolt {

WString FormatHex32(std::uint32_t value) {
  static constexpr char16_t kDigits[] = u"0123456789ABCDEF";
  WString text = u"0x";
  for (int shift = 28; shift >= 0; shift -= 4) text.push_back(kDigits[(value >> shift) & 0xF]);
  return text;
}

WString FormatHexAddress(std::uint64_t value) {
  WString text = FormatHex32(std::uint32_t(value));
  for (std::uint64_t high = value >> 32; high != 0; high >>= 4) {
    text.insert(2, 1, u"0123456789ABCDEF"[high & 0xF]);
  }
  return text;
}

void FormatWindowsErrorText(CText& message, WStringView placeholder, std::uint32_t errorCode,
                            const CText& defaultText, bool firstOnly) {
  WString description;
  if (!Platform::SystemErrorDescription(errorCode, description)) description = defaultText.str();
  const WString text = IntegerToText(errorCode) + u" - " + description;
  message.Replace(placeholder, WStringView(text), firstOnly);
}

void FormatWindowsErrorText(CText& message, WStringView placeholder, const CText& defaultText,
                            bool firstOnly) {
  FormatWindowsErrorText(message, placeholder, Platform::LastErrorCode(), defaultText, firstOnly);
}

MessageId ShellExecuteErrorMessageId(std::intptr_t result) {
  if (result > 32) return MsgShellNoError;
  switch (result) {
    case 0: return MsgShellOutOfResources;
    case 2: return MsgShellFileNotFound;
    case 3: return MsgShellPathNotFound;
    case 5: return MsgShellAccessDenied;
    case 8: return MsgShellOutOfMemory;
    case 11: return MsgShellBadFormat;
    case 26: return MsgShellSharingViolation;
    case 27: return MsgShellAssociationIncomplete;
    case 28: return MsgShellDdeTimeout;
    case 29: return MsgShellDdeFailed;
    case 30: return MsgShellDdeBusy;
    case 31: return MsgShellNoAssociation;
    case 32: return MsgShellDllNotFound;
    default: return MsgShellUnknownError;
  }
}

}  // namespace NScrivolt
