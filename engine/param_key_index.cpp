#include "engine/param_key_index.h"

#include "engine/param.h"

namespace NScrivolt {

namespace {
constexpr std::size_t kMinTableSize = 16;
}  // namespace

CParamKeyIndex::CParamKeyIndex(std::size_t expectedCount)
    : table_(TableSizeFor(expectedCount), nullptr) {}

// The smallest power of two that keeps `count` entries at most half full.
std::size_t CParamKeyIndex::TableSizeFor(std::size_t count) {
  std::size_t size = kMinTableSize;
  while (size < count * 2) size *= 2;
  return size;
}

// FNV-1a over the code units, folded so the low bits depend on all of them.
std::size_t CParamKeyIndex::Hash(WStringView key) {
  std::uint64_t hash = 14695981039346656037ull;
  for (WChar c : key) {
    hash ^= c;
    hash *= 1099511628211ull;
  }
  return std::size_t(hash ^ (hash >> 29));
}

CParam* CParamKeyIndex::Find(WStringView key) const {
  for (std::size_t slot = Hash(key) & Mask();; slot = (slot + 1) & Mask()) {
    CParam* node = table_[slot];
    if (node == nullptr || node->id_.key == key) return node;
  }
}

void CParamKeyIndex::Place(CParam* node) {
  std::size_t slot = Hash(node->id_.key) & Mask();
  while (table_[slot] != nullptr) slot = (slot + 1) & Mask();
  table_[slot] = node;
}

void CParamKeyIndex::Grow() {
  std::vector<CParam*> old(table_.size() * 2, nullptr);
  old.swap(table_);
  for (CParam* node : old) {
    if (node != nullptr) Place(node);
  }
}

void CParamKeyIndex::Insert(CParam* node) {
  if ((count_ + 1) * 2 > table_.size()) Grow();
  Place(node);
  ++count_;
}

// Backward-shift deletion: entries after the freed slot that would no longer
// be reached from their home slot move back into it, so no tombstones build up.
void CParamKeyIndex::Erase(const CParam* node) {
  std::size_t hole = Hash(node->id_.key) & Mask();
  while (table_[hole] != node) {
    if (table_[hole] == nullptr) return;
    hole = (hole + 1) & Mask();
  }
  table_[hole] = nullptr;
  --count_;
  for (std::size_t slot = (hole + 1) & Mask(); table_[slot] != nullptr; slot = (slot + 1) & Mask()) {
    const std::size_t home = Hash(table_[slot]->id_.key) & Mask();
    // The entry may move to the hole unless its home lies cyclically in (hole, slot].
    const bool reachable = ((slot - home) & Mask()) < ((slot - hole) & Mask());
    if (reachable) continue;
    table_[hole] = table_[slot];
    table_[slot] = nullptr;
    hole = slot;
  }
}

}  // namespace NScrivolt
