#include <gtest/gtest.h>

#include <windows.h>

#include "text/text.h"

namespace NScrivolt {
namespace {

// Real string resources loaded with LoadStringW: a text that fills the first
// buffer of 256 units exactly is loaded again with a larger buffer.
TEST(StringResourceLoading, LongMessagesAreReadCompletely) {
  const CResourceModule module(nullptr, nullptr);
  const WString digits = u"0123456789ABCDEFGHIJ";
  WString expected255;
  while (expected255.size() < 255) expected255 += digits;
  expected255.resize(255);
  WString expected256;
  while (expected256.size() < 256) expected256 += digits;
  expected256.resize(256);
  EXPECT_EQ(CText(MessageId(50255), module).str(), expected255);
  EXPECT_EQ(CText(MessageId(50256), module).str(), expected256);
}

// A language module that lacks a message: the executable's text is used.
TEST(StringResourceLoading, FallsBackToTheExecutable) {
  const HMODULE withoutOurTexts = GetModuleHandleW(L"kernel32.dll");
  const CResourceModule module(withoutOurTexts, Platform::ExecutableModule());
  EXPECT_EQ(CText(MsgNoInputFile, module).str(), u"No input file specified");
  const CResourceModule withoutFallback(withoutOurTexts, nullptr);
  EXPECT_EQ(CText(MsgNoInputFile, withoutFallback, u"default").str(), u"default");
}

}  // namespace
}  // namespace NScrivolt
