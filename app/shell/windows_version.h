// Which Windows the program runs on, as one small code; versions older than
// Windows 2000 cannot run it.
#pragma once

#include <cstdint>

#include "text/base/wide_string.h"

namespace NScrivolt {

// The codes, oldest first. kNewerWindows stands for anything newer or unknown.
enum WindowsVersionCode : int {
  kWindows95 = 0,
  kWindows95OSR2 = 1,
  kWindows98 = 2,
  kWindows98SE = 3,
  kWindowsMe = 4,
  kWindowsNT3 = 5,
  kWindowsNT4 = 6,
  kWindows2000 = 7,
  kWindowsXP = 8,
  kWindowsServer2003 = 9,
  kWindowsVista = 10,
  kWindows7 = 11,
  kNewerWindows = 12,
};

constexpr int kOldestSupportedWindows = kWindows2000;

// The code of a version as the system reports it: the NT family or not,
// major and minor version, and the service string (whose second character
// tells the editions of Windows 95 and 98 apart).
int ClassifyWindowsVersion(bool isNT, std::uint32_t major, std::uint32_t minor, WStringView service);

// The code of the running system.
int CurrentWindowsVersion();

}  // namespace NScrivolt
