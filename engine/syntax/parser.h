// CParser: turns one template text into a tree of CParsePart objects and
// reports its first syntax error as an engine error line.
//
// A template is text with script blocks "<# ... #>". A block holds calls
// separated by ";"; a call is a function name and arguments; an argument is a
// name, optionally followed by ":" and a quoted text, a reference, or content
// in parentheses that starts in script mode and may switch to text with "#>"
// and back with "<#". Comments in braces may stand wherever space may.
#pragma once

#include <cstddef>
#include <vector>

#include "engine/syntax/parse_part.h"
#include "engine/ref_counter.h"
#include "engine/syntax/template_source.h"
#include "text/error_text.h"
#include "text/message_ids.h"
#include "text/base/wide_string.h"

namespace NScrivolt {

class CParser {
 public:
  CParser();
  CParser(const CParser&) = delete;
  CParser& operator=(const CParser&) = delete;
  virtual ~CParser();

  // Parses `text` (taken over, not copied) into a new Template part. Returns
  // the error text: empty when the template is well formed, otherwise the
  // one line of its first syntax error, located in `context`. After an error
  // the tree holds what was parsed before it.
  CErrorText Parse(WString text, WStringView context);

  CParsePartRef GetRoot() const { return root_; }

  // Whether the last template parsed is one text without script or escapes,
  // and so its own output.
  bool IsVerbatim() const;
  // Hands out the text of the last parse and ends that parse: the root
  // becomes an empty template. The text is moved out when no part of the
  // old tree is held elsewhere, and copied otherwise.
  WString TakeText();
  ParseLocation Locate(std::size_t position) const { return source_->Locate(position); }

 private:
  struct Token {
    TokenKind kind;
    std::size_t start;
    std::size_t end;
  };
  // The parse runs on an explicit stack of open contents (the template and
  // every argument content inside it), so nesting depth costs heap, not stack.
  enum class Phase { Content, Statement, Arguments };
  struct Frame {
    CParsePart* owner;        // receives the parts of this content
    std::size_t contentOpen;  // the "(" of an argument's content
    Token token;              // the token the content goes on from
    std::size_t scriptOpen;   // start of the "<#" or "(" that opened the current script
    CParsePart* call;         // the call whose arguments are being read
    Phase phase;
  };

  Token ParseContent(CParsePart& root);
  void StepContent(Frame& frame);
  void StepStatement(Frame& frame);
  void EndStatement(Frame& frame, Token terminator);
  CParsePart* StepArgument(Frame& frame);
  CParsePart* ReadArgumentValue(CParsePart& argument);
  void ReadQuotedValue(CParsePart& argument);
  void ReadReferenceValue(CParsePart& argument);
  void CloseArgumentContent(Token ended, std::size_t contentOpen);

  Token ReadText(CParsePart& owner, std::size_t from);
  bool ReadTerminator(Token& terminator);
  WStringView ReadName();
  void SkipSpaceAndComments();
  void SkipComment();
  std::size_t FindScriptOpen(std::size_t from) const;
  std::size_t FindClosingQuote(std::size_t from, bool& hasEscapes) const;
  bool At(WChar c) const { return pos_ < length_ && text_[pos_] == c; }
  void Fail(MessageId message, std::size_t position);
  bool Failed() const { return !error_.empty(); }

  CRefCounter<CTemplateSource*> source_;
  CParsePartRef root_;
  const WChar* text_ = nullptr;
  std::size_t length_ = 0;
  std::size_t pos_ = 0;  // the scan position in script mode
  CErrorText error_;
};

}  // namespace NScrivolt
