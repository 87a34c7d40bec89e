// A parameter subtree as one line of text, for tests of the formats that
// decode into parameters: a leaf is its value in quotes; a node with
// children is its value (when not empty), then its children in braces.
// Numbered children are shown without their automatic names, named ones as
// name=... . For the small trees of tests only: it recurses.
#pragma once

#include <string>

#include "engine/params/param.h"
#include "text/base/utf8.h"

namespace NScrivolt {

inline std::string Layout(const CParam& node) {
  const std::string value = "\"" + WideToUtf8(node.GetValue()) + "\"";
  if (node.Count() == 0) return value;
  std::string text = node.GetValue().empty() ? "{" : value + "{";
  bool first = true;
  for (const CParam* child : node.ListChildren()) {
    if (!first) text += " ";
    if (!child->GetId().numbered) text += WideToUtf8(child->GetId().name) + "=";
    text += Layout(*child);
    first = false;
  }
  return text + "}";
}

}  // namespace NScrivolt
