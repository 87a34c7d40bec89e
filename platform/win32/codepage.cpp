#include "platform/codepage.h"

#include <climits>

#include "platform/win32/wide_cast.h"
#include "text/base/utf8.h"

namespace NScrivolt::Platform {

namespace {

// The code page CP_THREAD_ACP stands for, to tell the UTF-8 code page apart:
// that one takes no default character and no report of its use.
UINT ThreadCodePage() {
  CPINFOEXW info;
  return GetCPInfoExW(CP_THREAD_ACP, 0, &info) ? info.CodePage : GetACP();
}

// No code page the system offers as ANSI or UTF-8 turns one byte into more
// than one unit, so the text grows once by the byte count; should that ever
// be short, the system is asked for the size.
bool DecodeWith(UINT codePage, DWORD flags, std::string_view bytes, WString& text) {
  if (bytes.size() > size_t(INT_MAX)) return false;
  const size_t start = text.size();
  const int byteCount = int(bytes.size());
  text.resize(start + bytes.size());
  int length = MultiByteToWideChar(codePage, flags, bytes.data(), byteCount, AsWin(&text[start]), byteCount);
  if (length == 0 && GetLastError() == ERROR_INSUFFICIENT_BUFFER) {
    length = MultiByteToWideChar(codePage, flags, bytes.data(), byteCount, nullptr, 0);
    if (length > 0) {
      text.resize(start + size_t(length));
      length = MultiByteToWideChar(codePage, flags, bytes.data(), byteCount, AsWin(&text[start]), length);
    }
  }
  text.resize(start + (length > 0 ? size_t(length) : 0));
  return length > 0;
}

// A double-byte code page has to be walked from a character boundary: a lead
// byte takes the byte after it, whatever that byte is.
std::size_t DoubleByteCompletePrefix(UINT codePage, std::string_view bytes) {
  std::size_t at = 0;
  while (at < bytes.size()) {
    const std::size_t length = IsDBCSLeadByteEx(codePage, BYTE(bytes[at])) ? 2 : 1;
    if (at + length > bytes.size()) break;
    at += length;
  }
  return at;
}

// The system measures the bytes first, so the buffer is exactly the size needed.
bool EncodeWith(UINT codePage, WStringView text, std::string& bytes, BOOL* usedDefaultChar) {
  if (text.size() > size_t(INT_MAX)) return false;
  const auto* units = reinterpret_cast<const wchar_t*>(text.data());
  const int unitCount = int(text.size());
  const int needed = WideCharToMultiByte(codePage, 0, units, unitCount, nullptr, 0, nullptr, usedDefaultChar);
  if (needed <= 0) return false;
  const size_t start = bytes.size();
  bytes.resize(start + size_t(needed));
  const int written =
      WideCharToMultiByte(codePage, 0, units, unitCount, &bytes[start], needed, nullptr, usedDefaultChar);
  bytes.resize(start + (written > 0 ? size_t(written) : 0));
  return written > 0;
}

}  // namespace

bool DecodeAnsi(std::string_view bytes, WString& text) {
  return DecodeWith(CP_THREAD_ACP, MB_ERR_INVALID_CHARS, bytes, text);
}

std::size_t AnsiCompletePrefix(std::string_view bytes) {
  const UINT codePage = ThreadCodePage();
  if (codePage == CP_UTF8) return Utf8CompletePrefix(bytes);
  CPINFO info;
  if (GetCPInfo(codePage, &info) && info.MaxCharSize == 1) return bytes.size();
  return DoubleByteCompletePrefix(codePage, bytes);
}

// A lone surrogate is the only thing UTF-8 cannot hold; it counts as not
// representable, as a character outside any other code page does.
bool EncodeAnsi(WStringView text, std::string& bytes, bool& usedDefaultChar) {
  if (ThreadCodePage() == CP_UTF8) {
    AppendUtf8(text, bytes, &usedDefaultChar);
    return true;
  }
  BOOL used = FALSE;
  const bool ok = EncodeWith(CP_THREAD_ACP, text, bytes, &used);
  usedDefaultChar = used != FALSE;
  return ok;
}

bool DecodeUtf8(std::string_view bytes, WString& text) { return DecodeWith(CP_UTF8, 0, bytes, text); }

bool EncodeUtf8(WStringView text, std::string& bytes) { return EncodeWith(CP_UTF8, text, bytes, nullptr); }

}  // namespace NScrivolt::Platform
