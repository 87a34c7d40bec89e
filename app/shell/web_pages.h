// The program's pages on the web: the update page and the home page. The
// source word tells the site where the visitor came from ("menu", "about").
#pragma once

#include <windows.h>

#include "text/base/wide_string.h"

namespace NScrivolt {

void OpenUpdatePage(HWND owner, WStringView source);
void OpenHomePage(HWND owner, WStringView source);

}  // namespace NScrivolt
