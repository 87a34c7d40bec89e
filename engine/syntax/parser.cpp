#include "engine/syntax/parser.h"

#include <utility>

#include "engine/syntax/char_class.h"
#include "engine/syntax/error_report.h"
#include "engine/syntax/unescape.h"
#include "text/text.h"

namespace NScrivolt {

namespace {

// A content goes on from its current token until the end of the text, or a
// ")" that closed its script.
bool ContentGoesOn(TokenKind kind, std::size_t tokenEnd, std::size_t length) {
  return tokenEnd < length && kind != TokenKind::End && kind != TokenKind::ContentClose;
}

}  // namespace

CParser::CParser()
    : source_(CRefCounter<CTemplateSource*>::Make()),
      root_(CParsePartRef::Make(PartKind::Template, source_, 0, WStringView())) {}

CParser::~CParser() = default;

// template = content
// A ")" that ends the top-level content has no argument content to close.
CErrorText CParser::Parse(WString text, WStringView context) {
  source_ = CRefCounter<CTemplateSource*>::Make(std::move(text), WString(context));
  root_ = CParsePartRef::Make(PartKind::Template, source_, 0, WStringView());
  text_ = source_->Text().data();
  length_ = source_->Text().size();
  pos_ = 0;
  error_ = CErrorText();
  const Token ended = ParseContent(*root_);
  if (!Failed() && ended.kind == TokenKind::ContentClose) {
    Fail(MsgScriptContinuationWithoutOpen, ended.start);
  }
  return std::move(error_);
}

bool CParser::IsVerbatim() const {
  const std::vector<CParsePartRef>& parts = root_->Children();
  return parts.size() == 1 && parts[0]->Kind() == PartKind::Text && parts[0]->Value().size() == length_ &&
         !parts[0]->HoldsEscapes();
}

WString CParser::TakeText() {
  root_.Reset();
  WString text = source_.UseCount() == 1 ? source_->TakeText() : WString(source_->Text());
  source_ = CRefCounter<CTemplateSource*>::Make();
  root_ = CParsePartRef::Make(PartKind::Template, source_, 0, WStringView());
  text_ = nullptr;
  length_ = 0;
  pos_ = 0;
  return text;
}

// content = { text | script }
// script  = ( "<#" | "(" ) statements
// Runs the template's content and every argument content opened inside it on
// one stack of frames; returns the token that ended the template's content.
CParser::Token CParser::ParseContent(CParsePart& root) {
  std::vector<Frame> frames;
  frames.push_back(Frame{&root, 0, Token{TokenKind::Start, 0, 0}, 0, nullptr, Phase::Content});
  while (!Failed()) {
    Frame& frame = frames.back();
    switch (frame.phase) {
      case Phase::Content:
        if (ContentGoesOn(frame.token.kind, frame.token.end, length_)) {
          StepContent(frame);
        } else {
          const Frame ended = frame;
          frames.pop_back();
          if (frames.empty()) return ended.token;
          CloseArgumentContent(ended.token, ended.contentOpen);
        }
        break;
      case Phase::Statement:
        StepStatement(frame);
        break;
      case Phase::Arguments:
        if (CParsePart* content = StepArgument(frame)) {
          const std::size_t open = pos_ - 1;
          frames.push_back(Frame{content, open, Token{TokenKind::ContentOpen, open, pos_}, 0, nullptr,
                                 Phase::Content});
        }
        break;
    }
  }
  return Token{TokenKind::End, pos_, pos_};  // after an error the ending token no longer matters
}

// Acts on the token a content goes on from:
//   start of the template, "#>"   text up to the next "<#"
//   "<#", "("                     statements
void CParser::StepContent(Frame& frame) {
  const TokenKind kind = frame.token.kind;
  if (kind == TokenKind::Start || kind == TokenKind::ScriptClose) {
    frame.token = ReadText(*frame.owner, frame.token.end);
    return;
  }
  frame.scriptOpen = frame.token.start;
  pos_ = frame.token.end;
  frame.phase = Phase::Statement;
}

// statement = [ name arguments ]
// An empty statement is only its terminator.
void CParser::StepStatement(Frame& frame) {
  SkipSpaceAndComments();
  Token terminator;
  if (ReadTerminator(terminator)) {
    EndStatement(frame, terminator);
    return;
  }
  const std::size_t start = pos_;
  const WStringView name = ReadName();
  if (name.empty()) {
    Fail(MsgIllegalFunctionName, start);
    return;
  }
  frame.call = &frame.owner->AppendChild(PartKind::Call, start, name);
  frame.phase = Phase::Arguments;
}

// statements = statement { ";" statement } ( "#>" | ")" )
// A ";" that is the last unit of the text, or the end of the text, leaves the
// script open.
void CParser::EndStatement(Frame& frame, Token terminator) {
  frame.call = nullptr;
  if (terminator.kind == TokenKind::Separator && terminator.end < length_) {
    frame.phase = Phase::Statement;
    return;
  }
  if (terminator.kind != TokenKind::ScriptClose && terminator.kind != TokenKind::ContentClose) {
    Fail(MsgScriptNotClosed, frame.scriptOpen);
    return;
  }
  frame.token = terminator;
  frame.phase = Phase::Content;
}

// arguments = { name [ ":" value ] } terminator
// Reads one argument, or the terminator that ends the statement. Returns the
// argument when its content, opened by "(", is to be parsed next.
CParsePart* CParser::StepArgument(Frame& frame) {
  SkipSpaceAndComments();
  Token terminator;
  if (ReadTerminator(terminator)) {
    EndStatement(frame, terminator);
    return nullptr;
  }
  const std::size_t start = pos_;
  const WStringView name = ReadName();
  if (name.empty()) {
    Fail(MsgIllegalArgumentName, start);
    return nullptr;
  }
  CParsePart& argument = frame.call->AppendChild(PartKind::ArgFlag, start, name);
  SkipSpaceAndComments();
  if (!At(u':')) return nullptr;
  ++pos_;
  SkipSpaceAndComments();
  return ReadArgumentValue(argument);
}

// value = '"' quoted '"' | "(" content ")" | reference
CParsePart* CParser::ReadArgumentValue(CParsePart& argument) {
  if (At(u'"')) {
    ReadQuotedValue(argument);
    return nullptr;
  }
  if (At(u'(')) {
    argument.SetKind(PartKind::ArgContent);
    ++pos_;
    return &argument;
  }
  ReadReferenceValue(argument);
  return nullptr;
}

// quoted = { any unit but '"' | '""' }
// '""' stands for one '"'; the text may span lines.
void CParser::ReadQuotedValue(CParsePart& argument) {
  argument.SetKind(PartKind::ArgText);
  const std::size_t from = pos_ + 1;
  bool hasEscapes = false;
  const std::size_t close = FindClosingQuote(from, hasEscapes);
  if (close == length_) {
    Fail(MsgTextValueNotClosed, from);
    return;
  }
  const WStringView written(text_ + from, close - from);
  if (hasEscapes) {
    argument.SetOwnValue(ReplaceAll(written, u"\"\"", u"\""));
  } else {
    argument.SetValue(written);
  }
  pos_ = close + 1;
}

// reference = name-char { name-char | "." after a name-char | "#" after "." }
// The reference ends at the first unit that breaks these rules.
void CParser::ReadReferenceValue(CParsePart& argument) {
  const std::size_t start = pos_;
  WChar previous = 0;
  while (pos_ < length_ && IsReferenceChar(text_[pos_], previous)) previous = text_[pos_++];
  if (pos_ == start) {
    Fail(pos_ == length_ ? MsgArgumentValueNotFound : MsgIllegalArgumentValue, pos_);
    return;
  }
  argument.SetKind(PartKind::ArgReference);
  argument.SetValue(WStringView(text_ + start, pos_ - start));
}

// An argument's content must have ended at its ")"; the arguments of the
// call then go on behind it.
void CParser::CloseArgumentContent(Token ended, std::size_t contentOpen) {
  if (ended.kind == TokenKind::ContentClose) {
    pos_ = ended.end;
  } else {
    Fail(MsgContentNotClosed, contentOpen);
  }
}

// text = { any unit | "<#<#" }
// Runs up to the first "<#" that is not doubled, or to the end of the text.
CParser::Token CParser::ReadText(CParsePart& owner, std::size_t from) {
  const std::size_t open = FindScriptOpen(from);
  if (open > from) {
    owner.AppendChild(PartKind::Text, from, WStringView()).SetValue(WStringView(text_ + from, open - from));
  }
  if (open == length_) return Token{TokenKind::End, length_, length_};
  return Token{TokenKind::ScriptOpen, open, open + 2};
}

// terminator = "#>" | ";" | ")" | end of text
// A terminator found is consumed.
bool CParser::ReadTerminator(Token& terminator) {
  const std::size_t start = pos_;
  TokenKind kind;
  if (pos_ == length_) {
    kind = TokenKind::End;
  } else if (text_[pos_] == u'#' && pos_ + 1 < length_ && text_[pos_ + 1] == u'>') {
    kind = TokenKind::ScriptClose;
    pos_ += 2;
  } else if (text_[pos_] == u';') {
    kind = TokenKind::Separator;
    ++pos_;
  } else if (text_[pos_] == u')') {
    kind = TokenKind::ContentClose;
    ++pos_;
  } else {
    return false;
  }
  terminator = Token{kind, start, pos_};
  return true;
}

// name = { name-char }   (empty when none stands here)
WStringView CParser::ReadName() {
  const std::size_t start = pos_;
  while (pos_ < length_ && IsNameChar(text_[pos_])) ++pos_;
  return WStringView(text_ + start, pos_ - start);
}

// space = { white-space | comment }
void CParser::SkipSpaceAndComments() {
  for (;;) {
    while (pos_ < length_ && IsSpaceChar(text_[pos_])) ++pos_;
    if (!At(u'{')) return;
    SkipComment();
  }
}

// comment = "{" { "{{" | "}}" | comment | any other unit } "}"
// Doubled braces inside are a unit and do not nest; a comment still open at
// the end of the text ends there.
void CParser::SkipComment() {
  std::size_t depth = 1;
  ++pos_;
  while (pos_ < length_ && depth > 0) {
    const WChar c = text_[pos_];
    if ((c == u'{' || c == u'}') && pos_ + 1 < length_ && text_[pos_ + 1] == c) {
      pos_ += 2;
      continue;
    }
    if (c == u'{') ++depth;
    if (c == u'}') --depth;
    ++pos_;
  }
}

// The next "<#" at or after `from` that is not doubled ("<#<#" is an escape
// and searching goes on behind it); the end of the text when there is none.
std::size_t CParser::FindScriptOpen(std::size_t from) const {
  const WStringView text(text_, length_);
  // Look for the "#" of each "<#": one unit to find, scanned in blocks.
  for (std::size_t hash = FindUnit(text, u'#', from + 1); hash != WStringView::npos;
       hash = FindUnit(text, u'#', hash + 1)) {
    if (text_[hash - 1] != u'<') continue;
    const std::size_t i = hash - 1;
    if (i + 3 < length_ && text_[i + 2] == u'<' && text_[i + 3] == u'#') {
      hash = i + 3;  // an escaped "<#<#": search on behind it
      continue;
    }
    return i;
  }
  return length_;
}

// The next '"' at or after `from` that is not doubled; the end of the text
// when there is none. `hasEscapes` tells whether a doubled one was skipped.
std::size_t CParser::FindClosingQuote(std::size_t from, bool& hasEscapes) const {
  for (std::size_t i = from; i < length_; ++i) {
    if (text_[i] != u'"') continue;
    if (i + 1 < length_ && text_[i + 1] == u'"') {
      hasEscapes = true;
      ++i;
      continue;
    }
    return i;
  }
  return length_;
}

void CParser::Fail(MessageId message, std::size_t position) {
  AddError(error_, CText(message), source_->Locate(position));
}

}  // namespace NScrivolt
