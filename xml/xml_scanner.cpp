#include "xml/xml_scanner.h"

#include <cstdint>
#include <initializer_list>

namespace NScrivolt {

namespace {

enum CharClass : std::uint8_t {
  kSpace = 1,    // separates tokens, trimmed from texts
  kWordEnd = 2,  // ends a plain word ("/" only when ">" follows)
  kNameEnd = 4,  // ends the name of an end tag
  kQuote = 8,    // may open a quoted value
};

struct CharClassTable {
  std::uint8_t classes[128] = {};
  constexpr CharClassTable() {
    for (char c : {' ', '\t', '\r', '\n'}) classes[int(c)] = kSpace | kWordEnd | kNameEnd;
    for (char c : {'<', '=', '>'}) classes[int(c)] = kWordEnd | kNameEnd;
    classes[int('/')] = kNameEnd;
    classes[int('"')] = kQuote;
    classes[int('\'')] = kQuote;
  }
};

constexpr CharClassTable kCharClasses;

bool HasClass(WChar c, CharClass wanted) {
  return c < 128 && (kCharClasses.classes[c] & wanted) != 0;
}

constexpr XmlSectionTags kSections[] = {
    {u"<![CDATA[", u"]]>", u"", false},
    {u"<!DOCTYPE", u">", u"]>", false},
    {u"<!--", u"-->", u"", true},
    {u"<PRE>", u"</PRE>", u"", false},
    {u"<Script>", u"</Script>", u"", false},
};

}  // namespace

bool IsXmlSpace(WChar c) { return HasClass(c, kSpace); }

WStringView TrimXmlSpace(WStringView text) {
  std::size_t first = 0;
  std::size_t last = text.size();
  while (first < last && IsXmlSpace(text[first])) ++first;
  while (last > first && IsXmlSpace(text[last - 1])) --last;
  return text.substr(first, last - first);
}

WStringView XmlScanner::ReadTextRun() {
  const std::size_t start = position_;
  position_ = text_.find(u'<', start);
  if (position_ == WStringView::npos) position_ = text_.size();
  return text_.substr(start, position_ - start);
}

// Every open tag is "<" and at least three more units, and most tags are
// told apart from all of them by their second unit alone.
const XmlSectionTags* XmlScanner::SectionAtPosition() const {
  if (position_ + 1 >= text_.size()) return nullptr;
  const WChar second = text_[position_ + 1];
  for (const XmlSectionTags& section : kSections) {
    if (section.openTag[1] == second && LooksAt(section.openTag)) return &section;
  }
  return nullptr;
}

bool XmlScanner::ReadSection(const XmlSectionTags& section, WStringView& value,
                             WStringView& closeTag) {
  const std::size_t valueStart = position_ + section.openTag.size();
  closeTag = section.closeTag;
  std::size_t close = text_.find(closeTag, valueStart);
  if (!section.innerCloseTag.empty() && close != WStringView::npos &&
      text_.substr(valueStart, close - valueStart).find(u'<') != WStringView::npos) {
    closeTag = section.innerCloseTag;
    close = text_.find(closeTag, valueStart);
  }
  if (close == WStringView::npos) return false;
  value = text_.substr(valueStart, close - valueStart);
  position_ = close + closeTag.size();
  return true;
}

void XmlScanner::SkipSpace() {
  while (position_ < text_.size() && IsXmlSpace(text_[position_])) ++position_;
}

// word := { any unit but white space, "<", "=", ">", or "/" before ">" }
XmlToken XmlScanner::ReadWord(std::size_t start) {
  position_ = start;
  while (position_ < text_.size()) {
    const WChar c = text_[position_];
    if (HasClass(c, kWordEnd)) break;
    if (c == u'/' && position_ + 1 < text_.size() && text_[position_ + 1] == u'>') break;
    ++position_;
  }
  return {XmlTokenKind::Word, start, text_.substr(start, position_ - start)};
}

// quoted := '"' { unit but '"' } '"' | "'" { unit but "'" } "'"
// A quote that meets "<" or the end of the text before its partner is an
// ordinary unit and starts a word, so one stray quote cannot swallow the
// markup that follows it.
XmlToken XmlScanner::ReadQuotedOrWord() {
  const std::size_t start = position_;
  const WChar quote = text_[start];
  std::size_t at = start + 1;
  while (at < text_.size() && text_[at] != quote && text_[at] != u'<') ++at;
  if (at >= text_.size() || text_[at] != quote) return ReadWord(start);
  position_ = at + 1;
  return {XmlTokenKind::Quoted, start, text_.substr(start + 1, at - start - 1)};
}

// token := word | quoted | "=" | ">" | "/>" | "<" | end, white space between
XmlToken XmlScanner::NextTagToken() {
  SkipSpace();
  const std::size_t start = position_;
  if (AtEnd()) return {XmlTokenKind::End, start, {}};
  const WChar c = text_[start];
  XmlTokenKind kind = XmlTokenKind::Word;
  std::size_t length = 1;
  if (c == u'<') kind = XmlTokenKind::Markup;
  else if (c == u'=') kind = XmlTokenKind::Equals;
  else if (c == u'>') kind = XmlTokenKind::Close;
  else if (LooksAt(u"/>")) kind = XmlTokenKind::EmptyClose, length = 2;
  else if (HasClass(c, kQuote)) return ReadQuotedOrWord();
  else return ReadWord(start);
  position_ += length;
  return {kind, start, text_.substr(start, length)};
}

XmlToken XmlScanner::ReadEndTagName() {
  SkipSpace();
  const std::size_t start = position_;
  while (position_ < text_.size() && !HasClass(text_[position_], kNameEnd)) ++position_;
  return {XmlTokenKind::Word, start, text_.substr(start, position_ - start)};
}

}  // namespace NScrivolt
