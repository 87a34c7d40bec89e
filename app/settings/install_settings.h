// CInstallSettings: the settings the installation gives, read but never
// written: the interface language to use when the user chose none.
#pragma once

#include "app/settings/persistent_object.h"

namespace NScrivolt {

class CInstallSettings : public IPersistentObject {
 public:
  void Load(CINIFile& file) override;
  void Save(CINIFile& file) override;

  const WString& GetLanguage() const { return language_; }

 private:
  WString language_ = u"EN";
};

}  // namespace NScrivolt
