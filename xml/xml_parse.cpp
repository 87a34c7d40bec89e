#include "xml/xml_parse.h"

#include <algorithm>
#include <optional>
#include <utility>

#include "xml/xml_entities.h"
#include "xml/xml_scanner.h"

namespace NScrivolt {

namespace {

// Builds the tree while the scanner walks the text. The open elements are the
// chain from `current_` up through its parents to the nameless `top_`, so the
// nesting depth of the document never becomes depth of the call stack.
class XmlReader {
 public:
  explicit XmlReader(WStringView text)
      : text_(text), scanner_(text), top_(XmlTreeNode::CreateTopElement(std::nullopt)),
        current_(top_) {}

  XmlTreeNode Read(WStringView requiredTopTag, XmlParseResult& result);

 private:
  bool ReadDocument();
  bool ReadTextRun();
  bool ReadSection(const XmlSectionTags& section);
  bool ReadEndTag();
  bool ReadStartTag(bool declaration);
  bool ReadAttribute(XmlTreeNode& element, bool declaration, XmlToken& token);
  bool Decode(WStringView raw, std::size_t rawStart, WString& decoded);
  WStringView DeclarationWord(const XmlToken& token) const;

  void AddText(WString text);
  void AddSection(XmlRawSection section, bool isComment);
  void FlushPending();

  bool Fail(XmlParseError code, std::size_t at);
  void Warn(XmlParseError code, std::size_t at);
  XmlTreeNode SelectResult(WStringView requiredTopTag);
  void FillResult(XmlParseResult& result) const;

