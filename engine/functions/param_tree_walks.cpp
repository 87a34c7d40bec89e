#include "engine/functions/param_tree_walks.h"

#include <cstddef>
#include <cstdint>
#include <vector>

namespace NScrivolt {

namespace {

const CParam& ChildAt(const CParam& node, std::size_t position) {
  return *node.GetByNumber(std::int32_t(position));
}

bool ValuesEqual(const CParamValue& a, WStringView b, bool caseSensitive) {
  return caseSensitive ? a.Equals(b) : a.EqualsIgnoringCase(b);
}

// The first direct child of `node` holding the value, or null.
const CParam* MatchingChild(const CParam& node, const CSubParamSearch& search) {
  const std::size_t count = node.Count();
  for (std::size_t i = 0; i < count; ++i) {
    const CParam& child = ChildAt(node, i);
    if (ValuesEqual(child.Value(), search.value, search.caseSensitive)) return &child;
  }
  return nullptr;
}

void AppendPathComponent(const CParam& node, bool byNumber, WString& path) {
  if (!path.empty()) path += u'.';
  path += CParam::IdText(node.GetId(), byNumber);
}

// One level of the depth-first walk: a parameter and the next child of it
// to descend into.
struct CWalkFrame {
  const CParam* node;
  std::size_t next;
};

}  // namespace

// Pre-order walk: visiting a parameter tests all its children; then the walk
// descends into each child in turn. The frames on the stack are the path.
bool FindSubParamPath(const CParam& node, const CSubParamSearch& search, WString& path) {
  path.clear();
  const CParam* match = MatchingChild(node, search);
  std::vector<CWalkFrame> stack;
  if (match == nullptr && search.recurse) stack.push_back({&node, 0});
  while (match == nullptr && !stack.empty()) {
    CWalkFrame& top = stack.back();
    if (top.next == top.node->Count()) {
      stack.pop_back();
      continue;
    }
    const CParam& child = ChildAt(*top.node, top.next++);
    if (child.Count() == 0) continue;
    stack.push_back({&child, 0});
    match = MatchingChild(child, search);
  }
  if (match == nullptr) return false;
  for (std::size_t level = 1; level < stack.size(); ++level) AppendPathComponent(*stack[level].node, search.byNumber, path);
  AppendPathComponent(*match, search.byNumber, path);
  return true;
}

void SortSubtree(CParam& node, ParamOrder order, bool descending, bool recurse) {
  node.SortChildren(order, descending);
  if (!recurse) return;
  // Sorting a parameter changes only its own child list, so the pointers to
  // its children stay valid while their siblings' subtrees are sorted.
  std::vector<CParam*> pending = node.ListChildren();
  while (!pending.empty()) {
    CParam* next = pending.back();
    pending.pop_back();
    if (next->Count() == 0) continue;
    next->SortChildren(order, descending);
    const std::vector<CParam*> children = next->ListChildren();
    pending.insert(pending.end(), children.begin(), children.end());
  }
}

void AppendEscapedValue(WStringView value, WString& text) {
  for (std::size_t i = 0; i < value.size(); ++i) {
    switch (const WChar c = value[i]) {
      case u'\\':
        text += u"\\\\";
        break;
      case u'\r':
        if (i + 1 < value.size() && value[i + 1] == u'\n') {
          text += u"\\r\\n";
          ++i;
        } else {
          text += u"\\r";
        }
        break;
      case u'\n':
        text += u"\\n";
        break;
      case u'\t':
        text += u"\\t";
        break;
      default:
        text += c;
    }
  }
}

namespace {

void AppendDumpLine(const CParam& node, std::size_t depth, WString& dump) {
  if (!dump.empty()) dump += u"\r\n";
  dump.append(2 * depth, u' ');
  dump += CParam::IdText(node.GetId(), true);
  dump += u"/\"";
  dump += node.GetId().name;
  dump += u"\": ";
  AppendEscapedValue(node.GetValue(), dump);
}

}  // namespace

// Pre-order walk; a line's depth is the number of frames above it.
void AppendParamTreeDump(const CParam& node, WString& dump) {
  AppendDumpLine(node, 0, dump);
  std::vector<CWalkFrame> stack{{&node, 0}};
  while (!stack.empty()) {
    CWalkFrame& top = stack.back();
    if (top.next == top.node->Count()) {
      stack.pop_back();
      continue;
    }
    const CParam& child = ChildAt(*top.node, top.next++);
    AppendDumpLine(child, stack.size(), dump);
    if (child.Count() != 0) stack.push_back({&child, 0});
  }
}

}  // namespace NScrivolt
