#include <gtest/gtest.h>

#include <windows.h>

#include <string>

#include "languages/message_catalogues.h"
#include "text/text.h"

namespace NScrivolt {
namespace {

using Languages::kDutchMessages;

// The Dutch module is built beside Scrivolt.exe, one folder above the tests.
std::wstring DutchModulePath() {
  wchar_t exe[MAX_PATH];
  const DWORD length = GetModuleFileNameW(nullptr, exe, MAX_PATH);
  std::wstring path(exe, length);
  path.resize(path.find_last_of(L'\\'));
  path.resize(path.find_last_of(L'\\') + 1);
  return path + L"Scrivolt_NL.dll";
}

// The two ways a module can be loaded: as a plain data file, or as a library.
struct LoadMode {
  const char* name;
  DWORD flags;
};

const LoadMode kLoadModes[] = {
    {"as data file", LOAD_LIBRARY_AS_DATAFILE},
    {"as library", 0},
};

class LoadedModule {
 public:
  explicit LoadedModule(DWORD flags) : handle_(LoadLibraryExW(DutchModulePath().c_str(), nullptr, flags)) {}
  ~LoadedModule() {
    if (handle_ != nullptr) FreeLibrary(handle_);
  }
  LoadedModule(const LoadedModule&) = delete;
  LoadedModule& operator=(const LoadedModule&) = delete;
  HMODULE Get() const { return handle_; }

 private:
  HMODULE handle_;
};

std::wstring LoadString(HMODULE module, UINT id) {
  wchar_t buffer[512];
  const int length = LoadStringW(module, id, buffer, 512);
  return std::wstring(buffer, length);
}

// What the program reads when it registers a module: its abbreviation and
// the names of its language, from the module alone.
TEST(DutchLanguageModule, NamesItsLanguage) {
  for (const LoadMode& mode : kLoadModes) {
    SCOPED_TRACE(mode.name);
    const LoadedModule module(mode.flags);
    ASSERT_NE(module.Get(), nullptr) << "error " << GetLastError();
    EXPECT_EQ(LoadString(module.Get(), MsgLanguageAbbreviation), L"NL");
    EXPECT_EQ(LoadString(module.Get(), MsgLanguageNames), L"NL:Nederlands~EN:Dutch");
    EXPECT_EQ(LoadString(module.Get(), MsgHelpFile), L"[INSTALLPATH]\\Help\\Scrivolt_NL.chm");
  }
}

// Every text of the Dutch list comes out of the module unchanged, long texts
// and letters beyond ASCII included, with no fallback to help.
TEST(DutchLanguageModule, HoldsEveryDutchText) {
  for (const LoadMode& mode : kLoadModes) {
    SCOPED_TRACE(mode.name);
    const LoadedModule module(mode.flags);
    ASSERT_NE(module.Get(), nullptr) << "error " << GetLastError();
    const CResourceModule dutchOnly(module.Get(), nullptr);
    for (const auto& entry : kDutchMessages) {
      EXPECT_EQ(CText(MessageId(entry.id), dutchOnly).str(), WString(entry.text)) << entry.id << " " << entry.name;
    }
  }
}

// A text that only the executable has (one of the test strings) comes from
// the fallback; a text the module has comes from the module.
TEST(DutchLanguageModule, ExecutableIsTheFallback) {
  const LoadedModule module(LOAD_LIBRARY_AS_DATAFILE);
  ASSERT_NE(module.Get(), nullptr) << "error " << GetLastError();
  const CResourceModule dutchFirst(module.Get(), Platform::ExecutableModule());
  EXPECT_EQ(CText(MessageId(50255), dutchFirst).str(), CText(MessageId(50255), CResourceModule(nullptr, nullptr)).str());
  EXPECT_EQ(CText(MessageId(50255), dutchFirst).str().size(), 255u);
  EXPECT_EQ(CText(MsgNoInputFile, dutchFirst).str(), u"Geen invoerbestand opgegeven");
}

}  // namespace
}  // namespace NScrivolt
