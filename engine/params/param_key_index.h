// CParamKeyIndex: a hash set of child nodes looked up by their key.
//
// Open addressing with linear probing over a power-of-two table of node
// pointers. The key of an entry is read from the node itself, so every key
// is held once, in the node (an automatic one as its number). Beside each
// pointer the table keeps 32 bits of the key's hash, so a probe reads a node
// only when those match. A key of the automatic form with a number below
// 2^31 ("param17", the key of most numbered children) is hashed from its
// number by a one-to-one mix and marked by the top bit: for it, equal hashes
// mean equal keys, and a lookup finds the node without reading it (nor the
// block an automatic name written out is kept in). The table stays at most
// half full: about 24 bytes per child.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "engine/params/param_automatic_name.h"
#include "text/base/wide_string.h"

namespace NScrivolt {

class CParam;

// A key looked up again and again (a component of a reference parsed once):
// the lookup and its hash, computed once.
struct CPreparedKey {
  explicit CPreparedKey(WStringView key);

  CKeyLookup lookup;
  std::uint32_t hash;
};

class CParamKeyIndex {
 public:
  explicit CParamKeyIndex(std::size_t expectedCount);

  // The hash an entry of the looked-up key is filed under.
  static std::uint32_t Hash(const CKeyLookup& lookup);

  // `hash` is Hash(lookup).
  CParam* Find(const CKeyLookup& lookup, std::uint32_t hash) const;
  // The node's key must not be in the index yet.
  void Insert(CParam* node);
  // Removes the node when it is in the index.
  void Erase(const CParam* node);

 private:
  static std::uint32_t HashOfKey(const CParam& node);
  static std::size_t TableSizeFor(std::size_t count);
  std::size_t Mask() const { return nodes_.size() - 1; }
  std::size_t Home(std::uint32_t hash) const { return hash & Mask(); }
  void Place(CParam* node, std::uint32_t hash);
  void Grow();

  std::vector<CParam*> nodes_;         // null marks a free slot
  std::vector<std::uint32_t> hashes_;  // the hash of each slot's key
  std::size_t count_ = 0;
};

}  // namespace NScrivolt
