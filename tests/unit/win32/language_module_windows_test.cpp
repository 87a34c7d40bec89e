#include <gtest/gtest.h>

#include <windows.h>

#include <cstring>
#include <set>
#include <string>
#include <vector>

#include "app/shell/resource_ids.h"

namespace NScrivolt {
namespace {

// The program and the Dutch module, both loaded as data from the build
// folder, one folder above the tests.
std::wstring BuildFolderFile(const wchar_t* name) {
  wchar_t exe[MAX_PATH];
  const DWORD length = GetModuleFileNameW(nullptr, exe, MAX_PATH);
  std::wstring path(exe, length);
  path.resize(path.find_last_of(L'\\'));
  path.resize(path.find_last_of(L'\\') + 1);
  return path + name;
}

class DataModule {
 public:
  explicit DataModule(const wchar_t* name)
      : handle_(LoadLibraryExW(BuildFolderFile(name).c_str(), nullptr, LOAD_LIBRARY_AS_DATAFILE)) {}
  ~DataModule() {
    if (handle_ != nullptr) FreeLibrary(handle_);
  }
  DataModule(const DataModule&) = delete;
  DataModule& operator=(const DataModule&) = delete;
  HMODULE Get() const { return handle_; }

 private:
  HMODULE handle_;
};

// A dialog template as written in the resource script, read back from the
// compiled DLGTEMPLATEEX.
struct DialogItem {
  DWORD style, exStyle, id;
  short x, y, cx, cy;
  std::wstring windowClass, text;
};

struct DialogTemplate {
  DWORD style = 0, exStyle = 0;
  short x = 0, y = 0, cx = 0, cy = 0;
  std::wstring menu, windowClass, caption, font;
  WORD pointSize = 0;
  std::vector<DialogItem> items;
};

class TemplateReader {
 public:
  TemplateReader(const BYTE* data, DWORD size) : data_(data), size_(size) {}

  template <typename T>
  T Read() {
    T value{};
    if (at_ + sizeof(T) <= size_) std::memcpy(&value, data_ + at_, sizeof(T));
    at_ += sizeof(T);
    return value;
  }

  // A string, or an ordinal written as "#number", or nothing.
  std::wstring ReadNameOrOrdinal() {
    const WORD first = Read<WORD>();
    if (first == 0) return L"";
    if (first == 0xFFFF) return L"#" + std::to_wstring(Read<WORD>());
    std::wstring text(1, wchar_t(first));
    for (WORD c = Read<WORD>(); c != 0 && at_ <= size_; c = Read<WORD>()) text += wchar_t(c);
    return text;
  }

  void AlignToDword() { at_ = (at_ + 3) & ~std::size_t(3); }
  void Skip(std::size_t bytes) { at_ += bytes; }
  bool Overran() const { return at_ > size_; }

