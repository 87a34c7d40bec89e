// The parameter tree: CParam, a node with a text value and ordered children
// reachable by name and by number, and CParams, the owner of one tree.
//
// Design notes
//
// Trees are copied far more often than they are changed: "foreach" copies its
// collection, "set" and argument evaluation copy subtrees, an isolated
// processing and "gate" keep a copy of the whole tree, and every call of a
// user function saves and restores its argument parameters. With a million
// parameters, deep copies would dominate a run. So copies are cheap:
//
// - Children live in a CParamChildList shared copy-on-write by every node
//   whose children they are. Copying a node (CopyFrom, the copy constructor)
//   copies its value and takes a share of its list: O(1) whatever the size of
//   the subtree. A shared list never changes. An operation that changes a
//   node's children first makes the list the node's own, cloning it shallowly
//   when it is shared: new child nodes that copy value and id and share their
//   own children in turn. A change deep in a copied tree clones only the lists
//   on its path.
//
// - A node cannot know a unique parent, since its list may hang below several
//   nodes in several trees. There is no parent pointer: removal goes through
//   the parent (DeleteParam walks to the parent and removes the child there),
//   and destroying a node never detaches it from anything.
//
// - Handing out a mutable child pointer makes every list on the way to it
//   the walking node's own, so a change made through the pointer never shows
//   in another tree. Const accessors never clone anything: read through a
//   const reference (std::as_const) when nothing is to be changed, or a read
//   of a shared list pays for a clone it does not need.
//
// - Keys are found by a short scan in small lists and through a hash index in
//   larger ones; the index holds node pointers and reads each key from the
//   node, so no key is stored twice. Name order is computed only when a
//   listing asks for it. Removal leaves a gap that the next positional access
//   closes, so removals by name cost O(1) each.
//
// - An automatic name ("Param17") is kept as its number; name and key are
//   written out only when GetId asks for them, and lookups compare a key of
//   that form with the number. A numbered child costs no text beyond its
//   value.
//
// - A value is a CParamValue: one byte a unit when every unit is below
//   0x100, short ones inside the node. Readers that only append, compare or
//   encode it read it through Value() in that form; GetValue() widens it.
//
// - A node is 40 bytes: pools hand out millions of them, and every byte of
//   the node costs a decoded million-row file several megabytes.
//
// - Nothing recurses over the depth of a tree: the last share of a list
//   destroys its subtree with an explicit stack, and copying is O(1).
//
// Pointer validity: a CParam* handed out by a mutating accessor stays valid
// until the tree is changed in a way that removes or replaces that node, and
// until another tree takes a share of a list on its path and either tree then
// changes it (the changing side gets new nodes). After anything that could
// have copied or changed the tree, find the node again.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <utility>
#include <vector>

#include "engine/params/param_automatic_name.h"
#include "engine/params/param_id.h"
#include "engine/params/param_name.h"
#include "engine/params/param_order.h"
#include "engine/params/param_value.h"
#include "text/base/wide_string.h"

namespace NScrivolt {

class CParamChildList;
class CParamPath;

class CParam final {
 public:
  CParam() : index_(0), numbered_(1) {}
  // A free-standing node with the other's value and id and a share of its
  // children.
  CParam(const CParam& other);
  // Copy into an existing node with CopyFrom, which keeps the node's own id.
  CParam& operator=(const CParam&) = delete;
  ~CParam();

  // Nodes come from a pool of their own (see CFixedSizePool).
  static void* operator new(std::size_t size);
  static void operator delete(void* node);

  // The value widened to a text of its own; readers on a hot path append,
  // compare or view it through Value() instead.
  WString GetValue() const { return value_.ToString(); }
  const CParamValue& Value() const { return value_; }
  void AppendValueTo(WString& out) const { value_.AppendTo(out); }
  void SetValue(WStringView value) { SetValue(value, ValueKind::Text); }
  // Sets the value and says what it stands for.
  void SetValue(WStringView value, ValueKind kind) { value_.Assign(value, kind); }
  ValueKind GetValueKind() const { return value_.Kind(); }
  // The number in plain decimal, "-" before negatives.
  void SetValueNumber(std::int32_t value);
  const CParamId& GetId() const;
  // The display name and the key alone; unlike GetId, they leave an id
  // shared with other nodes shared. Valid while the node keeps its name.
  WStringView GetName() const { return name_.Given() != nullptr ? WStringView(name_.Given()->name) : GetId().name; }
  WStringView GetKey() const { return name_.Given() != nullptr ? WStringView(name_.Given()->key) : GetId().key; }
  // True for a child made by number, and for one whose name was taken.
  bool HasAutomaticName() const { return name_.IsAutomatic(); }
  std::size_t Count() const;
  // asNumber: "#" and the 1-based number; otherwise the display name.
  static WString IdText(const CParamId& id, bool asNumber);

  // A new last child: numbered, automatically named, empty.
  CParam* AppendNumbered();
  // Makes room for `count` children in all, so that a builder that knows
  // how many children are coming spares the list its growth steps.
  void ReserveChildren(std::size_t count);
  // A new named child that shares `id` (a name, its key and no number) with
  // every other node made from it, so that a decoder making a million nodes
  // of a few names holds each name once. Automatically named when the key is
  // taken already.
  CParam* AddChild(const CParamIdShare& id);
  // A new child described by `id`. Numbered: inserted at id.index (negative
  // counts from the end, then clamped into 0..Count()), automatically named.
  // Named: appended; automatically named when the key is taken already.
  CParam* AddChild(const CParamId& id);

