#include "engine/params/param_name.h"

#include <utility>

namespace NScrivolt {

std::uintptr_t CParamName::ShareOf(CParamIdShare id) { return reinterpret_cast<std::uintptr_t>(id.ReleaseAddress()); }

std::uintptr_t CParamName::AddShare(void* address) {
  CParamIdShare borrowed = CParamIdShare::Adopt(address);
  const std::uintptr_t word = ShareOf(borrowed);  // a holder of its own: one more count
  borrowed.ReleaseAddress();                      // the borrowed holder is the other name's
  return word;
}

void CParamName::LetGo() {
  if ((word_ & kTagBits) == kWritten) {
    delete Written();
  } else {
    CParamIdShare::Adopt(Address());  // the temporary lets go of the share
  }
}

CParamId& CParamName::OwnId() {
  switch (word_ & kTagBits) {
    case kAutomatic: {
      const std::uint64_t number = AutomaticNumber();
      auto* written = new CWritten{number, CParamId()};
      written->id.name = AutomaticName(number);
      written->id.key = AutomaticKey(number);
      word_ = reinterpret_cast<std::uintptr_t>(written) | kWritten;
      return written->id;
    }
    case kWritten:
      return Written()->id;
    default:
      break;
  }
  if (word_ == 0) {
    word_ = ShareOf(CParamIdShare::Make());
  } else {
    CParamIdShare share = CParamIdShare::Adopt(Address());
    if (share.UseCount() > 1) {
      word_ = ShareOf(CParamIdShare::Make(*share));  // `share` then lets go of the shared one
    } else {
      word_ = ShareOf(std::move(share));
    }
  }
  return *CParamIdShare::ObjectAt(Address());
}

}  // namespace NScrivolt
