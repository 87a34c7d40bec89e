// CParamChildList: the ordered children of a parameter, shared copy-on-write
// between the nodes whose children they are.
//
// A list is reference counted (single-threaded, so a plain counter). Copying
// a node shares its list; a node that is about to change its list first makes
// it its own (CParam::OwnChildren), cloning it shallowly when others share it.
// A list, and everything in it, therefore never changes while it is shared.
//
// Removal is lazy: a removed child leaves a null slot behind and the list
// remembers the first such slot. While slots are pending, every node keeps its
// physical slot in id.index; Normalize closes the gaps and renumbers from the
// first pending slot on, and runs before anything that needs positions. So a
// run of removals by name costs O(1) each and one O(n) pass at the end.
//
// Keys are looked up by scanning while the list is short, and through a hash
// index (built on first need) once it holds more than kLinearScanLimit. The
// list keeps a 16-bit tag beside each of its first kLinearScanLimit slots (the
// key's digest, or one tag for every automatic name), so a scan reaches
// only the nodes whose tag fits, not every sibling.
#pragma once

#include <cstddef>
#include <array>
#include <cstdint>
#include <limits>
#include <memory>
#include <vector>

#include "engine/params/param_key_index.h"
#include "engine/params/param_order.h"
#include "text/base/wide_string.h"

namespace NScrivolt {

class CParam;

class CParamChildList final {
 public:
  static constexpr std::size_t kLinearScanLimit = 8;

  CParamChildList() = default;
  CParamChildList(const CParamChildList&) = delete;
  CParamChildList& operator=(const CParamChildList&) = delete;
  ~CParamChildList() = default;  // the nodes are deleted by Release

  // Lists come from a pool of their own (see CFixedSizePool).
  static void* operator new(std::size_t size);
  static void operator delete(void* list);

  std::size_t Count() const { return live_; }
  CParam* FindKey(WStringView key);
  // Whether a child that was given its name has the automatic key of
  // `number`; no automatic name can have it, as the number is new.
  bool HasNamedChildWithAutomaticKey(std::uint64_t number);
  // The child at a 0-based position below Count().
  CParam* At(std::size_t position);
  // Makes room for `count` slots in all.
  void Reserve(std::size_t count) { slots_.reserve(count); }
  // Appends a new node at the end; the list takes ownership.
  void Append(CParam* node);
  // Inserts a new node at a position no greater than Count().
  void InsertAt(std::size_t position, CParam* node);
  // Removes and destroys a child of this list.
  void Remove(CParam* node);
  // The children in the given order, after the gaps are closed.
  std::vector<CParam*> Ordered(ParamOrder order, bool descending);
  // Puts the children in the given order: a permutation of Ordered's result.
  void Reorder(std::vector<CParam*> order);
  // Closes the gaps left by removals and renumbers the children after them.
  void Normalize();
  // Whether `node`'s id.index may still be a physical slot awaiting Normalize.
  bool IndexPending(const CParam& node) const;

  // A new list with copies of the children (each sharing its own children);
  // its only holder is `holder`.
  CParamChildList* Clone(CParam* holder);

  // The holder that last made the list its own, or null when unknown. Valid
  // along any path of nodes handed out by a mutating accessor.
  CParam* Owner() const { return owner_; }
  void SetOwner(CParam* holder) { owner_ = holder; }
  bool Shared() const { return refs_ > 1; }
  void AddRef() { ++refs_; }
  // Drops `holder`'s share; the last share destroys the list and its
  // subtree with an explicit stack, so no depth of tree can exhaust the
  // call stack.
  static void Release(CParamChildList* list, const CParam* holder);

 private:
  static constexpr std::uint32_t kClean = std::numeric_limits<std::uint32_t>::max();
  static constexpr std::size_t kFirstCapacity = 4;
  // The tag of every automatic name: a lookup of a key of that form checks
  // these slots as well as those whose digest fits.
  static constexpr std::uint16_t kAutomaticTag = 0xFFFF;

  static std::uint16_t TagOf(const CParam& node);
  bool MayHaveKey(std::size_t slot, const CKeyLookup& lookup) const {
    return tags_[slot] == lookup.tag || (tags_[slot] == kAutomaticTag && lookup.automaticNumber != 0);
  }

  void Take(CParam* node, std::size_t slot);
  static bool IsNamedWithAutomaticKey(const CParam& node);
  void Renumber(std::size_t from);
  CParamKeyIndex& Index();

  // Counts and positions fit 32 bits: a position is an int32 (CParam::index_),
  // and every share of a list is held by a node.
  std::vector<CParam*> slots_;  // owning; null for a removed child not yet compacted
  std::unique_ptr<CParamKeyIndex> index_;
  CParam* owner_ = nullptr;
  std::uint32_t live_ = 0;
  std::uint32_t firstGap_ = kClean;
  std::uint32_t namedWithAutomaticKeys_ = 0;  // children given a name like "Param17"
  std::uint32_t refs_ = 1;
  std::array<std::uint16_t, kLinearScanLimit> tags_{};  // TagOf the first slots' nodes
};

}  // namespace NScrivolt
