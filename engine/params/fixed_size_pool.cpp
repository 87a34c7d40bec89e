#include "engine/params/fixed_size_pool.h"

#include <algorithm>
#include <new>

#if defined(__SANITIZE_ADDRESS__)
#define SCRIVOLT_POOL_PASS_THROUGH 1
#elif defined(__has_feature)
#if __has_feature(address_sanitizer)
#define SCRIVOLT_POOL_PASS_THROUGH 1
#endif
#endif

namespace NScrivolt {

// The bookkeeping at the start of a block; its bitmap (a set bit for each
// free slot) follows it, then the slots.
struct CFixedSizePool::CBlock {
  CBlock* nextPartial = nullptr;
  std::size_t freeSlots = 0;
  std::size_t firstWord = 0;  // no free slot in the words before it
  bool listed = false;        // on the list of partial blocks
  std::uint64_t* Bits() { return reinterpret_cast<std::uint64_t*>(this + 1); }
};

namespace {

constexpr std::size_t kWordBits = 64;

std::size_t RoundUp(std::size_t value, std::size_t unit) { return (value + unit - 1) / unit * unit; }

std::size_t LowestSetBit(std::uint64_t word) { return std::size_t(__builtin_ctzll(word)); }

}  // namespace

CFixedSizePool::CFixedSizePool(std::size_t slotBytes) : slotBytes_(RoundUp(slotBytes, alignof(void*))) {
  // The bitmap's size depends on the number of slots, and that on the room
  // the bitmap leaves: counted for the room of a whole block first, which
  // can only overestimate the bitmap.
  words_ = RoundUp(kBlockBytes / slotBytes_, kWordBits) / kWordBits;
  headerBytes_ = RoundUp(sizeof(CBlock) + words_ * sizeof(std::uint64_t), alignof(std::max_align_t));
  slotsPerBlock_ = (kBlockBytes - headerBytes_) / slotBytes_;
}

#if defined(SCRIVOLT_POOL_PASS_THROUGH)

void* CFixedSizePool::Allocate() { return ::operator new(slotBytes_); }

void CFixedSizePool::Free(void* slot) { ::operator delete(slot); }

#else

char* CFixedSizePool::SlotsOf(CBlock* block) const { return reinterpret_cast<char*>(block) + headerBytes_; }

CFixedSizePool::CBlock* CFixedSizePool::NewBlock() const {
  void* memory = ::operator new(kBlockBytes, std::align_val_t(kBlockBytes));
  auto* block = new (memory) CBlock;
  block->freeSlots = slotsPerBlock_;
  std::uint64_t* bits = block->Bits();
  for (std::size_t word = 0; word < words_; ++word) {
    const std::size_t first = word * kWordBits;
    const std::size_t count = first >= slotsPerBlock_ ? 0 : std::min(kWordBits, slotsPerBlock_ - first);
    bits[word] = count == kWordBits ? ~std::uint64_t(0) : (std::uint64_t(1) << count) - 1;
  }
  return block;
}

void* CFixedSizePool::Allocate() {
  if (current_ == nullptr || current_->freeSlots == 0) {
    if (current_ != nullptr) current_->listed = false;
    if (partial_ != nullptr) {
      current_ = partial_;
      partial_ = partial_->nextPartial;
    } else {
      current_ = NewBlock();
    }
    current_->listed = true;  // as the current block, it is not listed again
  }
  std::uint64_t* bits = current_->Bits();
  std::size_t word = current_->firstWord;
  while (bits[word] == 0) ++word;
  current_->firstWord = word;
  const std::size_t bit = LowestSetBit(bits[word]);
  bits[word] &= bits[word] - 1;
  --current_->freeSlots;
  return SlotsOf(current_) + (word * kWordBits + bit) * slotBytes_;
}

void CFixedSizePool::Free(void* slot) {
  if (slot == nullptr) return;
  const auto address = reinterpret_cast<std::uintptr_t>(slot);
  auto* block = reinterpret_cast<CBlock*>(address & ~std::uintptr_t(kBlockBytes - 1));
  const std::size_t index = (static_cast<char*>(slot) - SlotsOf(block)) / slotBytes_;
  const std::size_t word = index / kWordBits;
  block->Bits()[word] |= std::uint64_t(1) << (index % kWordBits);
  block->firstWord = std::min(block->firstWord, word);
  ++block->freeSlots;
  if (!block->listed) {
    block->listed = true;
    block->nextPartial = partial_;
    partial_ = block;
  }
}

#endif

}  // namespace NScrivolt
