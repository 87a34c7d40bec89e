#include "app/services/html_help.h"

#include "platform/files.h"
#include "platform/win32/wide_cast.h"

// After <windows.h>, which it builds on.
#include <oleauto.h>

namespace NScrivolt {

namespace {

using Platform::AsWin;
using Platform::FromWin;

using HtmlHelpFunction = HWND(WINAPI*)(HWND, LPCWSTR, UINT, DWORD_PTR);

// The viewer's commands and its last-error record, as its interface defines
// them (the cross compiler's headers lack the record).
constexpr UINT kDisplayTopic = 0x0000;
constexpr UINT kGetLastError = 0x0014;

struct HelpLastError {
  int cbStruct;
  HRESULT hr;
  BSTR description;
};

constexpr wchar_t kHelpControlKey[] = L"CLSID\\{ADB880A6-D8FF-11CF-9377-00AA003B7A11}\\InprocServer32";
constexpr wchar_t kHelpControlLibrary[] = L"hhctrl.ocx";

// The library path registered for the help control; empty when there is none.
WString RegisteredHelpControl() {
  HKEY key = nullptr;
  if (RegOpenKeyExW(HKEY_CLASSES_ROOT, kHelpControlKey, 0, KEY_QUERY_VALUE, &key) != ERROR_SUCCESS) return WString();
  wchar_t value[MAX_PATH] = {};
  DWORD size = sizeof(value) - sizeof(wchar_t);
  DWORD type = 0;
  const LONG status = RegQueryValueExW(key, nullptr, nullptr, &type, reinterpret_cast<BYTE*>(value), &size);
  RegCloseKey(key);
  if (status != ERROR_SUCCESS || (type != REG_SZ && type != REG_EXPAND_SZ)) return WString();
  if (type == REG_SZ) return FromWin(value);
  wchar_t expanded[MAX_PATH] = {};
  const DWORD length = ExpandEnvironmentStringsW(value, expanded, MAX_PATH);
  return (length == 0 || length > MAX_PATH) ? WString() : WString(FromWin(expanded));
}

HMODULE LoadHelpControl() {
  const WString registered = RegisteredHelpControl();
  HMODULE library = registered.empty() ? nullptr : LoadLibraryW(AsWin(registered));
  return library != nullptr ? library : LoadLibraryW(kHelpControlLibrary);
}

// Loaded once and kept for the life of the process; null when neither the
// registered library nor the plain name loads.
HtmlHelpFunction HtmlHelpEntry() {
  static const HtmlHelpFunction entry = [] {
    const HMODULE library = LoadHelpControl();
    if (library == nullptr) return HtmlHelpFunction(nullptr);
    return reinterpret_cast<HtmlHelpFunction>(reinterpret_cast<void*>(GetProcAddress(library, "HtmlHelpW")));
  }();
  return entry;
}

}  // namespace

bool CHTMLHelp::SetFile(const WString& path) {
  fileExists_ = Platform::FileExists(path);
  file_ = fileExists_ ? path : WString();
  return !fileExists_;
}

CHTMLHelp::ShowResult CHTMLHelp::ShowTopic(const WString& page, const WString& windowName) {
  if (!fileExists_) return kNoHelpFile;
  const HtmlHelpFunction entry = HtmlHelpEntry();
  if (entry == nullptr) return kViewerFailed;
  WString request = file_ + u"::/" + page;
  if (!windowName.empty()) request += u">" + windowName;
  const HWND viewer = entry(GetDesktopWindow(), AsWin(request), kDisplayTopic, 0);
  return viewer != nullptr ? kShown : kViewerFailed;
}

WString CHTMLHelp::GetLastErrorText() const {
  const HtmlHelpFunction entry = HtmlHelpEntry();
  if (entry == nullptr) return WString();
  HelpLastError lastError = {};
  lastError.cbStruct = sizeof(lastError);
  entry(nullptr, nullptr, kGetLastError, reinterpret_cast<DWORD_PTR>(&lastError));
  WString text;
  if (FAILED(lastError.hr) && lastError.description != nullptr) text = FromWin(lastError.description);
  if (lastError.description != nullptr) SysFreeString(lastError.description);
  return text;
}

}  // namespace NScrivolt
