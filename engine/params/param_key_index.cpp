#include "engine/params/param_key_index.h"

#include "engine/params/param.h"

namespace NScrivolt {

namespace {
constexpr std::size_t kMinTableSize = 16;
}  // namespace

CParamKeyIndex::CParamKeyIndex(std::size_t expectedCount)
    : nodes_(TableSizeFor(expectedCount), nullptr), hashes_(nodes_.size(), 0) {}

// The smallest power of two that keeps `count` entries at most half full.
std::size_t CParamKeyIndex::TableSizeFor(std::size_t count) {
  std::size_t size = kMinTableSize;
  while (size < count * 2) size *= 2;
  return size;
}

// FNV-1a over the code units, folded so the low bits depend on all of them.
std::uint32_t CParamKeyIndex::Hash(WStringView key) {
  std::uint64_t hash = 14695981039346656037ull;
  for (WChar c : key) {
    hash ^= c;
    hash *= 1099511628211ull;
  }
  return std::uint32_t(hash ^ (hash >> 32));
}

std::uint32_t CParamKeyIndex::HashOfKey(const CParam& node) {
  AutomaticKeyBuffer buffer;
  return Hash(node.KeyIn(buffer));
}

CPreparedKey::CPreparedKey(WStringView key) : lookup(key), hash(CParamKeyIndex::Hash(key)) {}

CParam* CParamKeyIndex::Find(const CKeyLookup& lookup, std::uint32_t hash) const {
  for (std::size_t slot = Home(hash);; slot = (slot + 1) & Mask()) {
    CParam* node = nodes_[slot];
    if (node == nullptr) return nullptr;
    if (hashes_[slot] == hash && node->HasKey(lookup)) return node;
  }
}

void CParamKeyIndex::Place(CParam* node, std::uint32_t hash) {
  std::size_t slot = Home(hash);
  while (nodes_[slot] != nullptr) slot = (slot + 1) & Mask();
  nodes_[slot] = node;
  hashes_[slot] = hash;
}

void CParamKeyIndex::Grow() {
  std::vector<CParam*> oldNodes(nodes_.size() * 2, nullptr);
  std::vector<std::uint32_t> oldHashes(hashes_.size() * 2, 0);
  oldNodes.swap(nodes_);
  oldHashes.swap(hashes_);
  for (std::size_t i = 0; i < oldNodes.size(); ++i) {
    if (oldNodes[i] != nullptr) Place(oldNodes[i], oldHashes[i]);
  }
}

void CParamKeyIndex::Insert(CParam* node) {
  if ((count_ + 1) * 2 > nodes_.size()) Grow();
  Place(node, HashOfKey(*node));
  ++count_;
}

// Backward-shift deletion: entries after the freed slot that would no longer
// be reached from their home slot move back into it, so no tombstones build up.
void CParamKeyIndex::Erase(const CParam* node) {
  std::size_t hole = Home(HashOfKey(*node));
  while (nodes_[hole] != node) {
    if (nodes_[hole] == nullptr) return;
    hole = (hole + 1) & Mask();
  }
  nodes_[hole] = nullptr;
  --count_;
  for (std::size_t slot = (hole + 1) & Mask(); nodes_[slot] != nullptr; slot = (slot + 1) & Mask()) {
    // The entry may move to the hole unless its home lies cyclically in (hole, slot].
    const bool reachable = ((slot - Home(hashes_[slot])) & Mask()) < ((slot - hole) & Mask());
    if (reachable) continue;
    nodes_[hole] = nodes_[slot];
    hashes_[hole] = hashes_[slot];
    nodes_[slot] = nullptr;
    hole = slot;
  }
}

}  // namespace NScrivolt