  // The child at a 0-based position, negative counting from the end. When
  // there is none and `create` is set, AddChild makes one at that position.
  CParam* GetByNumber(std::int32_t index, bool create = false);
  const CParam* GetByNumber(std::int32_t index) const;
  // By key when the id is named, by number when it is numbered.
  CParam* GetChild(const CParamId& id, bool create = false);
  const CParam* GetChild(const CParamId& id) const;
  // Names compare with A-Z folded to lower case; a created child keeps the
  // spelling given here as its display name.
  CParam* GetChildByName(WStringView name, bool create = false);
  const CParam* GetChildByName(WStringView name) const;
  // The value of the named child, or empty text when there is none.
  WString GetChildValue(WStringView name) const;

  // Walks the components from this node; an empty qualifier gives this node.
  // With `create` every missing step is made.
  CParam* FindParam(const CParamQualifier& qualifier, bool create = false);
  const CParam* FindParam(const CParamQualifier& qualifier) const;
  // As FindParam, with the keys of the named components prepared.
  const CParam* FindParam(const CParamPath& path) const;
  bool ParamExists(const CParamQualifier& qualifier) const;
  // Removes the node the qualifier names, if it exists; the later siblings
  // move down one number. An empty qualifier names this node itself, which
  // cannot remove itself: nothing happens.
  void DeleteParam(const CParamQualifier& qualifier);

  // Removes all children and empties the value.
  void Clear();
  // Removes all children and keeps the value.
  void ClearChildren();
  // Makes this node's value and children a copy of the source's, as the
  // source is at the time of the call (it may be this node's ancestor or
  // descendant). This node's own id does not change.
  void CopyFrom(const CParam& source);

  // The children in the requested order; the pointers do not own.
  std::vector<CParam*> ListChildren(ParamOrder order = ParamOrder::ByNumber,
                                    bool descending = false);
  std::vector<const CParam*> ListChildren(ParamOrder order = ParamOrder::ByNumber,
                                          bool descending = false) const;
  // Puts the children in ListChildren's order and renumbers them.
  void SortChildren(ParamOrder order, bool descending);

 private:
  friend class CParamChildList;
  friend class CParamKeyIndex;

  explicit CParam(CParamId&& id);
  explicit CParam(const CParamIdShare& id);

  // This node's list, made its own first (cloned if shared); null when the
  // node has never had children.
  CParamChildList* OwnChildren();
  CParamChildList& OwnOrCreateChildren();
  // A new last child named by `id`, whose key no child has.
  CParam* AppendNamed(CParamId&& id);
  void ReplaceChildren(CParamChildList* list);
  CParamChildList* TakeChildren();
  const CParam* FindKey(WStringView key) const;
  // The position among the siblings, up to date.
  std::int32_t IndexAsKept() const;
  // The key of a node given a name; empty for an automatic name.
  WStringView GivenKey() const { return name_.GivenKey(); }
  // In line: lookups in short lists call it for every child.
  bool HasKey(const CKeyLookup& lookup) const {
    return HasAutomaticName() ? AutomaticNumber() == lookup.automaticNumber : GivenKey() == lookup.key;
  }
  // The number of an automatic name; 0 for a name given.
  std::uint64_t AutomaticNumber() const { return name_.AutomaticNumber(); }
  // The key, written into `buffer` when it is an automatic one.
  WStringView KeyIn(AutomaticKeyBuffer& buffer) const;
  // The position a 0-based index names: negative ones count from the end.
  std::int64_t ResolveIndex(std::int32_t index) const;
  void NameAutomatically(CParamChildList& siblings);
  const CParam* Walk(const CParamId* first, const CParamId* last) const;
  CParam* Walk(const CParamId* first, const CParamId* last, bool create);
  void RemoveChild(const CParamId& id);
  bool IsDescendantOf(const CParam& node) const;
  void SeparatePathTo(const CParam& descendant, const CParam& source);

  // The first 16 bytes: the position, then the value, whose block address
  // so lies on an 8-byte boundary.
  std::uint32_t index_ : 31;    // position among the siblings (see CParamChildList)
  std::uint32_t numbered_ : 1;  // made by number
  CParamValue value_;
  // Given name, automatic number or none. A copy of the node shares a
  // given name; GetId writes an automatic name out, and makes a given one
  // the node's own before it writes the position into it.
  mutable CParamName name_;
  CParamChildList* children_ = nullptr;   // shared; null without children
  CParamChildList* container_ = nullptr;  // the list holding this node; null for a root
};

static_assert(sizeof(CParam) == 40, "a node is 40 bytes: see the design notes");

// Owns the root of one parameter tree. A copy takes a share of the whole
// tree in O(1); changes to either side stay on that side.
class CParams {
 public:
  CParams() = default;
  CParams(const CParams& other);
  CParams& operator=(const CParams& other);
  virtual ~CParams() = default;

  CParam& Root() { return root_; }
  const CParam& Root() const { return root_; }

 private:
  CParam root_;
};

}  // namespace NScrivolt
