#include "app/shell/windows_version.h"

#include <windows.h>

#include "platform/win32/wide_cast.h"

namespace NScrivolt {

namespace {

WChar SecondCharacter(WStringView service) { return service.size() >= 2 ? service[1] : WChar(0); }

int ClassifyWindows9x(std::uint32_t major, std::uint32_t minor, WStringView service) {
  if (major > 4) return kNewerWindows;
  if (major < 4) return kWindows95;
  const WChar edition = SecondCharacter(service);
  switch (minor) {
    case 0: return (edition == u'B' || edition == u'C') ? kWindows95OSR2 : kWindows95;
    case 10: return edition == u'A' ? kWindows98SE : kWindows98;
    case 90: return kWindowsMe;
    default: return kWindows95;
  }
}

int ClassifyWindowsNT(std::uint32_t major, std::uint32_t minor) {
  if (major <= 3) return kWindowsNT3;
  if (major == 4) return kWindowsNT4;
  if (major == 5 && minor <= 2) return kWindows2000 + int(minor);
  if (major == 6 && minor <= 1) return kWindowsVista + int(minor);
  return kNewerWindows;
}

}  // namespace

int ClassifyWindowsVersion(bool isNT, std::uint32_t major, std::uint32_t minor, WStringView service) {
  return isNT ? ClassifyWindowsNT(major, minor) : ClassifyWindows9x(major, minor, service);
}

int CurrentWindowsVersion() {
  OSVERSIONINFOW info = {};
  info.dwOSVersionInfoSize = sizeof info;
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wdeprecated-declarations"
  if (!GetVersionExW(&info)) return kNewerWindows;
#pragma GCC diagnostic pop
  return ClassifyWindowsVersion(info.dwPlatformId == VER_PLATFORM_WIN32_NT, info.dwMajorVersion, info.dwMinorVersion,
                                Platform::FromWin(info.szCSDVersion));
}

}  // namespace NScrivolt
