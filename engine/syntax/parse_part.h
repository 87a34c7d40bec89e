// CParsePart: one node of a parsed template, shared through
// CRefCounter<CParsePart*>. Names and most values are views into the
// template's CTemplateSource, which every part keeps alive, so a part (such
// as the content argument a user function keeps as its body) stays valid
// after the parser that made it is gone.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <utility>
#include <vector>

#include "engine/ref_counter.h"
#include "engine/syntax/template_source.h"
#include "text/base/wide_string.h"

namespace NScrivolt {

// What the lexer recognised; the values are the ones the parser keeps.
enum class TokenKind : std::int32_t {
  Start = 0,         // before the first token of a template
  End = 1,           // end of the text
  ScriptOpen = 2,    // "<#"
  Separator = 3,     // ";"
  ScriptClose = 4,   // "#>"
  ContentOpen = 5,   // "(" opening an argument's content
  ContentClose = 6,  // ")"
};

enum class PartKind : std::int32_t {
  Template = 0,      // children: the top-level parts
  Text = 1,          // value: the literal text as written, escapes still doubled
  Call = 2,          // name: the function name; children: its arguments
  ArgFlag = 3,       // name: the argument name; no value
  ArgText = 4,       // name; value: the quoted text with doubled quotes made single
  ArgReference = 5,  // name; value: the reference text as written
  ArgContent = 6,    // name; children: the parts between the parentheses
};

// What the evaluation works out once about a part and keeps for the part's
// later evaluations: a call's function and argument binding, a constant
// reference parsed. Only what follows from the part alone (or is checked
// again before each use) may be kept, since the part outlives any one run.
class CPartCache {
 public:
  virtual ~CPartCache() = default;
};

class CParsePart;
using CParsePartRef = CRefCounter<CParsePart*>;

class CParsePart {
 public:
  CParsePart(PartKind kind, CRefCounter<CTemplateSource*> source, std::size_t position, WStringView name);
  CParsePart(const CParsePart&) = delete;
  CParsePart& operator=(const CParsePart&) = delete;
  ~CParsePart();

  PartKind Kind() const { return kind_; }
  // Position of the part's first character: the first text character, or the
  // first character of the function or argument name.
  std::size_t Position() const { return position_; }
  // Line, column and context of Position(); looked up on each call, so meant
  // for error reports.
  ParseLocation Location() const { return source_->Locate(position_); }
  WStringView Name() const { return name_; }
  WStringView Value() const { return value_; }
  // For a Text part: whether its value holds an escaped script marker, so
  // that its output differs from it. Found on the first ask and kept, so a
  // part output on every round of a loop is scanned once, and parsing alone
  // scans nothing.
  bool HoldsEscapes() const;
  const std::vector<CParsePartRef>& Children() const { return children_; }
  // The evaluation's cache of this part; null until it keeps one. A part is
  // evaluated in one thread, so a cache may be filled while the tree is const.
  CPartCache* Cache() const { return cache_.get(); }
  void SetCache(std::unique_ptr<CPartCache> cache) const { cache_ = std::move(cache); }

 private:
  friend class CParser;

  void SetKind(PartKind kind) { kind_ = kind; }
  void SetValue(WStringView value) { value_ = value; }
  void SetOwnValue(WString value);
  CParsePart& AppendChild(PartKind kind, std::size_t position, WStringView name);

  PartKind kind_;
  enum class Escapes : std::uint8_t { Unknown, None, Some };
  mutable Escapes escapes_ = Escapes::Unknown;
  std::size_t position_;
  CRefCounter<CTemplateSource*> source_;
  WStringView name_;
  WStringView value_;                  // into source_, or into ownValue_
  std::unique_ptr<WString> ownValue_;  // only for a value that differs from the text as written
  std::vector<CParsePartRef> children_;
  mutable std::unique_ptr<CPartCache> cache_;
};

}  // namespace NScrivolt
