#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <vector>

#include "engine/params/value_blocks.h"

namespace NScrivolt {
namespace {

struct CLiveBlock {
  unsigned char* bytes;
  std::size_t size;
  unsigned char pattern;
};

// Blocks of every size on both sides of each pool's slot size and of the
// largest pooled one, taken side by side, freed in part and taken again:
// none overlaps another, so each keeps the pattern written into it.
TEST(ValueBlocks, BlocksOfEverySizeStaySeparate) {
  std::vector<std::size_t> sizes{1,
                                 2,
                                 7,
                                 8,
                                 9,
                                 16,
                                 17,
                                 100,
                                 ValueBlocks::kPooledBytes - 1,
                                 ValueBlocks::kPooledBytes,
                                 ValueBlocks::kPooledBytes + 1,
                                 5000};
  std::vector<CLiveBlock> live;
  unsigned char stamp = 0;
  const auto take = [&](std::size_t rounds) {
    for (std::size_t round = 0; round < rounds; ++round) {
      for (std::size_t size : sizes) {
        auto* bytes = static_cast<unsigned char*>(ValueBlocks::Allocate(size));
        ASSERT_NE(bytes, nullptr);
        ASSERT_EQ(reinterpret_cast<std::uintptr_t>(bytes) % alignof(void*), 0u) << size;
        std::memset(bytes, ++stamp, size);
        live.push_back({bytes, size, stamp});
      }
    }
  };
  const auto expectIntact = [&] {
    for (const CLiveBlock& block : live) {
      for (std::size_t b = 0; b < block.size; ++b) ASSERT_EQ(block.bytes[b], block.pattern) << block.size;
    }
  };
  take(200);
  expectIntact();
  std::vector<CLiveBlock> kept;
  for (std::size_t i = 0; i < live.size(); ++i) {
    if (i % 3 == 0) {
      ValueBlocks::Free(live[i].bytes, live[i].size);
    } else {
      kept.push_back(live[i]);
    }
  }
  live = kept;
  take(100);
  expectIntact();
  for (const CLiveBlock& block : live) ValueBlocks::Free(block.bytes, block.size);
}

}  // namespace
}  // namespace NScrivolt
