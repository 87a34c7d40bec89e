// The lexical level of XML reading: text runs between tags, the unparsed
// sections, and the tokens inside a tag. The scanner only splits the text;
// deciding what may stand where is the reader's business.
#pragma once

#include <cstddef>

#include "text/base/wide_string.h"

namespace NScrivolt {

// A section kept raw. When `innerCloseTag` is set and a "<" comes before the
// first `closeTag`, the section holds markup of its own and ends at
// `innerCloseTag` instead.
struct XmlSectionTags {
  WStringView openTag;
  WStringView closeTag;
  WStringView innerCloseTag;
  bool isComment;
};

enum class XmlTokenKind {
  End,         // the text is over
  Word,        // a plain word: up to white space, "<", "=", ">" or "/>"
  Quoted,      // "..." or '...', `text` without the quotes
  Equals,      // "="
  Close,       // ">"
  EmptyClose,  // "/>"
  Markup,      // "<": something that opens markup
};

struct XmlToken {
  XmlTokenKind kind;
  std::size_t start;  // offset of the token's first unit in the whole text
  WStringView text;   // the word, or the content of a quoted value
};

// Space, tab, CR and LF: the only white space XML reading knows.
bool IsXmlSpace(WChar c);
WStringView TrimXmlSpace(WStringView text);

class XmlScanner {
 public:
  explicit XmlScanner(WStringView text) : text_(text) {}

  std::size_t Position() const { return position_; }
  bool AtEnd() const { return position_ >= text_.size(); }
  // In line, as the reader asks at every tag; a literal's length is known
  // when compiled, so the comparison is a few unit compares.
  bool LooksAt(WStringView what) const {
    if (position_ > text_.size() || text_.size() - position_ < what.size()) return false;
    for (std::size_t i = 0; i < what.size(); ++i) {
      if (text_[position_ + i] != what[i]) return false;
    }
    return true;
  }
  template <std::size_t N>
  bool LooksAt(const WChar (&literal)[N]) const {
    return LooksAt(WStringView(literal, N - 1));
  }
  void Skip(std::size_t count) { position_ += count; }

  // Everything up to the next "<" or the end of the text.
  WStringView ReadTextRun();
  // The section whose open tag stands at the position, or null. Open tags are
  // matched with case, in the order CDATA, DOCTYPE, comment, PRE, Script.
  const XmlSectionTags* SectionAtPosition() const;
  // Reads past the open tag of `section` up to and including its close tag;
  // false, without moving, when the close tag never comes.
  bool ReadSection(const XmlSectionTags& section, WStringView& value, WStringView& closeTag);

  XmlToken NextTagToken();
  // The name of an end tag: the units up to white space, "/", "<", ">", "="
  // or the end of the text. Leading white space is skipped.
  XmlToken ReadEndTagName();

 private:
  void SkipSpace();
  XmlToken ReadWord(std::size_t start);
  XmlToken ReadQuotedOrWord();

  WStringView text_;
  std::size_t position_ = 0;
};

}  // namespace NScrivolt
