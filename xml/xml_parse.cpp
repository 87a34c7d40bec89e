#include "xml/xml_parse.h"

#include <algorithm>
#include <optional>
#include <utility>
#include <vector>

#include "xml/xml_builder.h"
#include "xml/xml_entities.h"
#include "xml/xml_scanner.h"

namespace NScrivolt {

namespace {

// Reports the document to a builder while the scanner walks the text. The
// names of the open elements are kept in a list, innermost last, so the
// nesting depth of the document never becomes depth of the call stack.
class XmlReader {
 public:
  XmlReader(WStringView text, IXmlBuilder& builder) : text_(text), scanner_(text), builder_(builder) {}

  XmlTopLevel Read(XmlParseResult& result);

 private:
  bool ReadDocument();
  bool ReadTextRun();
  bool ReadSection(const XmlSectionTags& section);
  bool ReadEndTag();
  bool ReadStartTag(bool declaration);
  bool ReadAttribute(bool declaration, XmlToken& token);
  bool Decode(WStringView raw, std::size_t rawStart, WString& decoded);
  WStringView DeclarationWord(const XmlToken& token) const;

  void AddText(WString text);
  void AddSection(XmlRawSection section, bool isComment);
  void FlushPending();
  // Counts an item that goes to the open element, for the top level.
  void CountItem(bool isElement, bool isDeclaration);
  // The element just started becomes the open one.
  void Enter(WStringView name);

  bool Fail(XmlParseError code, std::size_t at);
  void Warn(XmlParseError code, std::size_t at);
  void FillResult(XmlParseResult& result) const;

  WStringView text_;
  XmlScanner scanner_;
  IXmlBuilder& builder_;
  std::vector<WStringView> open_;  // names of the open elements, innermost last
  XmlTopLevel topLevel_;
  // A text is held back while a comment may still follow it and then another
  // text, which would be joined to it with the comment dropped.
  std::optional<WString> pendingText_;
  std::optional<XmlRawSection> pendingComment_;
  XmlParseError problem_ = XmlParseError::None;
  std::size_t problemAt_ = 0;
};

XmlTopLevel XmlReader::Read(XmlParseResult& result) {
  if (ReadDocument()) {
    FlushPending();
    if (!open_.empty()) Warn(XmlParseError::UnmatchedEndTagWarning, text_.size());
    if (topLevel_.elements == 0) Warn(XmlParseError::NoXmlTagWarning, text_.size());
  }
  FillResult(result);
  return topLevel_;
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
  AddSection({WString(section.openTag), WString(value), WString(closeTag)}, section.isComment);
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
  while (!open_.empty()) {
    const bool matches = EqualsIgnoreCase(open_.back(), name.text);
    if (!matches) Warn(XmlParseError::UnmatchedEndTagWarning, start);
    open_.pop_back();
    builder_.LeaveElement();
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
  CountItem(true, declaration);
  builder_.StartElement(name, declaration);
  XmlToken token = scanner_.NextTagToken();
  for (;;) {
    switch (token.kind) {
      case XmlTokenKind::Word:
        if (!ReadAttribute(declaration, token)) return false;
        break;
      case XmlTokenKind::Close:
        if (!declaration) Enter(name);
        return true;
      case XmlTokenKind::EmptyClose:
        return true;
      case XmlTokenKind::End:
        if (!declaration) Enter(name);
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
bool XmlReader::ReadAttribute(bool declaration, XmlToken& token) {
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
  if (!name.empty()) builder_.Attribute(std::move(name), std::move(value));
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
  CountItem(false, false);
  builder_.Section(std::move(section));
}

void XmlReader::FlushPending() {
  if (pendingText_) {
    CountItem(false, false);
    builder_.Text(std::move(*pendingText_));
  }
  if (pendingComment_) {
    CountItem(false, false);
    builder_.Section(std::move(*pendingComment_));
  }
  pendingText_.reset();
  pendingComment_.reset();
}

void XmlReader::CountItem(bool isElement, bool isDeclaration) {
  if (!open_.empty()) return;
  if (topLevel_.items == 0) topLevel_.firstIsDeclaration = isDeclaration;
  ++topLevel_.items;
  if (isElement) ++topLevel_.elements;
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

void XmlReader::FillResult(XmlParseResult& result) const {
  result.error = problem_;
  result.line = 0;
  result.column = 0;
  if (problem_ != XmlParseError::None) LocateInXmlText(text_, problemAt_, result);
}

// Builds the XmlTreeNode tree: every element under the nameless top node.
class XmlTreeBuilder : public IXmlBuilder {
 public:
  XmlTreeBuilder() : top_(XmlTreeNode::CreateTopElement(std::nullopt)), current_(top_) {}

  void StartElement(WStringView name, bool isDeclaration) override {
    last_ = current_.AppendChildElement(WString(name), isDeclaration);
  }
  void Attribute(WString name, std::optional<WString> value) override {
    last_.AppendElementAttribute(std::move(name), std::move(value));
  }
  void EnterElement() override { current_ = last_; }
  void LeaveElement() override { current_ = current_.Parent(); }
  void Text(WString text) override { current_.AppendElementText(std::move(text)); }
  void Section(XmlRawSection section) override { current_.AppendElementClear(std::move(section)); }

  const XmlTreeNode& Top() const { return top_; }

 private:
  XmlTreeNode top_;
  XmlTreeNode current_;
  XmlTreeNode last_;
};

// The first top-level element named `tag` (ignoring case), or error 11,
// which takes the place of any warning.
XmlTreeNode SelectTopTag(const XmlTreeNode& top, WStringView tag, WStringView text, XmlParseResult& result) {
  for (std::size_t i = 0; i < top.ChildCount(); ++i) {
    XmlTreeNode child = top.Child(i);
    if (!child.IsDeclaration() && EqualsIgnoreCase(*child.Name(), tag)) return child;
  }
  result.error = XmlParseError::FirstTagNotFound;
  LocateInXmlText(text, text.size(), result);
  return {};
}

}  // namespace

void XmlReader::Enter(WStringView name) {
  open_.push_back(name);
  builder_.EnterElement();
}

XmlTopLevel ReadXmlText(WStringView text, IXmlBuilder& builder, XmlParseResult& result) {
  return XmlReader(text, builder).Read(result);
}

void LocateInXmlText(WStringView text, std::size_t at, XmlParseResult& result) {
  const WStringView before = text.substr(0, at);
  const std::size_t lineStart = before.rfind(u'\n') + 1;  // 0 when there is no LF
  result.line = std::size_t(std::count(before.begin(), before.end(), u'\n')) + 1;
  result.column = before.size() - lineStart + 1;
}

XmlTreeNode ParseXmlText(WStringView text, WStringView requiredTopTag, XmlParseResult& result) {
  if (text.empty()) {
    result = {XmlParseError::NoElementsFound, 0, 0};
    return {};
  }
  XmlTreeBuilder builder;
  const XmlTopLevel topLevel = ReadXmlText(text, builder, result);
  if (result.error != XmlParseError::None && !IsXmlParseWarning(result.error)) return {};
  const XmlTreeNode& top = builder.Top();
  if (!requiredTopTag.empty()) return SelectTopTag(top, requiredTopTag, text, result);
  if (topLevel.items == 1 && topLevel.elements == 1 && !topLevel.firstIsDeclaration) return top.Child(0);
  return top;
}

}  // namespace NScrivolt
