#include "engine/params/param_key_index.h"

#include "engine/params/param.h"

namespace NScrivolt {

namespace {
constexpr std::size_t kMinTableSize = 16;
// Marks the hash of an automatic-form key whose number is below it; other
// keys' hashes leave it clear.
constexpr std::uint32_t kExactBit = 0x80000000u;

bool HasExactHash(std::uint64_t automaticNumber) { return automaticNumber != 0 && automaticNumber < kExactBit; }

// A one-to-one mix of 31 bits (each step is invertible on them), so numbers
// that step by a power of two still spread over the table's home slots.
std::uint32_t MixNumber(std::uint64_t number) {
  std::uint32_t x = std::uint32_t(number);
  x = (x * 0x2c1b3c6du) & ~kExactBit;
  x ^= x >> 15;
  x = (x * 0x297a2d39u) & ~kExactBit;
  x ^= x >> 13;
  return x;
}

// FNV-1a over the code units, folded so the low bits depend on all of them.
std::uint32_t HashText(WStringView key) {
  std::uint64_t hash = 14695981039346656037ull;
  for (WChar c : key) {
    hash ^= c;
    hash *= 1099511628211ull;
  }
  return std::uint32_t(hash ^ (hash >> 32)) & ~kExactBit;
}
}  // namespace

CParamKeyIndex::CParamKeyIndex(std::size_t expectedCount)
    : nodes_(TableSizeFor(expectedCount), nullptr), hashes_(nodes_.size(), 0) {}

// The smallest power of two that keeps `count` entries at most half full.
std::size_t CParamKeyIndex::TableSizeFor(std::size_t count) {
  std::size_t size = kMinTableSize;
  while (size < count * 2) size *= 2;
  return size;
}

std::uint32_t CParamKeyIndex::Hash(const CKeyLookup& lookup) {
  if (HasExactHash(lookup.automaticNumber)) return kExactBit | MixNumber(lookup.automaticNumber);
  return HashText(lookup.key);
}

std::uint32_t CParamKeyIndex::HashOfKey(const CParam& node) {
  if (node.HasAutomaticName() && HasExactHash(node.AutomaticNumber())) {
    return kExactBit | MixNumber(node.AutomaticNumber());
  }
  AutomaticKeyBuffer buffer;
  return Hash(CKeyLookup(node.KeyIn(buffer)));
}

CPreparedKey::CPreparedKey(WStringView key) : lookup(key), hash(CParamKeyIndex::Hash(lookup)) {}

CParam* CParamKeyIndex::Find(const CKeyLookup& lookup, std::uint32_t hash) const {
  const bool exact = (hash & kExactBit) != 0;
  for (std::size_t slot = Home(hash);; slot = (slot + 1) & Mask()) {
    CParam* node = nodes_[slot];
    if (node == nullptr) return nullptr;
    if (hashes_[slot] == hash && (exact || node->HasKey(lookup))) return node;
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
