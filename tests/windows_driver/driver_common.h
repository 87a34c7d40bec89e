// What the two Windows test drivers share: starting the program under test,
// reading windows' texts and classes, and finding a message box's text.
#pragma once

#include <windows.h>

#include <string>

namespace driver {

constexpr DWORD kPollMilliseconds = 20;
constexpr int kTimedOutExitCode = 124;
// The driver itself could not do its work (no program started): an exit code
// no program under test uses, so a test never mistakes it for the program's.
constexpr int kDriverFailedExitCode = 125;

// One argument quoted so that the usual splitting rules give it back unchanged.
inline std::wstring Quote(const std::wstring& argument) {
  if (!argument.empty() && argument.find_first_of(L" \t\"") == std::wstring::npos) return argument;
  std::wstring quoted = L"\"";
  size_t backslashes = 0;
  for (wchar_t c : argument) {
    if (c == L'\\') {
      ++backslashes;
      continue;
    }
    quoted.append(c == L'"' ? backslashes * 2 + 1 : backslashes, L'\\');
    backslashes = 0;
    quoted.push_back(c);
  }
  quoted.append(backslashes * 2, L'\\');
  return quoted + L"\"";
}

inline std::string Utf8(const std::wstring& text) {
  if (text.empty()) return std::string();
  const int size = WideCharToMultiByte(CP_UTF8, 0, text.data(), int(text.size()), nullptr, 0, nullptr, nullptr);
  std::string bytes(size_t(size), '\0');
  WideCharToMultiByte(CP_UTF8, 0, text.data(), int(text.size()), &bytes[0], size, nullptr, nullptr);
  return bytes;
}

inline std::wstring WindowText(HWND window) {
  std::wstring text(size_t(GetWindowTextLengthW(window)) + 1, L'\0');
  text.resize(size_t(GetWindowTextW(window, &text[0], int(text.size()))));
  return text;
}

inline std::wstring ClassName(HWND window) {
  wchar_t name[64] = {};
  GetClassNameW(window, name, 64);
  return name;
}

// The message text of a message box: its static control with the longest text
// (the icon is a static control too, without text).
inline BOOL CALLBACK CollectStaticText(HWND child, LPARAM found) {
  auto* text = reinterpret_cast<std::wstring*>(found);
  if (ClassName(child) == L"Static") {
    const std::wstring candidate = WindowText(child);
    if (candidate.size() > text->size()) *text = candidate;
  }
  return TRUE;
}

// The message text of a message box.
inline std::wstring BoxText(HWND box) {
  std::wstring text;
  EnumChildWindows(box, CollectStaticText, reinterpret_cast<LPARAM>(&text));
  return text;
}

}  // namespace driver
