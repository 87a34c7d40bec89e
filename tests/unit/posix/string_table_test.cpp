#include <gtest/gtest.h>

#include "platform/posix/string_table.h"
#include "text/text.h"

namespace NScrivolt {
namespace {

const WString k255(255, u'x');
const WString k256(256, u'y');
const Platform::StringTableEntry kEntries[] = {{50255, k255.c_str()}, {50256, k256.c_str()}};
const Platform::StringTable kTable{kEntries, 2};

// A text that fills the first load buffer exactly is loaded again with a
// larger buffer, so nothing is cut.
TEST(StringTableLoading, LongMessagesAreReadCompletely) {
  const CResourceModule module(&kTable, nullptr);
  EXPECT_EQ(CText(MessageId(50255), module).str(), k255);
  EXPECT_EQ(CText(MessageId(50256), module).str(), k256);
}

TEST(StringTableLoading, LanguageModuleFallsBackToExecutable) {
  const CResourceModule module(&kTable, Platform::ExecutableModule());
  EXPECT_EQ(CText(MsgNoInputFile, module).str(), u"No input file specified");
  const CResourceModule withoutFallback(&kTable, nullptr);
  EXPECT_EQ(CText(MsgNoInputFile, withoutFallback, u"default").str(), u"default");
}

}  // namespace
}  // namespace NScrivolt
