// The script functions encode and decode: conversions between plain text
// and the escaped or structured forms of other formats, chosen by keyword.
#pragma once

#include "engine/functions/function.h"
#include "text/error_text.h"

namespace NScrivolt {

// decode what: T from: F [to: P] — T read in format F. Text formats give the
// plain text as output, or as P's value when "to" is given; structured
// formats fill P's sub-parameters and need "to". P is created and cleared
// before the keyword is looked at.
class CFunctionDecode : public CFunction {
 public:
  const CArgumentTable& Arguments() const override;
  CErrorText Execute(CProcessContext& context, WString& output) override;

 private:
  ArgumentSlot what_ = nullptr;
  ArgumentSlot from_ = nullptr;
  ArgumentSlot to_ = nullptr;
};

// encode what: V for: F — V (a text, or a parameter with its sub-parameters)
// written in format F.
class CFunctionEncode : public CFunction {
 public:
  const CArgumentTable& Arguments() const override;
  CErrorText Execute(CProcessContext& context, WString& output) override;

 private:
  ArgumentSlot what_ = nullptr;
  ArgumentSlot for_ = nullptr;
  // The value being encoded as UTF-16 when the node keeps it one byte a
  // unit; kept between calls so that its room is reused.
  WString scratch_;
};

}  // namespace NScrivolt
