// Helpers for the parameter tree tests: building references and describing
// trees as text that a test can compare.
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

#include "engine/params/param.h"
#include "engine/params/param_qualifier.h"
#include "text/base/utf8.h"

namespace NScrivolt {

// A reference that must parse.
inline CParamQualifier Ref(WStringView text) {
  CQualifierParse parse = ParseQualifierText(text, u"Param");
  EXPECT_EQ(parse.message, u"") << "reference " << WideToUtf8(WString(text));
  return std::move(parse.qualifier);
}

// A name given to a node, as a decoder shares it between nodes.
inline CParamIdShare SharedName(const char16_t* name, const char16_t* key) {
  CParamId id;
  id.numbered = false;
  id.name = name;
  id.key = key;
  return CParamIdShare::Make(std::move(id));
}

// The direct children as "name=value" joined by ", ", in number order.
inline std::string Children(const CParam& node) {
  std::string text;
  for (const CParam* child : node.ListChildren()) {
    if (!text.empty()) text += ", ";
    text += WideToUtf8(child->GetId().name) + "=" + WideToUtf8(child->GetValue());
  }
  return text;
}

// The whole subtree, one node a line: depth, number, name, numbered flag
// and value. Walked with an explicit stack.
inline std::string Dump(const CParam& root) {
  std::string text;
  std::vector<std::pair<const CParam*, int>> pending{{&root, 0}};
  while (!pending.empty()) {
    auto [node, depth] = pending.back();
    pending.pop_back();
    const CParamId& id = node->GetId();
    text += std::to_string(depth) + " #" + std::to_string(id.index + 1) + " " +
            WideToUtf8(id.name) + (id.numbered ? " (numbered)" : "") + " = " +
            WideToUtf8(node->GetValue()) + "\n";
    const std::vector<const CParam*> children = node->ListChildren();
    for (auto it = children.rbegin(); it != children.rend(); ++it) pending.push_back({*it, depth + 1});
  }
  return text;
}

// Every child's index equals its position: the numbering invariant.
inline bool NumberedInOrder(const CParam& node) {
  const std::vector<const CParam*> children = node.ListChildren();
  for (std::size_t i = 0; i < children.size(); ++i) {
    if (children[i]->GetId().index != std::int32_t(i)) return false;
    if (node.GetByNumber(std::int32_t(i)) != children[i]) return false;
  }
  return true;
}

}  // namespace NScrivolt
