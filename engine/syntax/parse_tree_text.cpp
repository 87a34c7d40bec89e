#include "engine/syntax/parse_tree_text.h"

#include <vector>

#include "text/base/utf8.h"

namespace NScrivolt {

namespace {

// What a part writes before its children, between two of them and after them.
struct PartFrame {
  std::string open;
  const char* separator;
  std::string close;
};

PartFrame FrameOf(const CParsePart& part) {
  const std::string name = WideToUtf8(part.Name());
  const std::string value = WideToUtf8(part.Value());
  switch (part.Kind()) {
    case PartKind::Template: return {"", ", ", ""};
    case PartKind::Text: return {"T\"" + value + "\"", "", ""};
    case PartKind::Call: return {name + "(", " ", ")"};
    case PartKind::ArgFlag: return {name, "", ""};
    case PartKind::ArgText: return {name + "=\"" + value + "\"", "", ""};
    case PartKind::ArgReference: return {name + "=" + value, "", ""};
    case PartKind::ArgContent: return {name + ":[", ", ", "]"};
  }
  return {"?", "", ""};
}

}  // namespace

std::string ParseTreeText(const CParsePart& root) {
  struct Visit {
    const CParsePart* part;
    PartFrame frame;
    std::size_t next = 0;
  };
  std::string text;
  std::vector<Visit> stack;
  stack.push_back({&root, FrameOf(root)});
  text += stack.back().frame.open;
  while (!stack.empty()) {
    Visit& top = stack.back();
    const auto& children = top.part->Children();
    if (top.next == children.size()) {
      text += top.frame.close;
      stack.pop_back();
      continue;
    }
    if (top.next > 0) text += top.frame.separator;
    const CParsePart& child = *children[top.next++];
    stack.push_back({&child, FrameOf(child)});
    text += stack.back().frame.open;
  }
  return text;
}

}  // namespace NScrivolt
