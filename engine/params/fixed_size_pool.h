// CFixedSizePool: memory for many objects of one size, cut from large blocks.
//
// A tree of a million parameters is a million nodes and as many child lists;
// taken one by one from the general allocator, each carries the allocator's
// bookkeeping and costs a call into it. The pool cuts its slots from blocks
// of kBlockBytes and keeps freed slots on a list for the next request. Blocks
// are never given back: the memory a large tree leaves behind serves the
// next one, and the trees still alive at the end of the process are left to
// it anyway.
//
// Single-threaded, as the engine is. Built with AddressSanitizer, the pool
// hands every request to the general allocator, so that a use after free is
// still caught.
#pragma once

#include <cstddef>

namespace NScrivolt {

class CFixedSizePool {
 public:
  static constexpr std::size_t kBlockBytes = std::size_t(1) << 20;

  // Slots of `slotBytes`, rounded up to a multiple of the pointer size.
  explicit CFixedSizePool(std::size_t slotBytes);
  CFixedSizePool(const CFixedSizePool&) = delete;
  CFixedSizePool& operator=(const CFixedSizePool&) = delete;

  void* Allocate();
  void Free(void* slot);

 private:
  struct CFreeSlot {
    CFreeSlot* next;
  };

  void AddBlock();

  std::size_t slotBytes_;
  CFreeSlot* free_ = nullptr;
  char* unused_ = nullptr;  // the part of the newest block never handed out
  char* end_ = nullptr;
};

}  // namespace NScrivolt
