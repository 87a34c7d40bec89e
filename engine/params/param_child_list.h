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
// list keeps an 8-bit tag beside each of its first kLinearScanLimit slots (the
// key's digest folded, or one tag for every automatic name), so a scan
// reaches only the nodes whose tag fits, not every sibling.
//
// Most lists are short (an element of a decoded XML document has two to four
// children, each attribute two, a CSV row one a column), so the first
// kInlineSlots slots live inside the list object: a short list is one block
// from the pool, and a lookup in it reaches the matching node straight from
// the list. A list that outgrows them moves its slots to an array of their
// own on the heap, for good; only such a list can grow long enough for the
// hash index, whose pointer shares the room of the inline slots.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <vector>

#include "engine/params/param_key_index.h"
#include "engine/params/param_order.h"
#include "text/base/wide_string.h"

namespace NScrivolt {

class CParam;

class CParamChildList final {
 public:
  static constexpr std::size_t kLinearScanLimit = 8;
  static constexpr std::size_t kInlineSlots = 6;

  CParamChildList() : size_(0), spilled_(false), live_(0), mayHaveNamedWithAutomaticKey_(false) {}
  CParamChildList(const CParamChildList&) = delete;
  CParamChildList& operator=(const CParamChildList&) = delete;
  ~CParamChildList();  // frees the slot array and the index; the nodes are deleted by Release

  // Lists come from a pool of their own (see CFixedSizePool).
  static void* operator new(std::size_t size);
  static void operator delete(void* list);

  std::size_t Count() const { return live_; }
  CParam* FindKey(WStringView key);
  CParam* FindKey(const CPreparedKey& key);
  // Whether a child that was given its name has the automatic key of
  // `number`; no automatic name can have it, as the number is new.
  bool HasNamedChildWithAutomaticKey(std::uint64_t number);
  // The child at a 0-based position below Count().
  CParam* At(std::size_t position);
  // Makes room for `count` slots in all.
  void Reserve(std::size_t count) {
    if (count > Capacity()) MoveSlots(count);
  }
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
  // The tag of every automatic name: a lookup of a key of that form checks
  // these slots as well as those whose tag fits.
  static constexpr std::uint8_t kAutomaticTag = 0xFF;

  // A key's 16-bit digest folded to the tag kept in the list.
  static std::uint8_t Fold(std::uint16_t digest) { return std::uint8_t(digest ^ (digest >> 8)); }
  static std::uint8_t TagOf(const CParam& node);
  bool MayHaveKey(std::size_t slot, std::uint8_t tag, const CKeyLookup& lookup) const {
    return tags_[slot] == tag || (tags_[slot] == kAutomaticTag && lookup.automaticNumber != 0);
  }

  // The child whose key `lookup` names, in a list of at most
  // kLinearScanLimit children.
  CParam* ScanForKey(const CKeyLookup& lookup);
  std::size_t Capacity() const { return spilled_ ? storage_.heap.capacity : kInlineSlots; }
  CParam** Slots() { return spilled_ ? storage_.heap.slots : storage_.inlineSlots; }
  CParam* const* Slots() const { return spilled_ ? storage_.heap.slots : storage_.inlineSlots; }
  // Moves the slots to a heap array of `capacity`, larger than today's.
  void MoveSlots(std::size_t capacity);
  static constexpr std::size_t kFirstHeapSlots = 7;
  static_assert(kFirstHeapSlots > kInlineSlots);

  // Makes room for one more slot when the slots are full: kFirstHeapSlots
  // on leaving the inline ones, twice as many as before after that.
  void MakeRoomForOne();
  void Take(CParam* node, std::size_t slot);
  static bool IsNamedWithAutomaticKey(const CParam& node);
  void Renumber(std::size_t from);
  CParamKeyIndex& Index();

  // Counts and positions fit 31 bits: a position is an int32
  // (CParam::index_). The members a lookup reads come first.
  std::uint32_t size_ : 31;  // slots in use, removed children not yet compacted included
  std::uint32_t spilled_ : 1;  // the slots are on the heap
  std::uint32_t live_ : 31;
  // Set once a child was given a name like "Param17", and kept: only then
  // must a new automatic name be checked against the siblings.
  std::uint32_t mayHaveNamedWithAutomaticKey_ : 1;
  std::uint32_t firstGap_ = kClean;
  std::uint32_t refs_ = 1;  // every share is held by a node
  std::array<std::uint8_t, kLinearScanLimit> tags_{};  // TagOf the first slots' nodes
  // The slots (owning; null for a removed child not yet compacted): inside
  // the list up to kInlineSlots, on the heap beyond.
  union Storage {
    CParam* inlineSlots[kInlineSlots];
    struct {
      CParam** slots;
      CParamKeyIndex* index;  // null until a lookup in a long list needs it
      std::uint32_t capacity;
    } heap;
  } storage_{};
  CParam* owner_ = nullptr;
};

// Only a list long enough for the index has left its inline slots.
static_assert(CParamChildList::kInlineSlots < CParamChildList::kLinearScanLimit);
// A short list, six slots and their tags included, is 80 bytes on a 64-bit
// target: two cache lines, the first holding all a scan needs but the last
// two slots.
static_assert(sizeof(void*) != 8 || sizeof(CParamChildList) == 80);

}  // namespace NScrivolt
