#include "engine/params/param.h"

#include <algorithm>
#include <memory>

#include "engine/params/fixed_size_pool.h"
#include "engine/params/param_child_list.h"
#include "engine/params/param_path.h"

namespace NScrivolt {

// The class is final, so every request is for one of its own size. Pool
// slots are 8-byte aligned, so the value's block address is too.
void* CParam::operator new(std::size_t) {
  static_assert(offsetof(CParam, value_) % 8 == 4, "see CParamValue");
  return PoolFor<CParam>().Allocate();
}

void CParam::operator delete(void* node) { PoolFor<CParam>().Free(node); }

CParam::CParam(const CParam& other)
    : index_(std::uint32_t(other.IndexAsKept())),
      numbered_(other.numbered_),
      value_(other.value_),
      name_(other.name_),
      children_(other.children_) {
  if (children_ != nullptr) children_->AddRef();
}

// Only a node given a name keeps its id: a numbered one is named later. The
// position is written when a list takes the node.
CParam::CParam(CParamId&& id)
    : index_(0),
      numbered_(id.numbered),
      name_(id.numbered ? CParamName() : CParamName(CParamIdShare::Make(std::move(id)))) {}

CParam::CParam(const CParamIdShare& id) : index_(0), numbered_(0), name_(id) {}

CParam::~CParam() { CParamChildList::Release(children_, this); }

void CParam::SetValueNumber(std::int32_t value) { SetValue(IntegerToText(value)); }

std::int32_t CParam::IndexAsKept() const {
  if (container_ != nullptr && container_->IndexPending(*this)) container_->Normalize();
  return std::int32_t(index_);
}

// An id shared with other nodes is never changed: the node takes a copy of
// its own before it writes its position into it.
const CParamId& CParam::GetId() const {
  const std::int32_t index = IndexAsKept();
  CParamId& id = name_.OwnId();
  id.index = index;
  id.numbered = numbered_;
  return id;
}

WStringView CParam::KeyIn(AutomaticKeyBuffer& buffer) const {
  return HasAutomaticName() ? AutomaticKeyIn(AutomaticNumber(), buffer) : GivenKey();
}

std::size_t CParam::Count() const { return children_ != nullptr ? children_->Count() : 0; }

WString CParam::IdText(const CParamId& id, bool asNumber) {
  if (!asNumber) return id.name;
  return u"#" + IntegerToText(std::int64_t(id.index) + 1);
}

// --- Sharing --------------------------------------------------------------

CParamChildList* CParam::OwnChildren() {
  if (children_ == nullptr) return nullptr;
  if (children_->Shared()) {
    CParamChildList* own = children_->Clone(this);
    CParamChildList::Release(children_, this);
    children_ = own;
  }
  children_->SetOwner(this);
  return children_;
}

CParamChildList& CParam::OwnOrCreateChildren() {
  if (children_ == nullptr) children_ = new CParamChildList;
  return *OwnChildren();
}

// The old list is released only after the new one is in place: the new one
// may come from inside the old one.
void CParam::ReplaceChildren(CParamChildList* list) {
  CParamChildList* old = std::exchange(children_, list);
  CParamChildList::Release(old, this);
}

CParamChildList* CParam::TakeChildren() {
  CParamChildList* list = std::exchange(children_, nullptr);
  if (list != nullptr && list->Owner() == this) list->SetOwner(nullptr);
  return list;
}

// --- Creation -------------------------------------------------------------

// No other automatic name can have the new number, but a sibling given a
// name of that form can.
void CParam::NameAutomatically(CParamChildList& siblings) {
  do {
    name_.SetAutomatic(NextAutomaticNumber());
  } while (siblings.HasNamedChildWithAutomaticKey(AutomaticNumber()));
}

CParam* CParam::AppendNumbered() {
  CParamChildList& list = OwnOrCreateChildren();
  auto node = std::make_unique<CParam>();
  node->NameAutomatically(list);
  list.Append(node.get());
  return node.release();
}

void CParam::ReserveChildren(std::size_t count) { OwnOrCreateChildren().Reserve(count); }

CParam* CParam::AppendNamed(CParamId&& id) {
  CParamChildList& list = OwnOrCreateChildren();
  auto node = std::unique_ptr<CParam>(new CParam(std::move(id)));
  list.Append(node.get());
  return node.release();
}

CParam* CParam::AddChild(const CParamIdShare& id) {
  CParamChildList& list = OwnOrCreateChildren();
  auto node = std::unique_ptr<CParam>(new CParam(id));
  if (list.FindKey(id->key) != nullptr) node->NameAutomatically(list);
  list.Append(node.get());
  return node.release();
}

CParam* CParam::AddChild(const CParamId& id) {
  CParamChildList& list = OwnOrCreateChildren();
  auto node = std::unique_ptr<CParam>(new CParam(CParamId(id)));
  if (id.numbered) {
    const auto count = std::int64_t(list.Count());
    std::int64_t position = id.index < 0 ? id.index + count : id.index;
    position = std::clamp<std::int64_t>(position, 0, count);
    node->NameAutomatically(list);
    list.InsertAt(std::size_t(position), node.get());
  } else {
    if (list.FindKey(id.key) != nullptr) node->NameAutomatically(list);
    list.Append(node.get());
  }
  return node.release();
}

// --- Lookup ---------------------------------------------------------------

const CParam* CParam::FindKey(WStringView key) const {
  return children_ != nullptr ? children_->FindKey(key) : nullptr;
}

std::int64_t CParam::ResolveIndex(std::int32_t index) const {
  return index < 0 ? index + std::int64_t(Count()) : index;
}

const CParam* CParam::GetByNumber(std::int32_t index) const {
  const std::int64_t position = ResolveIndex(index);
  if (position < 0 || position >= std::int64_t(Count())) return nullptr;
  return children_->At(std::size_t(position));
}

// A missing position is handed to AddChild already resolved; AddChild
// resolves a negative one once more before it clamps.
CParam* CParam::GetByNumber(std::int32_t index, bool create) {
  const std::int64_t position = ResolveIndex(index);
  if (position >= 0 && position < std::int64_t(Count())) {
    return OwnChildren()->At(std::size_t(position));
  }
  if (!create) return nullptr;
  CParamId id;
  id.index = std::int32_t(position);  // fits: only a negative index grew
  return AddChild(id);
}

const CParam* CParam::GetChild(const CParamId& id) const {
  return id.numbered ? GetByNumber(id.index) : FindKey(id.key);
}

// A list no other node shares is already this node's own: the child found
// is the one to hand out, without a second lookup.
CParam* CParam::GetChild(const CParamId& id, bool create) {
  if (id.numbered) return GetByNumber(id.index, create);
  const CParam* found = FindKey(id.key);
  if (found == nullptr) return create ? AppendNamed(CParamId(id)) : nullptr;
  if (!children_->Shared()) {
    children_->SetOwner(this);
    return const_cast<CParam*>(found);
  }
  return OwnChildren()->FindKey(id.key);
}

const CParam* CParam::GetChildByName(WStringView name) const { return FindKey(ToLowerAscii(name)); }

// The display name is made only for a child that is created.
CParam* CParam::GetChildByName(WStringView name, bool create) {
  CParamId id;
  id.numbered = false;
  id.key = ToLowerAscii(name);
  if (FindKey(id.key) != nullptr) return OwnChildren()->FindKey(id.key);
  if (!create) return nullptr;
  id.name = WString(name);
  return AppendNamed(std::move(id));
}

WString CParam::GetChildValue(WStringView name) const {
  const CParam* child = GetChildByName(name);
  return child != nullptr ? child->GetValue() : WString();
}

const CParam* CParam::Walk(const CParamId* first, const CParamId* last) const {
  const CParam* node = this;
  for (; node != nullptr && first != last; ++first) node = node->GetChild(*first);
  return node;
}

// Without creation the walk is tried read-only first, so that looking for
// a missing node clones nothing.
CParam* CParam::Walk(const CParamId* first, const CParamId* last, bool create) {
  if (!create && std::as_const(*this).Walk(first, last) == nullptr) return nullptr;
  CParam* node = this;
  for (; node != nullptr && first != last; ++first) node = node->GetChild(*first, create);
  return node;
}

const CParam* CParam::FindParam(const CParamQualifier& qualifier) const {
  return Walk(qualifier.data(), qualifier.data() + qualifier.size());
}

CParam* CParam::FindParam(const CParamQualifier& qualifier, bool create) {
  return Walk(qualifier.data(), qualifier.data() + qualifier.size(), create);
}

const CParam* CParam::FindParam(const CParamPath& path) const {
  const CParamQualifier& components = path.Components();
  const CParam* node = this;
  for (std::size_t i = 0; node != nullptr && i < components.size(); ++i) {
    if (components[i].numbered) {
      node = node->GetByNumber(components[i].index);
    } else {
      node = node->children_ != nullptr ? node->children_->FindKey(path.Key(i)) : nullptr;
    }
  }
  return node;
}

bool CParam::ParamExists(const CParamQualifier& qualifier) const {
  return FindParam(qualifier) != nullptr;
}

// --- Removal --------------------------------------------------------------

void CParam::DeleteParam(const CParamQualifier& qualifier) {
  if (qualifier.empty() || !ParamExists(qualifier)) return;
  const CParamId* last = qualifier.data() + qualifier.size() - 1;
  Walk(qualifier.data(), last, false)->RemoveChild(*last);
}

// The child must exist.
void CParam::RemoveChild(const CParamId& id) {
  CParamChildList* list = OwnChildren();
  CParam* child = id.numbered ? list->At(std::size_t(ResolveIndex(id.index))) : list->FindKey(id.key);
  list->Remove(child);
}

void CParam::Clear() {
  ReplaceChildren(nullptr);
  SetValue(WStringView());
}

void CParam::ClearChildren() { ReplaceChildren(nullptr); }

// --- Copying --------------------------------------------------------------

void CParam::CopyFrom(const CParam& source) {
  if (&source == this) return;
  CParam snapshot(source);
  if (IsDescendantOf(source)) snapshot.SeparatePathTo(*this, source);
  value_ = std::move(snapshot.value_);
  ReplaceChildren(snapshot.TakeChildren());
}

// Follows the lists' owners upwards. Along a path handed out by mutating
// accessors every list has this node's ancestor as its one owner.
bool CParam::IsDescendantOf(const CParam& node) const {
  for (const CParam* at = this; at->container_ != nullptr;) {
    const CParam* parent = at->container_->Owner();
    if (parent == nullptr) return false;
    if (parent == &node) return true;
    at = parent;
  }
  return false;
}

// This node is a snapshot sharing `source`'s children, and `descendant` lies
// below `source`. Cloning the lists on the way down to the descendant's old
// state keeps the snapshot from containing the descendant itself, which is
// about to receive the snapshot's children: that would make a cycle.
void CParam::SeparatePathTo(const CParam& descendant, const CParam& source) {
  std::vector<const CParam*> path;
  for (const CParam* at = &descendant; at != &source; at = at->container_->Owner()) {
    path.push_back(at);
  }
  CParam* copy = this;
  for (auto step = path.rbegin(); step != path.rend(); ++step) {
    copy = copy->OwnChildren()->At(std::size_t((*step)->IndexAsKept()));
  }
}

// --- Listing and sorting --------------------------------------------------

std::vector<CParam*> CParam::ListChildren(ParamOrder order, bool descending) {
  if (children_ == nullptr) return {};
  return OwnChildren()->Ordered(order, descending);
}

std::vector<const CParam*> CParam::ListChildren(ParamOrder order, bool descending) const {
  if (children_ == nullptr) return {};
  const std::vector<CParam*> nodes = children_->Ordered(order, descending);
  return std::vector<const CParam*>(nodes.begin(), nodes.end());
}

void CParam::SortChildren(ParamOrder order, bool descending) {
  if (children_ == nullptr) return;
  CParamChildList* list = OwnChildren();
  list->Reorder(list->Ordered(order, descending));
}

// --- CParams --------------------------------------------------------------

CParams::CParams(const CParams& other) { root_.CopyFrom(other.root_); }

CParams& CParams::operator=(const CParams& other) {
  root_.CopyFrom(other.root_);
  return *this;
}

}  // namespace NScrivolt
