// Walks over whole parameter subtrees for the parameter functions: the
// search of "findsubparam", the recursive sort of "sortsubparams" and the
// dump of "_writeparamtree".
//
// Trees can be arbitrarily deep (a chain of a million levels is a valid
// tree), so none of these recurses: each keeps its own stack on the heap.
#pragma once

#include "engine/params/param.h"
#include "engine/params/param_order.h"
#include "text/base/wide_string.h"

namespace NScrivolt {

struct CSubParamSearch {
  WStringView value;   // the value looked for
  bool recurse;        // also below the direct children
  bool byNumber;       // path components as "#<n>"; display names otherwise
  bool caseSensitive;  // exact code units; otherwise A-Z folded
};

// Looks for the first sub-parameter of `node` whose value equals
// `search.value`. All children of a parameter are tested before any of their
// descendants, and earlier children's subtrees before later children. On a
// match `path` receives the path relative to `node` ("#2.#1", "Colors.Red")
// and the result is true.
bool FindSubParamPath(const CParam& node, const CSubParamSearch& search, WString& path);

// Sorts the children of `node`; with `recurse`, the children of every
// parameter below it too.
void SortSubtree(CParam& node, ParamOrder order, bool descending, bool recurse);

// Appends the dump of `node` and everything below it, after a CR LF when
// `dump` is not empty: one line per parameter, "#<number>/\"<name>\": " and
// the escaped value, each level indented two spaces more than its parent,
// lines joined by CR LF.
void AppendParamTreeDump(const CParam& node, WString& dump);

// The value as the dump shows it: "\" doubled, CR LF, CR, LF and tab written
// as "\r\n", "\r", "\n" and "\t".
void AppendEscapedValue(WStringView value, WString& text);

}  // namespace NScrivolt
