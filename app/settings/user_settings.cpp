#include "app/settings/user_settings.h"

namespace NScrivolt {

namespace {

// The four keys of a window record, each followed by the record's index,
// with the value it reads as when missing.
struct CRecordKey {
  WStringView prefix;
  std::int32_t CWindowRecord::*field;
  std::int32_t fallback;
};

constexpr CRecordKey kRecordKeys[] = {
    {u"PositionXDlg", &CWindowRecord::positionX, kNoStoredPosition},
    {u"PositionYDlg", &CWindowRecord::positionY, kNoStoredPosition},
    {u"SizeXDlg", &CWindowRecord::sizeX, 0},
    {u"SizeYDlg", &CWindowRecord::sizeY, 0},
};

CINISetting& RecordSetting(CINISection& dialogs, const CRecordKey& key, std::size_t index) {
  return *dialogs.GetSetting(WString(key.prefix) + IntegerToText(std::int64_t(index)), Lookup::Create);
}

CINISection& DialogsSection(CINIFile& file) { return *file.GetSection(kDialogsSection, Lookup::Create); }

}  // namespace

void CUserSettings::Load(CINIFile& file) {
  language_ = LanguageSetting(file).Value();
  CINISection& dialogs = DialogsSection(file);
  for (std::size_t index = 0; index < kWindowRecordCount; ++index) {
    for (const CRecordKey& key : kRecordKeys) {
      records_[index].*key.field = RecordSetting(dialogs, key, index).GetInt(key.fallback);
    }
  }
}

void CUserSettings::Save(CINIFile& file) {
  LanguageSetting(file).SetText(language_);
  CINISection& dialogs = DialogsSection(file);
  for (std::size_t index = 0; index < kWindowRecordCount; ++index) {
    for (const CRecordKey& key : kRecordKeys) {
      RecordSetting(dialogs, key, index).SetInt(records_[index].*key.field);
    }
  }
}

}  // namespace NScrivolt
