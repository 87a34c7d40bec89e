#include "engine/codecs/decoded_text.h"

#include "platform/process_memory.h"

namespace NScrivolt {

void CDecodedText::ReadUpTo(std::size_t position) {
  if (position < released_ + kReleaseUnits) return;
  Platform::DiscardMemory(text_.data() + released_, (position - released_) * sizeof(WChar));
  released_ = position;
}

}  // namespace NScrivolt
