// CHandle<Traits>: an operating-system handle owned by every copy together.
// The copies share one counted block; the last copy to let go closes the
// handle with Traits::Close, unless it is the traits' no-handle value.
//
// A traits class gives the handle type, the no-handle value and the close
// function:
//   struct CFontTraits {
//     using Handle = HFONT;
//     static Handle Invalid() { return nullptr; }
//     static void Close(Handle handle) { DeleteObject(handle); }
//   };
#pragma once

#include <cstddef>
#include <utility>

namespace NScrivolt::Ui {

template <typename Traits>
class CHandle {
 public:
  using Handle = typename Traits::Handle;

  CHandle() = default;
  // Takes ownership of `handle`.
  explicit CHandle(Handle handle) { Own(handle); }
  CHandle(const CHandle& other) : block_(other.block_) {
    if (block_ != nullptr) ++block_->owners;
  }
  CHandle(CHandle&& other) noexcept : block_(std::exchange(other.block_, nullptr)) {}
  // Copy and move assignment: the old handle is let go when `other`, now
  // holding it, goes at the end of the call.
  CHandle& operator=(CHandle other) noexcept {
    std::swap(block_, other.block_);
    return *this;
  }
  // Lets go of the handle held so far, then owns `handle`.
  CHandle& operator=(Handle handle) { return *this = CHandle(handle); }
  ~CHandle() { LetGo(); }

  Handle Get() const { return block_ != nullptr ? block_->handle : Traits::Invalid(); }
  bool IsValid() const { return Get() != Traits::Invalid(); }
  explicit operator bool() const { return IsValid(); }
  // How many copies share the handle (0 for none).
  size_t Owners() const { return block_ != nullptr ? block_->owners : 0; }
  // Closes the handle now if this is its last owner; this copy holds nothing after.
  void Reset() { LetGo(); }

 private:
  struct Block {
    Handle handle;
    size_t owners;
  };

  void Own(Handle handle) { block_ = new Block{handle, 1}; }

  void LetGo() {
    Block* block = std::exchange(block_, nullptr);
    if (block != nullptr && --block->owners == 0) Close(block);
  }

  // Kept out of line: inlined, the delete makes GCC warn about every later
  // use of a block that another copy still shares.
  [[gnu::noinline]] static void Close(Block* block) {
    if (block->handle != Traits::Invalid()) Traits::Close(block->handle);
    delete block;
  }

  Block* block_ = nullptr;
};

}  // namespace NScrivolt::Ui
