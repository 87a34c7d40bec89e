// CRefCounter<T*>: shared ownership of one object by a count kept beside it.
//
// Every holder points to one block {count, object}; copying a holder adds one
// to the count, destroying or resetting it takes one off, and the block with
// its object is deleted when the count reaches 0. The engine runs on one
// thread, so the count is a plain integer.
#pragma once

#include <cstddef>
#include <utility>

namespace NScrivolt {

template <class T>
class CRefCounter;

template <class T>
class CRefCounter<T*> {
 public:
  CRefCounter() noexcept = default;
  CRefCounter(const CRefCounter& other) noexcept : block_(other.block_) {
    if (block_ != nullptr) ++block_->count;
  }
  CRefCounter(CRefCounter&& other) noexcept : block_(std::exchange(other.block_, nullptr)) {}
  CRefCounter& operator=(CRefCounter other) noexcept {
    std::swap(block_, other.block_);
    return *this;
  }
  ~CRefCounter() { Reset(); }

  // A holder of a new object built from `args`; its count is 1.
  template <class... Args>
  static CRefCounter Make(Args&&... args) {
    CRefCounter holder;
    holder.block_ = new Block(std::forward<Args>(args)...);
    return holder;
  }

  T* Get() const noexcept { return block_ != nullptr ? &block_->object : nullptr; }
  T* operator->() const noexcept { return Get(); }
  T& operator*() const noexcept { return block_->object; }
  explicit operator bool() const noexcept { return block_ != nullptr; }

  // The number of holders sharing the object (0 for an empty holder).
  std::size_t UseCount() const noexcept { return block_ != nullptr ? block_->count : 0; }

  // The holder's share as a bare address, at least 8-byte aligned, for an
  // owner that keeps it in a word of its own; the holder is empty
  // afterwards. Adopt makes a holder of such a share again, ObjectAt reads
  // the object through it.
  void* ReleaseAddress() noexcept { return std::exchange(block_, nullptr); }
  static CRefCounter Adopt(void* address) noexcept {
    CRefCounter holder;
    holder.block_ = static_cast<Block*>(address);
    return holder;
  }
  static T* ObjectAt(void* address) noexcept { return &static_cast<Block*>(address)->object; }

  // Lets go of the object; the holder is empty afterwards.
  void Reset() noexcept {
    Block* block = std::exchange(block_, nullptr);
    if (block != nullptr && --block->count == 0) Delete(block);
  }

 private:
  // The count and the object share one allocation.
  struct alignas(8) Block {
    template <class... Args>
    explicit Block(Args&&... args) : object(std::forward<Args>(args)...) {}
    std::size_t count = 1;
    T object;
  };

  // Kept out of line: inlined, the delete makes GCC warn about every later
  // use of a block that another holder still shares.
  [[gnu::noinline]] static void Delete(Block* block) noexcept { delete block; }

  Block* block_ = nullptr;
};

}  // namespace NScrivolt
