// Wide text crosses to the Windows API without conversion: both are UTF-16.
#pragma once

#include <windows.h>

#include "text/base/wide_string.h"

namespace NScrivolt::Platform {

static_assert(sizeof(wchar_t) == sizeof(WChar), "Windows wide text is UTF-16");

inline const wchar_t* AsWin(const WString& text) { return reinterpret_cast<const wchar_t*>(text.c_str()); }
inline wchar_t* AsWin(WChar* text) { return reinterpret_cast<wchar_t*>(text); }
inline const WChar* FromWin(const wchar_t* text) { return reinterpret_cast<const WChar*>(text); }

}  // namespace NScrivolt::Platform
