#include "app/services/exception_names.h"

#include "text/format.h"

namespace NScrivolt {

namespace {

struct CExceptionName {
  std::uint32_t code;
  WStringView name;
};

constexpr CExceptionName kNames[] = {
    {0xC0000005, u"Access violation"},
    {0xC000008C, u"Array bounds exceeded"},
    {0x80000003, u"Breakpoint"},
    {0x80000002, u"Datatype misalignment"},
    {0xC000008D, u"Float denormal operand"},
    {0xC000008E, u"Floating point divide by zero"},
    {0xC000008F, u"Floating point inexact result"},
    {0xC0000090, u"Floating point invalid operation"},
    {0xC0000091, u"Floating point overflow"},
    {0xC0000092, u"Floating point stack check"},
    {0xC0000093, u"Floating point underflow"},
    {0x80000001, u"Guard page"},
    {0xC000001D, u"Illegal instruction"},
    {0xC0000006, u"In page error"},
    {0xC0000094, u"Integer division by zero"},
    {0xC0000095, u"Integer overflow"},
    {0xC0000008, u"Invalid handle"},
    {0xC0000026, u"Invalid disposition"},
    {0xC0000025, u"Non-continuable exception"},
    {0xC0000096, u"Privileged instruction"},
    {0x80000004, u"Single step"},
    {0xC00000FD, u"Stack overflow"},
};

}  // namespace

WString ExceptionName(std::uint32_t code) {
  for (const CExceptionName& entry : kNames) {
    if (entry.code == code) return WString(entry.name);
  }
  return u"Unknown exception (" + FormatHex32(code).substr(2) + u")";
}

}  // namespace NScrivolt
