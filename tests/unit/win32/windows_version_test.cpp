#include "app/shell/windows_version.h"

#include <gtest/gtest.h>

namespace NScrivolt {
namespace {

TEST(WindowsVersion, EveryRowOfTheTable) {
  const struct {
    bool isNT;
    std::uint32_t major, minor;
    const char16_t* service;
    int code;
  } cases[] = {
      {false, 4, 0, u" B", kWindows95OSR2}, {false, 4, 0, u" C", kWindows95OSR2}, {false, 4, 0, u" A", kWindows95},
      {false, 4, 0, u"", kWindows95},       {false, 4, 10, u" A", kWindows98SE}, {false, 4, 10, u" B", kWindows98},
      {false, 4, 90, u"", kWindowsMe},      {false, 4, 20, u"", kWindows95},    {false, 3, 95, u"", kWindows95},
      {false, 5, 0, u"", kNewerWindows},    {true, 3, 51, u"", kWindowsNT3},    {true, 2, 0, u"", kWindowsNT3},
      {true, 4, 0, u"", kWindowsNT4},       {true, 5, 0, u"", kWindows2000},    {true, 5, 1, u"", kWindowsXP},
      {true, 5, 2, u"", kWindowsServer2003}, {true, 5, 3, u"", kNewerWindows},  {true, 6, 0, u"", kWindowsVista},
      {true, 6, 1, u"", kWindows7},         {true, 6, 2, u"", kNewerWindows},   {true, 10, 0, u"", kNewerWindows},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(ClassifyWindowsVersion(c.isNT, c.major, c.minor, c.service), c.code)
        << c.isNT << " " << c.major << "." << c.minor;
  }
  EXPECT_GE(CurrentWindowsVersion(), kOldestSupportedWindows);
}

}  // namespace
}  // namespace NScrivolt
