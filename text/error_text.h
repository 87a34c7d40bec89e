// Error texts: empty on success; each error adds one line. Lines are joined
// by a carriage return and a line feed.
#pragma once

#include "text/base/wide_string.h"

namespace NScrivolt {

// Appends an explanation without a location: "\r\n- " and the detail. The
// break comes first even when the error text is still empty.
void AddErrorDetail(WString& errorText, WStringView detail);

}  // namespace NScrivolt
