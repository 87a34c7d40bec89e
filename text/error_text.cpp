#include "text/error_text.h"

namespace NScrivolt {

void AddErrorDetail(WString& errorText, WStringView detail) {
  errorText += u"\r\n- ";
  errorText += detail;
}

}  // namespace NScrivolt
