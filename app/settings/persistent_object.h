// IPersistentObject: something that keeps its state in the settings file.
#pragma once

#include "app/settings/ini_file.h"

namespace NScrivolt {

class IPersistentObject {
 public:
  // Takes the object's values from `file`, creating what is missing.
  virtual void Load(CINIFile& file) = 0;
  // Puts the object's values into `file`.
  virtual void Save(CINIFile& file) = 0;
  virtual ~IPersistentObject() = default;
};

}  // namespace NScrivolt