 private:
  const BYTE* data_;
  DWORD size_;
  std::size_t at_ = 0;
};

bool ReadDialog(HMODULE module, WORD id, DialogTemplate& dialog) {
  HRSRC resource = FindResourceW(module, MAKEINTRESOURCEW(id), MAKEINTRESOURCEW(5) /* RT_DIALOG */);
  if (resource == nullptr) return false;
  const auto* data = static_cast<const BYTE*>(LockResource(LoadResource(module, resource)));
  TemplateReader reader(data, SizeofResource(module, resource));
  if (reader.Read<WORD>() != 1 || reader.Read<WORD>() != 0xFFFF) return false;  // DLGTEMPLATEEX only
  reader.Skip(sizeof(DWORD));                                                   // help id
  dialog.exStyle = reader.Read<DWORD>();
  dialog.style = reader.Read<DWORD>();
  const WORD count = reader.Read<WORD>();
  dialog.x = reader.Read<short>();
  dialog.y = reader.Read<short>();
  dialog.cx = reader.Read<short>();
  dialog.cy = reader.Read<short>();
  dialog.menu = reader.ReadNameOrOrdinal();
  dialog.windowClass = reader.ReadNameOrOrdinal();
  dialog.caption = reader.ReadNameOrOrdinal();
  if (dialog.style & DS_SETFONT) {
    dialog.pointSize = reader.Read<WORD>();
    reader.Skip(sizeof(WORD) + 2);  // weight, italic, character set
    dialog.font = reader.ReadNameOrOrdinal();
  }
  for (WORD i = 0; i < count; ++i) {
    reader.AlignToDword();
    DialogItem item{};
    reader.Skip(sizeof(DWORD));  // help id
    item.exStyle = reader.Read<DWORD>();
    item.style = reader.Read<DWORD>();
    item.x = reader.Read<short>();
    item.y = reader.Read<short>();
    item.cx = reader.Read<short>();
    item.cy = reader.Read<short>();
    item.id = reader.Read<DWORD>();
    item.windowClass = reader.ReadNameOrOrdinal();
    item.text = reader.ReadNameOrOrdinal();
    reader.Skip(reader.Read<WORD>());  // creation data
    dialog.items.push_back(item);
  }
  return !reader.Overran();
}

struct DialogCase {
  WORD id;
  const wchar_t* dutchCaption;
};

const DialogCase kDialogs[] = {
    {IDD_MAIN, L"Scrivolt"},
    {IDD_ABOUT, L"Scrivolt - Over Scrivolt"},
    {IDD_SETTINGS, L"Scrivolt - Instellingen"},
    {IDD_LANGUAGE_PAGE, L"Taal"},
};

// The Dutch dialogs are the program's dialogs with other texts: every
// place, size, style, id, class and font is the same.
TEST(DutchLanguageModuleWindows, DialogsDifferOnlyInTheirTexts) {
  const DataModule program(L"Scrivolt.exe");
  const DataModule dutch(L"Scrivolt_NL.dll");
  ASSERT_NE(program.Get(), nullptr);
  ASSERT_NE(dutch.Get(), nullptr);
  for (const DialogCase& c : kDialogs) {
    SCOPED_TRACE(c.id);
    DialogTemplate english, dutchDialog;
    ASSERT_TRUE(ReadDialog(program.Get(), c.id, english));
    ASSERT_TRUE(ReadDialog(dutch.Get(), c.id, dutchDialog));
    EXPECT_EQ(dutchDialog.caption, c.dutchCaption);
    EXPECT_EQ(dutchDialog.style, english.style);
    EXPECT_EQ(dutchDialog.exStyle, english.exStyle);
    EXPECT_EQ(std::vector<short>({dutchDialog.x, dutchDialog.y, dutchDialog.cx, dutchDialog.cy}),
              std::vector<short>({english.x, english.y, english.cx, english.cy}));
    EXPECT_EQ(dutchDialog.menu, english.menu);
    EXPECT_EQ(dutchDialog.windowClass, english.windowClass);
    EXPECT_EQ(dutchDialog.font, english.font);
    EXPECT_EQ(dutchDialog.pointSize, english.pointSize);
    ASSERT_EQ(dutchDialog.items.size(), english.items.size());
    for (std::size_t i = 0; i < english.items.size(); ++i) {
      const DialogItem& e = english.items[i];
      const DialogItem& d = dutchDialog.items[i];
      SCOPED_TRACE(e.id);
      EXPECT_EQ(d.id, e.id);
      EXPECT_EQ(d.style, e.style);
      EXPECT_EQ(d.exStyle, e.exStyle);
      EXPECT_EQ(std::vector<short>({d.x, d.y, d.cx, d.cy}), std::vector<short>({e.x, e.y, e.cx, e.cy}));
      EXPECT_EQ(d.windowClass, e.windowClass);
      EXPECT_EQ(d.text.empty(), e.text.empty()) << "a text where the program has none, or none where it has one";
    }
  }
}

struct MenuItem {
  UINT id;
  bool separator;
  std::wstring text;
  std::vector<MenuItem> popup;
};

std::vector<MenuItem> ReadMenu(HMENU menu) {
  std::vector<MenuItem> items;
  const int count = GetMenuItemCount(menu);
  for (int i = 0; i < count; ++i) {
    wchar_t text[128] = {};
    MENUITEMINFOW info{};
    info.cbSize = sizeof info;
    info.fMask = MIIM_ID | MIIM_FTYPE | MIIM_SUBMENU | MIIM_STRING;
    info.dwTypeData = text;
    info.cch = 128;
    GetMenuItemInfoW(menu, i, TRUE, &info);
    // A popup has no command id of its own; what the field holds then varies.
    MenuItem item{info.hSubMenu != nullptr ? 0 : info.wID, (info.fType & MFT_SEPARATOR) != 0, text, {}};
    if (info.hSubMenu != nullptr) item.popup = ReadMenu(info.hSubMenu);
    items.push_back(item);
  }
  return items;
}

// What follows the tab: the key that the item names, such as F1.
std::wstring ShortcutOf(const std::wstring& text) {
  const std::size_t tab = text.find(L'\t');
  return tab == std::wstring::npos ? L"" : text.substr(tab);
}

// One access key per item, none twice in a popup.
void ExpectUsableAccessKeys(const std::vector<MenuItem>& items) {
  std::set<wchar_t> keys;
  for (const MenuItem& item : items) {
    if (item.separator) continue;
    const std::size_t amp = item.text.find(L'&');
    ASSERT_NE(amp, std::wstring::npos) << "no access key in an item";
    EXPECT_EQ(item.text.find(L'&', amp + 1), std::wstring::npos) << "two access keys in an item";
    EXPECT_TRUE(keys.insert(towlower(item.text[amp + 1])).second) << "an access key used twice";
    ExpectUsableAccessKeys(item.popup);
  }
}

void ExpectSameShape(const std::vector<MenuItem>& dutch, const std::vector<MenuItem>& english) {
  ASSERT_EQ(dutch.size(), english.size());
  for (std::size_t i = 0; i < english.size(); ++i) {
    EXPECT_EQ(dutch[i].id, english[i].id) << i;
    EXPECT_EQ(dutch[i].separator, english[i].separator) << i;
    EXPECT_EQ(ShortcutOf(dutch[i].text), ShortcutOf(english[i].text)) << i;
    ExpectSameShape(dutch[i].popup, english[i].popup);
  }
}

TEST(DutchLanguageModuleWindows, MenuHasTheProgramsItemsInDutch) {
  const DataModule program(L"Scrivolt.exe");
  const DataModule dutch(L"Scrivolt_NL.dll");
  HMENU englishMenu = LoadMenuW(program.Get(), MAKEINTRESOURCEW(IDR_MAIN_MENU));
  HMENU dutchMenu = LoadMenuW(dutch.Get(), MAKEINTRESOURCEW(IDR_MAIN_MENU));
  ASSERT_NE(englishMenu, nullptr);
  ASSERT_NE(dutchMenu, nullptr);
  const std::vector<MenuItem> english = ReadMenu(englishMenu);
  const std::vector<MenuItem> dutchItems = ReadMenu(dutchMenu);
  DestroyMenu(englishMenu);
  DestroyMenu(dutchMenu);
  ExpectSameShape(dutchItems, english);
  ExpectUsableAccessKeys(dutchItems);
  ASSERT_FALSE(dutchItems.empty());
  EXPECT_EQ(dutchItems[0].text, L"&Bestand");
}

TEST(DutchLanguageModuleWindows, AcceleratorsAreTheProgramsOwn) {
  const DataModule program(L"Scrivolt.exe");
  const DataModule dutch(L"Scrivolt_NL.dll");
  const auto entries = [](HMODULE module) {
    HACCEL table = LoadAcceleratorsW(module, MAKEINTRESOURCEW(IDR_MAIN_ACCELERATORS));
    std::vector<ACCEL> accelerators(table == nullptr ? 0 : CopyAcceleratorTableW(table, nullptr, 0));
    if (!accelerators.empty()) CopyAcceleratorTableW(table, accelerators.data(), int(accelerators.size()));
    std::vector<std::vector<int>> flat;
    for (const ACCEL& a : accelerators) flat.push_back({a.fVirt, a.key, a.cmd});
    return flat;
  };
  const auto english = entries(program.Get());
  EXPECT_FALSE(english.empty());
  EXPECT_EQ(entries(dutch.Get()), english);
}

}  // namespace
}  // namespace NScrivolt
