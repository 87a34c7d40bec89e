// CFixedSizePool: memory for many objects of one size, cut from large blocks.
//
// A tree of a million parameters is a million nodes and as many child lists;
// taken one by one from the general allocator, each carries the allocator's
// bookkeeping and costs a call into it. The pool cuts its slots from blocks
// of kBlockBytes, aligned to their size, and marks the free slots of a
// block in a bitmap at its start. A request takes the lowest free slot of
// the block at hand, so slots are handed out in address order even after
// many were freed in any order: the nodes of a tree built then lie side by
// side, as in fresh memory, and a walk over them does not jump about. A
// block whose slots are all taken is set aside until one of them is freed.
//
// Blocks are never given back: the memory a large tree leaves behind serves
// the next one, and the trees still alive at the end of the process are
// left to it anyway.
//
// Single-threaded, as the engine is. Built with AddressSanitizer, the pool
// hands every request to the general allocator, so that a use after free is
// still caught.
#pragma once

#include <cstddef>
#include <cstdint>

namespace NScrivolt {

class CFixedSizePool {
 public:
  static constexpr std::size_t kBlockBytes = std::size_t(1) << 20;

  // Slots of `slotBytes`, rounded up to a multiple of the pointer size; at
  // most a quarter of a block.
  explicit CFixedSizePool(std::size_t slotBytes);
  CFixedSizePool(const CFixedSizePool&) = delete;
  CFixedSizePool& operator=(const CFixedSizePool&) = delete;

  void* Allocate();
  void Free(void* slot);

 private:
  struct CBlock;

  CBlock* NewBlock() const;
  char* SlotsOf(CBlock* block) const;

  std::size_t slotBytes_;
  std::size_t slotsPerBlock_;
  std::size_t words_;         // of the free-slot bitmap
  std::size_t headerBytes_;   // the block's bookkeeping and bitmap, before its slots
  CBlock* current_ = nullptr;  // where requests are served from
  CBlock* partial_ = nullptr;  // other blocks with free slots
};

// The one pool for objects of type T. Never destroyed: trees may be left
// alive to the end of the process.
template <class T>
CFixedSizePool& PoolFor() {
  static auto* pool = new CFixedSizePool(sizeof(T));
  return *pool;
}

}  // namespace NScrivolt
