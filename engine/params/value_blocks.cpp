#include "engine/params/value_blocks.h"

#include <array>
#include <new>

#include "engine/params/fixed_size_pool.h"

namespace NScrivolt {

namespace {

constexpr std::size_t kStepBytes = 8;
constexpr std::size_t kClasses = ValueBlocks::kPooledBytes / kStepBytes;

std::size_t ClassOf(std::size_t bytes) { return bytes == 0 ? 0 : (bytes - 1) / kStepBytes; }

// The pool of each class, made on its first request and never destroyed:
// values may be left alive to the end of the process.
CFixedSizePool& PoolOfClass(std::size_t sizeClass) {
  static std::array<CFixedSizePool*, kClasses> pools{};
  CFixedSizePool*& pool = pools[sizeClass];
  if (pool == nullptr) pool = new CFixedSizePool((sizeClass + 1) * kStepBytes);
  return *pool;
}

}  // namespace

void* ValueBlocks::Allocate(std::size_t bytes) {
  if (bytes > kPooledBytes) return ::operator new(bytes);
  return PoolOfClass(ClassOf(bytes)).Allocate();
}

void ValueBlocks::Free(void* block, std::size_t bytes) {
  if (bytes > kPooledBytes) {
    ::operator delete(block);
  } else {
    PoolOfClass(ClassOf(bytes)).Free(block);
  }
}

}  // namespace NScrivolt
