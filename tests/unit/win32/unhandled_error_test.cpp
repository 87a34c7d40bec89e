#include <gtest/gtest.h>

#include <windows.h>

#include <cstdint>
#include <cstdio>
#include <cstring>
#include <memory>
#include <string>

#include "app/services/exception_names.h"
#include "app/services/se_handler.h"
#include "app/services/unhandled_error.h"

namespace NScrivolt {
namespace {

EXCEPTION_RECORD Record(DWORD code, const void* address, std::initializer_list<ULONG_PTR> parameters = {}) {
  EXCEPTION_RECORD record = {};
  record.ExceptionCode = code;
  record.ExceptionAddress = const_cast<void*>(address);
  for (ULONG_PTR parameter : parameters) record.ExceptionInformation[record.NumberParameters++] = parameter;
  return record;
}

struct CNameCase {
  std::uint32_t code;
  const char16_t* name;
};

const CNameCase kNames[] = {
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
    {0xE06D7363, u"Unknown exception (E06D7363)"},
    {0x0000000A, u"Unknown exception (0000000A)"},
};

TEST(ExceptionNames, EveryCodeOfTheTableAndTheUnknownOnes) {
  for (const CNameCase& c : kNames) EXPECT_EQ(ExceptionName(c.code), c.name) << std::hex << c.code;
}

int CodeInThisProgram() { return 42; }

std::uintptr_t ThisProgramBase() { return reinterpret_cast<std::uintptr_t>(GetModuleHandleW(nullptr)); }

TEST(SEHandler, CodeOfTheProgramNamesItsFileAndItsOffset) {
  const void* address = reinterpret_cast<const void*>(&CodeInThisProgram);
  const CSEHandler fault(Record(0xC0000094, address));
  EXPECT_EQ(fault.GetModuleName(), u"scrivolt_tests.exe");
  EXPECT_EQ(fault.GetModuleOffset(), reinterpret_cast<std::uintptr_t>(address) - ThisProgramBase());
  EXPECT_TRUE(fault.IsContinuable());
}

TEST(SEHandler, CodeOfASystemModuleNamesThatModule) {
  const void* address = reinterpret_cast<const void*>(GetProcAddress(GetModuleHandleW(L"kernel32.dll"), "Sleep"));
  ASSERT_NE(address, nullptr);
  const CSEHandler fault(Record(0xC0000005, address));
  EXPECT_EQ(_wcsicmp(reinterpret_cast<const wchar_t*>(fault.GetModuleName().c_str()), L"kernel32.dll"), 0);
  EXPECT_EQ(fault.GetModuleOffset(),
            reinterpret_cast<std::uintptr_t>(address) -
                reinterpret_cast<std::uintptr_t>(GetModuleHandleW(L"kernel32.dll")));
}

TEST(SEHandler, AnAddressOutsideEveryModuleIsAnUnknownModule) {
  void* block = VirtualAlloc(nullptr, 8192, MEM_COMMIT | MEM_RESERVE, PAGE_READWRITE);
  ASSERT_NE(block, nullptr);
  const CSEHandler inBlock(Record(0xC0000005, static_cast<char*>(block) + 4100));
  EXPECT_EQ(inBlock.GetModuleName(), u"unknown module");
  EXPECT_EQ(inBlock.GetModuleOffset(), 4100u);
  VirtualFree(block, 0, MEM_RELEASE);

  const CSEHandler nowhere(Record(0xC0000005, reinterpret_cast<const void*>(0x10)));
  EXPECT_EQ(nowhere.GetModuleName(), u"unknown module");
}

TEST(SEHandler, KeepsTheAccessParametersAndTheFlags) {
  EXCEPTION_RECORD record = Record(0xC0000005, nullptr, {1, 0x1234});
  record.ExceptionFlags = EXCEPTION_NONCONTINUABLE;
  const CSEHandler fault(record);
  EXPECT_EQ(fault.GetAccessType(), 1u);
  EXPECT_EQ(fault.GetAccessAddress(), 0x1234u);
  EXPECT_FALSE(fault.IsContinuable());
  const CSEHandler without(Record(0xC0000005, nullptr));
  EXPECT_EQ(without.GetAccessType(), 0u) << "no parameters read as a read of address 0";
}

std::u16string Hex(std::uintptr_t value) {
  char digits[32];
  std::snprintf(digits, sizeof digits, "0x%08llX", static_cast<unsigned long long>(value));
  return std::u16string(digits, digits + std::strlen(digits));
}

TEST(UnhandledErrorText, AnAccessViolationSaysWhatWasAccessed) {
  const void* address = reinterpret_cast<const void*>(&CodeInThisProgram);
  const std::uintptr_t at = reinterpret_cast<std::uintptr_t>(address);
  struct {
    std::initializer_list<ULONG_PTR> parameters;
    const char16_t* access;
  } cases[] = {
      {{1, 0}, u";\ninvalid write of address 0x00000000."},
      {{0, 0xABC}, u";\ninvalid read of address 0x00000ABC."},
      {{8, 0x10}, u";\ninvalid write of address 0x00000010."},
  };
  for (const auto& c : cases) {
    const CSEHandler fault(Record(0xC0000005, address, c.parameters));
    EXPECT_EQ(UnhandledErrorText(fault),
              u"An unhandled error occurred.  Scrivolt will be closed automatically.\n\nThe error was: "
              u"Access violation at address " +
                  Hex(at) + u" in module \"scrivolt_tests.exe\" at offset " + Hex(at - ThisProgramBase()) +
                  c.access + u".\n\nPlease contact Fenwrights about this error.");
  }
}

TEST(UnhandledErrorText, OtherFaultsHaveNoAccessLine) {
  const CSEHandler fault(Record(0xE0000001, reinterpret_cast<const void*>(0x10), {1, 0}));
  EXPECT_EQ(UnhandledErrorText(fault),
            u"An unhandled error occurred.  Scrivolt will be closed automatically.\n\nThe error was: "
            u"Unknown exception (E0000001) at address 0x00000010 in module \"unknown module\" at offset "
            u"0x00000010.\n\nPlease contact Fenwrights about this error.");
}

}  // namespace
}  // namespace NScrivolt
