// CParamKeyIndex: a hash set of child nodes looked up by their key.
//
// Open addressing with linear probing over a power-of-two table of node
// pointers. The key of an entry is read from the node itself (its id.key), so
// every key is held once, in the node; an entry costs one pointer and the
// table stays at most half full, about 16 bytes per child.
#pragma once

#include <cstddef>
#include <vector>

#include "text/wide_string.h"

namespace NScrivolt {

class CParam;

class CParamKeyIndex {
 public:
  explicit CParamKeyIndex(std::size_t expectedCount);

  CParam* Find(WStringView key) const;
  // The node's key must not be in the index yet.
  void Insert(CParam* node);
  // Removes the node when it is in the index.
  void Erase(const CParam* node);

 private:
  static std::size_t Hash(WStringView key);
  static std::size_t TableSizeFor(std::size_t count);
  std::size_t Mask() const { return table_.size() - 1; }
  void Place(CParam* node);
  void Grow();

  std::vector<CParam*> table_;  // null marks a free slot
  std::size_t count_ = 0;
};

}  // namespace NScrivolt
