#include "engine/params/fixed_size_pool.h"

#include <new>
#include <utility>

#if defined(__SANITIZE_ADDRESS__)
#define SCRIVOLT_POOL_PASS_THROUGH 1
#elif defined(__has_feature)
#if __has_feature(address_sanitizer)
#define SCRIVOLT_POOL_PASS_THROUGH 1
#endif
#endif

namespace NScrivolt {

namespace {

constexpr std::size_t kSlotAlignment = alignof(void*);

}  // namespace

CFixedSizePool::CFixedSizePool(std::size_t slotBytes)
    : slotBytes_((slotBytes + kSlotAlignment - 1) / kSlotAlignment * kSlotAlignment) {}

#if defined(SCRIVOLT_POOL_PASS_THROUGH)

void* CFixedSizePool::Allocate() { return ::operator new(slotBytes_); }

void CFixedSizePool::Free(void* slot) { ::operator delete(slot); }

#else

void* CFixedSizePool::Allocate() {
  if (free_ != nullptr) return std::exchange(free_, free_->next);
  if (std::size_t(end_ - unused_) < slotBytes_) AddBlock();
  return std::exchange(unused_, unused_ + slotBytes_);
}

void CFixedSizePool::Free(void* slot) {
  if (slot == nullptr) return;
  free_ = new (slot) CFreeSlot{free_};
}

// The rest of the previous block, less than a slot, stays unused.
void CFixedSizePool::AddBlock() {
  unused_ = static_cast<char*>(::operator new(kBlockBytes));
  end_ = unused_ + kBlockBytes;
}

#endif

}  // namespace NScrivolt
