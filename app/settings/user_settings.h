// CUserSettings: what the user chose and where the windows were: the
// interface language and five window records.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <utility>

#include "app/settings/persistent_object.h"
#include "app/settings/settings_layout.h"

namespace NScrivolt {

// A window's place on the screen in pixels. x is kNoStoredPosition when no
// place is stored; a size of 0 means no stored size.
struct CWindowRecord {
  std::int32_t positionX = kNoStoredPosition;
  std::int32_t positionY = kNoStoredPosition;
  std::int32_t sizeX = 0;
  std::int32_t sizeY = 0;
};

// Record 0 is the main window; the others are kept as they were read.
constexpr std::size_t kWindowRecordCount = 5;
constexpr std::size_t kMainWindowRecord = 0;

class CUserSettings : public IPersistentObject {
 public:
  void Load(CINIFile& file) override;
  void Save(CINIFile& file) override;

  // Empty when the user chose none.
  const WString& GetLanguage() const { return language_; }
  void SetLanguage(WString language) { language_ = std::move(language); }

  // `index` below kWindowRecordCount.
  const CWindowRecord& GetWindowRecord(std::size_t index) const { return records_.at(index); }
  void SetWindowRecord(std::size_t index, const CWindowRecord& record) { records_.at(index) = record; }

 private:
  WString language_;
  std::array<CWindowRecord, kWindowRecordCount> records_;
};

}  // namespace NScrivolt
