#include "app/settings/ini_file.h"

#include <gtest/gtest.h>

#include <cctype>
#include <set>
#include <string>

#include "ansi_samples.h"
#include "scratch_folder.h"

namespace NScrivolt {
namespace {

using Testing::CScratchFolder;

std::string Utf16Le(std::u16string_view text) {
  std::string bytes;
  for (char16_t unit : text) {
    bytes += char(unit & 0xFF);
    bytes += char(unit >> 8);
  }
  return bytes;
}

std::string Utf16Be(std::u16string_view text) {
  std::string bytes;
  for (char16_t unit : text) {
    bytes += char(unit >> 8);
    bytes += char(unit & 0xFF);
  }
  return bytes;
}

// What a section and key read as after reading.
struct CLookup {
  WStringView section;
  WStringView key;
  const char16_t* value;  // null: the setting is not there
};

struct CRoundTripCase {
  const char* name;
  std::string file;
  CLookup lookup;
  std::string written;  // the bytes Write() puts back, nothing changed
};

const std::string kUtf16Text = Utf16Le(u"[Settings]\r\nLanguage=NL");

const CRoundTripCase kRoundTrips[] = {
    {"lower-case header and blanks around the equals sign", "[settings]\r\nLanguage = NL\r\n",
     {u"SETTINGS", u"language", u"NL"}, "[settings]\r\nLanguage=NL"},
    {"header with a trailing blank is dropped", "[Settings] \r\nLanguage=NL",
     {u"Settings", u"Language", nullptr}, ""},
    {"line feeds alone end no line", "[Settings]\nLanguage=NL\n",
     {u"Settings", u"Language", nullptr}, ""},
    {"a lone carriage return stays in the value", "[S]\r\na=1\rb=2", {u"S", u"a", u"1\rb=2"},
     "[S]\r\na=1\rb=2"},
    {"UTF-16 with a mark is written back as UTF-16 with the mark", "\xFF\xFE" + kUtf16Text,
     {u"settings", u"LANGUAGE", u"NL"}, "\xFF\xFE" + kUtf16Text},
    {"UTF-16 big-endian keeps its mark", "\xFE\xFF" + Utf16Be(u"[S]\r\nk=v"), {u"S", u"k", u"v"},
     "\xFE\xFF" + Utf16Be(u"[S]\r\nk=v")},
    {"UTF-8 keeps its mark", "\xEF\xBB\xBF[S]\r\nk=\xC3\xA9", {u"S", u"k", u"\u00E9"},
     "\xEF\xBB\xBF[S]\r\nk=\xC3\xA9"},
    {"sections in the order of their lower-cased names",
     "[Settings]\r\nLanguage=NL\r\n\r\n[Dialogs]\r\nSizeXDlg0=5", {u"Dialogs", u"SizeXDlg0", u"5"},
     "[Dialogs]\r\nSizeXDlg0=5\r\n\r\n[Settings]\r\nLanguage=NL"},
    {"keys in the order of their lower-cased names", "[S]\r\nb=1\r\nC=3\r\na=2", {u"S", u"c", u"3"},
     "[S]\r\na=2\r\nb=1\r\nC=3"},
    {"a later key replaces the value, the first spelling stays", "[S]\r\nKey=1\r\nKEY=2",
     {u"S", u"key", u"2"}, "[S]\r\nKey=2"},
    {"a repeated section gathers into the first", "[S]\r\na=1\r\n\r\n[s]\r\nb=2", {u"s", u"B", u"2"},
     "[S]\r\na=1\r\nb=2"},
    {"lines outside a section, comments and keyless lines are dropped",
     "x=1\r\n[S]\r\n; comment\r\n=v\r\nplain\r\n k =v", {u"S", u"k", u"v"}, "[S]\r\nk=v"},
    {"the value runs from the first equals sign, blanks and tabs trimmed", "[S]\r\n\tk\t=  a = b \t",
     {u"S", u"k", u"a = b"}, "[S]\r\nk=a = b"},
    {"brackets with nothing between are no header", "[]\r\nk=v", {u"", u"k", nullptr}, ""},
    {"blanks alone between brackets name the empty section", "[ \t]\r\nk=v", {u"", u"k", u"v"},
     "[]\r\nk=v"},
    {"a header's name loses blanks at both ends", "[ Dialogs\t]\r\nk=v", {u"dialogs", u"k", u"v"},
     "[Dialogs]\r\nk=v"},
};

class IniRoundTrip : public testing::TestWithParam<CRoundTripCase> {};

TEST_P(IniRoundTrip, ReadsAndWritesBack) {
  const CRoundTripCase& c = GetParam();
  CScratchFolder folder;
  folder.Put("Settings.ini", c.file);
  CINIFile ini;
  ASSERT_TRUE(ini.Read(folder.Path("Settings.ini"), EncodingType::Ascii));

  CINISection* section = ini.GetSection(c.lookup.section, Lookup::FindOnly);
  CINISetting* setting = section ? section->GetSetting(c.lookup.key, Lookup::FindOnly) : nullptr;
  ASSERT_EQ(setting != nullptr, c.lookup.value != nullptr);
  if (setting != nullptr) {
    EXPECT_EQ(setting->Value(), c.lookup.value);
  }

  ASSERT_TRUE(ini.Write());
  EXPECT_EQ(folder.Get("Settings.ini"), c.written);
  EXPECT_EQ(folder.Names(), std::set<std::string>{"Settings.ini"});
}

INSTANTIATE_TEST_SUITE_P(Cases, IniRoundTrip, testing::ValuesIn(kRoundTrips), [](const auto& info) {
  std::string name;
  for (const char* p = info.param.name; *p; ++p) name += std::isalnum(static_cast<unsigned char>(*p)) ? *p : '_';
  return name;
});

struct CNumberCase {
  WStringView value;
  std::int32_t asInt;
  std::uint32_t asUnsigned;
};

// Both read with the fallback 7.
const CNumberCase kNumbers[] = {
    {u"", 7, 7},
    {u"42", 42, 42},
    {u"12ab", 12, 12},
    {u"abc", 0, 0},
    {u"-5", -5, 4294967291u},
    {u"+8", 8, 8},
    {u"-2147483648", -2147483647 - 1, 2147483648u},
    {u"99999999999", 2147483647, 4294967295u},
    {u"4294967295", 2147483647, 4294967295u},
};

TEST(IniSetting, ReadsNumbersLikeTheWideTextConversions) {
  for (const CNumberCase& c : kNumbers) {
    CINISetting setting(u"k");
    setting.SetText(WString(c.value));
    EXPECT_EQ(setting.GetInt(7), c.asInt) << std::string(c.value.begin(), c.value.end());
    EXPECT_EQ(setting.GetUnsigned(7), c.asUnsigned) << std::string(c.value.begin(), c.value.end());
  }
}

TEST(IniSetting, TextFallsBackOnlyWhenEmpty) {
  CINISetting setting(u"k");
  EXPECT_EQ(setting.GetText(u"EN"), u"EN");
  setting.SetInt(-2147483647 - 1);
  EXPECT_EQ(setting.GetText(u"EN"), u"-2147483648");
}

TEST(IniFile, CreatedEntriesAreWrittenToTheGivenPathWhichIsRemembered) {
  CScratchFolder folder;
  CINIFile ini;
  EXPECT_FALSE(ini.Write()) << "no path yet";
  EXPECT_EQ(ini.GetSection(u"S", Lookup::FindOnly), nullptr);
  ini.GetSection(u"Settings", Lookup::Create)->GetSetting(u"Language", Lookup::Create)->SetText(u"NL");
  ini.GetSection(u"SETTINGS", Lookup::Create)->GetSetting(u"language", Lookup::Create)->SetText(u"DE");
  const WString path = folder.Path("new.ini");
  ASSERT_TRUE(ini.Write(&path));
  EXPECT_EQ(ini.Path(), path);
  EXPECT_EQ(folder.Get("new.ini"), "[Settings]\r\nLanguage=DE");
}

TEST(IniFile, AMissingFileReadsAsEmptyAndIsWrittenAsAsciiWithoutAMark) {
  CScratchFolder folder;
  CINIFile ini;
  EXPECT_FALSE(ini.Read(folder.Path("Settings.ini"), EncodingType::Utf16));
  ini.GetSection(u"S", Lookup::Create)->GetSetting(u"k", Lookup::Create)->SetText(u"v");
  ASSERT_TRUE(ini.Write());
  EXPECT_EQ(folder.Get("Settings.ini"), "[S]\r\nk=v");
}

TEST(IniFile, AnUnrepresentableCharacterFailsAndLeavesTheFileAsItWas) {
  CScratchFolder folder;
  folder.Put("Settings.ini", "[S]\r\nk=v");
  CINIFile ini;
  ASSERT_TRUE(ini.Read(folder.Path("Settings.ini"), EncodingType::Ascii));
  ini.GetSection(u"S", Lookup::FindOnly)->GetSetting(u"k", Lookup::FindOnly)->SetText(Testing::kNotInAnyCodePage);
  EXPECT_FALSE(ini.Write());
  EXPECT_EQ(folder.Get("Settings.ini"), "[S]\r\nk=v");
  EXPECT_EQ(folder.Names(), std::set<std::string>{"Settings.ini"});
}

TEST(IniFile, BytesThatAreNoTextReadAsEmpty) {
  std::string invalid;
  if (!Testing::FindBytesInvalidInAnsi(invalid)) GTEST_SKIP() << "every byte is valid in this code page";
  CScratchFolder folder;
  folder.Put("Settings.ini", "[S]\r\nk=" + invalid);
  CINIFile ini;
  EXPECT_FALSE(ini.Read(folder.Path("Settings.ini"), EncodingType::Ascii));
  EXPECT_EQ(ini.GetSection(u"S", Lookup::FindOnly), nullptr);
}

TEST(IniFile, ReadingAgainReplacesTheSections) {
  CScratchFolder folder;
  folder.Put("a.ini", "[A]\r\nk=1");
  folder.Put("b.ini", "[B]\r\nk=2");
  CINIFile ini;
  ASSERT_TRUE(ini.Read(folder.Path("a.ini"), EncodingType::Ascii));
  ASSERT_TRUE(ini.Read(folder.Path("b.ini"), EncodingType::Ascii));
  EXPECT_EQ(ini.GetSection(u"A", Lookup::FindOnly), nullptr);
  EXPECT_EQ(ini.ToText(), u"[B]\r\nk=2");
}

}  // namespace
}  // namespace NScrivolt