  WStringView text_;
  XmlScanner scanner_;
  XmlTreeNode top_;
  XmlTreeNode current_;
  // A text is held back while a comment may still follow it and then another
  // text, which would be joined to it with the comment dropped.
  std::optional<WString> pendingText_;
  std::optional<XmlRawSection> pendingComment_;
  XmlParseError problem_ = XmlParseError::None;
  std::size_t problemAt_ = 0;
};

XmlTreeNode XmlReader::Read(WStringView requiredTopTag, XmlParseResult& result) {
  const bool finished = ReadDocument();
  XmlTreeNode tree;
  if (finished) {
    FlushPending();
    if (current_ != top_) Warn(XmlParseError::UnmatchedEndTagWarning, text_.size());
    if (top_.ChildCount() == 0) Warn(XmlParseError::NoXmlTagWarning, text_.size());
    tree = SelectResult(requiredTopTag);
  }
  FillResult(result);
  return tree;
}

// document := { text | section | endTag | startTag | declaration }
// Returns false when an error stopped reading.
bool XmlReader::ReadDocument() {
  while (!scanner_.AtEnd()) {
    bool read = true;
    if (!scanner_.LooksAt(u"<")) {
      read = ReadTextRun();
    } else if (const XmlSectionTags* section = scanner_.SectionAtPosition()) {
      read = ReadSection(*section);
    } else if (scanner_.LooksAt(u"</")) {
      read = ReadEndTag();
    } else {
      read = ReadStartTag(scanner_.LooksAt(u"<?"));
    }
    if (!read) return false;
  }
  return true;
}

// text := units up to "<"; trimmed, dropped when only white space is left
bool XmlReader::ReadTextRun() {
  const std::size_t runStart = scanner_.Position();
  const WStringView run = scanner_.ReadTextRun();
  const WStringView trimmed = TrimXmlSpace(run);
  if (trimmed.empty()) return true;
  WString decoded;
  if (!Decode(trimmed, runStart + std::size_t(trimmed.data() - run.data()), decoded)) return false;
  AddText(std::move(decoded));
  return true;
}

// section := openTag { any unit } closeTag, kept raw
bool XmlReader::ReadSection(const XmlSectionTags& section) {
  const std::size_t start = scanner_.Position();
  WStringView value;
  WStringView closeTag;
  if (!scanner_.ReadSection(section, value, closeTag)) {
    return Fail(XmlParseError::UnmatchedClearTagEnd, start);
  }
  AddSection({WString(section.openTag), WString(value), WString(closeTag)},
             section.isComment);
  return true;
}

// endTag := "</" name ">"
// The name closes the innermost open element of that name (ignoring case);
// each open element passed on the way is closed too, with warning 1.
bool XmlReader::ReadEndTag() {
  const std::size_t start = scanner_.Position();
  FlushPending();
  scanner_.Skip(2);
  const XmlToken name = scanner_.ReadEndTagName();
  if (name.text.empty()) return Fail(XmlParseError::MissingEndTagName, name.start);
  const XmlToken close = scanner_.NextTagToken();
  if (close.kind != XmlTokenKind::Close) return Fail(XmlParseError::MissingEndTagName, close.start);
  while (current_ != top_) {
    const bool matches = EqualsIgnoreCase(*current_.Name(), name.text);
    if (!matches) Warn(XmlParseError::UnmatchedEndTagWarning, start);
    current_ = current_.Parent();
    if (matches) return true;
  }
  return Fail(XmlParseError::UnmatchedEndTag, start);
}

// startTag    := "<" name { attribute } ( ">" | "/>" )
// declaration := "<?" name { attribute } ( ">" | "/>" ), a "?" just before
//                the ">" belonging to neither name nor attribute
// An element closed by ">" becomes the open element; a declaration never does.
// When the text ends inside the tag, the element counts as open.
bool XmlReader::ReadStartTag(bool declaration) {
  FlushPending();
  scanner_.Skip(declaration ? 2 : 1);
  const XmlToken nameToken = scanner_.NextTagToken();
  const WStringView name = declaration ? DeclarationWord(nameToken) : nameToken.text;
  if (nameToken.kind != XmlTokenKind::Word || name.empty()) {
    return Fail(XmlParseError::MissingStartTagName, nameToken.start);
  }
  XmlTreeNode element = current_.AppendChildElement(WString(name), declaration);
  XmlToken token = scanner_.NextTagToken();
  for (;;) {
    switch (token.kind) {
      case XmlTokenKind::Word:
        if (!ReadAttribute(element, declaration, token)) return false;
        break;
      case XmlTokenKind::Close:
        if (!declaration) current_ = element;
        return true;
      case XmlTokenKind::EmptyClose:
        return true;
      case XmlTokenKind::End:
        if (!declaration) current_ = element;
        Warn(XmlParseError::UnmatchedEndTagWarning, text_.size());
        return true;
      default:
        return Fail(XmlParseError::UnexpectedToken, token.start);
    }
  }
}

// attribute := word [ "=" ( quoted | word ) ]
// Values are entity-decoded; names are kept as written. On entry `token` is
// the name; on return it is the token after the attribute.
bool XmlReader::ReadAttribute(XmlTreeNode& element, bool declaration, XmlToken& token) {
  WString name(declaration ? DeclarationWord(token) : token.text);
  std::optional<WString> value;
  token = scanner_.NextTagToken();
  if (token.kind == XmlTokenKind::Equals) {
    token = scanner_.NextTagToken();
    const bool quoted = token.kind == XmlTokenKind::Quoted;
    if (quoted || token.kind == XmlTokenKind::Word) {
      const WStringView raw = declaration && !quoted ? DeclarationWord(token) : token.text;
      value.emplace();
      if (!Decode(raw, token.start + (quoted ? 1 : 0), *value)) return false;
      token = scanner_.NextTagToken();
    } else if (token.kind != XmlTokenKind::End) {
      return Fail(XmlParseError::UnexpectedToken, token.start);
    }
  }
  if (!name.empty()) element.AppendElementAttribute(std::move(name), std::move(value));
  return true;
}

bool XmlReader::Decode(WStringView raw, std::size_t rawStart, WString& decoded) {
  decoded.reserve(raw.size());
  const std::size_t bad = DecodeXmlEntities(raw, decoded);
  if (bad == kEntitiesDecoded) return true;
  return Fail(XmlParseError::UnknownCharacterEntity, rawStart + bad);
}

// The word without the "?" that ends a declaration when the word runs right
// up to the ">".
WStringView XmlReader::DeclarationWord(const XmlToken& token) const {
  WStringView word = token.text;
  const std::size_t end = token.start + word.size();
  if (token.kind == XmlTokenKind::Word && !word.empty() && word.back() == u'?' &&
      end < text_.size() && text_[end] == u'>') {
    word.remove_suffix(1);
  }
  return word;
}

void XmlReader::AddText(WString text) {
  if (pendingText_ && pendingComment_) {
    pendingComment_.reset();
    pendingText_->append(text);
    return;
  }
  FlushPending();
  pendingText_ = std::move(text);
}

void XmlReader::AddSection(XmlRawSection section, bool isComment) {
  if (isComment && pendingText_ && !pendingComment_) {
    pendingComment_ = std::move(section);
    return;
  }
  FlushPending();
  current_.AppendElementClear(std::move(section));
}

void XmlReader::FlushPending() {
  if (pendingText_) current_.AppendElementText(std::move(*pendingText_));
  if (pendingComment_) current_.AppendElementClear(std::move(*pendingComment_));
  pendingText_.reset();
  pendingComment_.reset();
}

bool XmlReader::Fail(XmlParseError code, std::size_t at) {
  problem_ = code;
  problemAt_ = at;
  return false;
}

void XmlReader::Warn(XmlParseError code, std::size_t at) {
  if (problem_ != XmlParseError::None) return;
  problem_ = code;
  problemAt_ = at;
}

XmlTreeNode XmlReader::SelectResult(WStringView requiredTopTag) {
  if (!requiredTopTag.empty()) {
    for (std::size_t i = 0; i < top_.ChildCount(); ++i) {
      XmlTreeNode child = top_.Child(i);
      if (!child.IsDeclaration() && EqualsIgnoreCase(*child.Name(), requiredTopTag)) return child;
    }
    Fail(XmlParseError::FirstTagNotFound, text_.size());
    return {};
  }
  if (top_.OrderCount() == 1 && top_.ChildCount() == 1 && !top_.Child(0).IsDeclaration()) {
    return top_.Child(0);
  }
  return top_;
}

void XmlReader::FillResult(XmlParseResult& result) const {
  result.error = problem_;
  result.line = 0;
  result.column = 0;
  if (problem_ == XmlParseError::None) return;
  const WStringView before = text_.substr(0, problemAt_);
  const std::size_t lineStart = before.rfind(u'\n') + 1;  // 0 when there is no LF
  result.line = std::size_t(std::count(before.begin(), before.end(), u'\n')) + 1;
  result.column = before.size() - lineStart + 1;
}

}  // namespace

XmlTreeNode ParseXmlText(WStringView text, WStringView requiredTopTag, XmlParseResult& result) {
  if (text.empty()) {
    result = {XmlParseError::NoElementsFound, 0, 0};
    return {};
  }
  return XmlReader(text).Read(requiredTopTag, result);
}

}  // namespace NScrivolt
