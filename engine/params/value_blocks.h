// The memory behind the values too long to be kept inside a node.
//
// A decoded file of a million rows has a million or more such values, most
// of them a few dozen bytes. Taken from the general allocator, each carries
// its bookkeeping (8 bytes on a 64-bit target) and is rounded up to a
// multiple of 16, and the value must keep its length in the block beside
// the units. Blocks of up to kPooledBytes come instead from a pool per
// multiple of 8 bytes (CFixedSizePool), without a header; larger ones from
// the general allocator.
//
// The caller gives back a block with the size it asked for.
#pragma once

#include <cstddef>

namespace NScrivolt {

namespace ValueBlocks {

constexpr std::size_t kPooledBytes = 256;

void* Allocate(std::size_t bytes);
void Free(void* block, std::size_t bytes);

}  // namespace ValueBlocks

}  // namespace NScrivolt
