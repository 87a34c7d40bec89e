#include "engine/codecs/json_params.h"

#include <utility>
#include <vector>

#include "engine/codecs/shared_names.h"
#include "text/error_text.h"
#include "text/text.h"

namespace NScrivolt {

namespace {

// --- characters and escapes ------------------------------------------------------

bool IsHighSurrogate(WChar c) { return c >= 0xD800 && c <= 0xDBFF; }
bool IsLowSurrogate(WChar c) { return c >= 0xDC00 && c <= 0xDFFF; }
bool IsDigit(WChar c) { return c >= u'0' && c <= u'9'; }
bool IsJsonSpace(WChar c) { return c == u' ' || c == u'\t' || c == u'\n' || c == u'\r'; }

int HexDigitValue(WChar c) {
  if (c >= u'0' && c <= u'9') return c - u'0';
  if (c >= u'a' && c <= u'f') return c - u'a' + 10;
  if (c >= u'A' && c <= u'F') return c - u'A' + 10;
  return -1;
}

// escape = "\" ( %x22 / "\" / "/" / "b" / "f" / "n" / "r" / "t" / "u" 4HEXDIG )
// `at` is just behind the backslash. On success the escaped code unit is
// appended and `at` moves behind the escape; otherwise `at` is left on the
// first character that does not fit.
bool DecodeEscape(WStringView text, std::size_t& at, WString& out) {
  if (at >= text.size()) return false;
  static constexpr WStringView kSingle = u"\"\\/bfnrt";
  static constexpr WStringView kMeaning = u"\"\\/\b\f\n\r\t";
  const std::size_t single = kSingle.find(text[at]);
  if (single != WStringView::npos) {
    out += kMeaning[single];
    ++at;
    return true;
  }
  if (text[at] != u'u') return false;
  std::size_t digit = at + 1;
  unsigned unit = 0;
  for (; digit < at + 5; ++digit) {
    const int value = digit < text.size() ? HexDigitValue(text[digit]) : -1;
    if (value < 0) {
      at = digit;
      return false;
    }
    unit = unit * 16 + unsigned(value);
  }
  out += WChar(unit);
  at = digit;
  return true;
}

void AppendUnicodeEscape(WString& out, WChar c) {
  static constexpr char kHex[] = "0123456789abcdef";
  out += u"\\u";
  for (int shift = 12; shift >= 0; shift -= 4) out += WChar(kHex[(c >> shift) & 0xF]);
}

// Appends `text` escaped for the inside of a string literal. Unpaired
// surrogates are escaped too, so the output stays valid in every encoding
// and reads back as the same code units.
void AppendEscaped(WString& out, WStringView text) {
  std::size_t plain = 0;
  for (std::size_t at = 0; at < text.size(); ++at) {
    const WChar c = text[at];
    const bool pair = IsHighSurrogate(c) && at + 1 < text.size() && IsLowSurrogate(text[at + 1]);
    if (pair) {
      ++at;
      continue;
    }
    const bool lone = IsHighSurrogate(c) || IsLowSurrogate(c);
    if (c >= 0x20 && c != u'"' && c != u'\\' && !lone) continue;
    out.append(text.substr(plain, at - plain));
    if (c == u'"' || c == u'\\') {
      out += u'\\';
      out += c;
    } else {
      AppendUnicodeEscape(out, c);
    }
    plain = at + 1;
  }
  out.append(text.substr(plain));
}

// --- decoding ------------------------------------------------------------------

// An object or array being read, and the parameter that receives its
// members or elements.
struct OpenCollection {
  CParam* node;
  bool isObject;
  bool started;  // a member or element has been read
};

// Reads one document without recursion: open objects and arrays wait on a
// stack of their own. On failure `FaultAt` is the offset of the first
// character that does not fit (the text's length at a premature end).
class CJsonReader {
 public:
  explicit CJsonReader(WStringView text) : text_(text) {}

  // document = ws value ws
  bool Read(CParam& target) {
    SkipSpace();
    if (!ReadValue(target)) return false;
    while (!open_.empty()) {
      if (!ContinueContainer()) return false;
    }
    SkipSpace();
    return at_ == text_.size();
  }

  std::size_t FaultAt() const { return at_; }

 private:
  void SkipSpace() {
    while (at_ < text_.size() && IsJsonSpace(text_[at_])) ++at_;
  }

  bool Peek(WChar c) const { return at_ < text_.size() && text_[at_] == c; }

  // value = object / array / string / number / "true" / "false" / "null"
  // An object or array that is not empty is left open on the stack.
  bool ReadValue(CParam& node) {
    if (at_ >= text_.size()) return false;
    switch (text_[at_]) {
      case u'{':
        return OpenBracket(node, true, u'}', ValueKind::EmptyObject);
      case u'[':
        return OpenBracket(node, false, u']', ValueKind::EmptyArray);
      case u'"':
        stringValue_.clear();
        if (!ReadString(stringValue_)) return false;
        node.SetValue(stringValue_);
        return true;
      case u't':
        return ReadWord(u"true", u"true", ValueKind::Literal, node);
      case u'f':
        return ReadWord(u"false", u"false", ValueKind::Literal, node);
      case u'n':
        return ReadWord(u"null", u"", ValueKind::Null, node);
      default:
        return ReadNumber(node);
    }
  }

  // object = "{" ws [ member *( ws "," ws member ) ] ws "}"
  // array  = "[" ws [ value *( ws "," ws value ) ] ws "]"
  // Reads the opening bracket; an empty one is complete at once.
  bool OpenBracket(CParam& node, bool isObject, WChar closer, ValueKind emptyKind) {
    ++at_;
    SkipSpace();
    if (Peek(closer)) {
      ++at_;
      node.SetValue(WStringView(), emptyKind);
      return true;
    }
    open_.push_back({&node, isObject, false});
    return true;
  }

  // Reads the next member or element of the innermost open container, or
  // its closing bracket.
  bool ContinueContainer() {
    OpenCollection& open = open_.back();
    if (open.started) {
      SkipSpace();
      if (Peek(open.isObject ? u'}' : u']')) {
        ++at_;
        open_.pop_back();
        return true;
      }
      if (!Peek(u',')) return false;
      ++at_;
      SkipSpace();
    }
    open.started = true;
    CParam* child = open.isObject ? ReadMemberName(*open.node) : open.node->AppendNumbered();
    if (child == nullptr) return false;
    SkipSpace();
    return ReadValue(*child);
  }

  // member = string ws ":" ws value
  // The parameter for the member, named with the id that every member of
  // that name shares; a key seen before in this object gives its parameter
  // again, emptied.
  CParam* ReadMemberName(CParam& object) {
    WString key;
    if (!ReadString(key)) return nullptr;
    SkipSpace();
    if (!Peek(u':')) return nullptr;
    ++at_;
    const CParamIdShare id = names_.For(key);
    CParam* member = object.GetChildByName(id->key);
    if (member == nullptr) return object.AddChild(id);
    member->Clear();
    return member;
  }

  // string = %x22 *( unescaped / escape ) %x22, unescaped being any
  // character from U+0020 on but %x22 and "\"
  bool ReadString(WString& out) {
    if (!Peek(u'"')) return false;
    ++at_;
    for (;;) {
      const std::size_t plain = at_;
      while (at_ < text_.size() && text_[at_] >= 0x20 && text_[at_] != u'"' && text_[at_] != u'\\') ++at_;
      out.append(text_.substr(plain, at_ - plain));
      if (at_ >= text_.size() || text_[at_] < 0x20) return false;
      if (text_[at_++] == u'"') return true;
      if (!DecodeEscape(text_, at_, out)) return false;
    }
  }

  bool ReadWord(WStringView word, WStringView value, ValueKind kind, CParam& node) {
    for (const WChar c : word) {
      if (!Peek(c)) return false;
      ++at_;
    }
    node.SetValue(value, kind);
    return true;
  }

  bool ReadDigits() {
    if (at_ >= text_.size() || !IsDigit(text_[at_])) return false;
    while (at_ < text_.size() && IsDigit(text_[at_])) ++at_;
    return true;
  }

  // number = [ "-" ] ( "0" / digit1-9 *DIGIT ) [ "." 1*DIGIT ] [ ( "e" / "E" ) [ "-" / "+" ] 1*DIGIT ]
  bool ReadNumber(CParam& node) {
    const std::size_t start = at_;
    if (Peek(u'-')) ++at_;
    if (Peek(u'0')) {
      ++at_;
    } else if (!ReadDigits()) {
      return false;
    }
    if (Peek(u'.')) {
      ++at_;
      if (!ReadDigits()) return false;
    }
    if (Peek(u'e') || Peek(u'E')) {
      ++at_;
      if (Peek(u'-') || Peek(u'+')) ++at_;
      if (!ReadDigits()) return false;
    }
    node.SetValue(text_.substr(start, at_ - start), ValueKind::Literal);
    return true;
  }

  WStringView text_;
  std::size_t at_ = 0;
  std::vector<OpenCollection> open_;
  CSharedNames names_;
  WString stringValue_;  // room for a string value, reused from one to the next
};

// Line and column, both 1-based, of the character at `offset`. CR LF, LF
// and CR each end a line; a surrogate pair is one column.
std::pair<std::size_t, std::size_t> LineAndColumn(WStringView text, std::size_t offset) {
  std::size_t line = 1;
  std::size_t column = 1;
  for (std::size_t at = 0; at < offset; ++at) {
    const WChar c = text[at];
    if (c == u'\n' || (c == u'\r' && (at + 1 >= text.size() || text[at + 1] != u'\n'))) {
      ++line;
      column = 1;
    } else if (c != u'\r' && !(IsLowSurrogate(c) && at > 0 && IsHighSurrogate(text[at - 1]))) {
      ++column;
    }
  }
  return {line, column};
}

CErrorText InvalidJsonError(WStringView text, std::size_t offset) {
  const auto [line, column] = LineAndColumn(text, offset);
  return PositionError(MsgInvalidJson, line, column);
}

// --- encoding ------------------------------------------------------------------

// A node with children whose members or elements are being written.
struct WriteFrame {
  std::vector<const CParam*> children;
  std::size_t next;
  bool isObject;
  std::size_t depth;  // of the children; 2 below the top node
};

bool AllChildrenNumbered(const std::vector<const CParam*>& children) {
  for (const CParam* child : children) {
    if (!child->HasAutomaticName()) return false;
  }
  return true;
}

void AppendQuoted(WString& out, WStringView text) {
  out += u'"';
  AppendEscaped(out, text);
  out += u'"';
}

void AppendLeaf(WString& out, const CParam& node) {
  switch (node.GetValueKind()) {
    case ValueKind::Literal:
      node.AppendValueTo(out);
      return;
    case ValueKind::Null:
      out += u"null";
      return;
    case ValueKind::EmptyObject:
      out += u"{}";
      return;
    case ValueKind::EmptyArray:
      out += u"[]";
      return;
    case ValueKind::Text:
      AppendQuoted(out, node.GetValue());
      return;
  }
}

void AppendLineBreak(WString& out, std::size_t depth) {
  out += u'\n';
  out.append(2 * (depth - 1), u' ');
}

// Writes a leaf, or the opening bracket of a node with children and pushes
// its frame. False when the children would lie deeper than the limit.
bool StartValue(const CParam& node, std::size_t depth, WString& out, std::vector<WriteFrame>& frames) {
  if (node.Count() == 0) {
    AppendLeaf(out, node);
    return true;
  }
  if (depth >= kMaxEncodedJsonDepth) return false;
  std::vector<const CParam*> children = node.ListChildren();
  const bool isObject = !AllChildrenNumbered(children);
  out += isObject ? u'{' : u'[';
  frames.push_back({std::move(children), 0, isObject, depth + 1});
  return true;
}

// Writes the next member or element of the innermost frame, or closes it.
bool ContinueFrame(WString& out, std::vector<WriteFrame>& frames) {
  WriteFrame& frame = frames.back();
  if (frame.next == frame.children.size()) {
    AppendLineBreak(out, frame.depth - 1);
    out += frame.isObject ? u'}' : u']';
    frames.pop_back();
    return true;
  }
  if (frame.next > 0) out += u',';
  AppendLineBreak(out, frame.depth);
  const CParam& child = *frame.children[frame.next++];
  if (frame.isObject) {
    AppendQuoted(out, child.GetName());
    out += u": ";
  }
  return StartValue(child, frame.depth, out, frames);
}

}  // namespace

CErrorText DecodeJsonTree(WStringView text, CParam& target) {
  CJsonReader reader(text);
  if (reader.Read(target)) return CErrorText();
  target.Clear();
  return InvalidJsonError(text, reader.FaultAt());
}

CErrorText EncodeJsonTree(const CParam& source, WString& output) {
  WString text;
  std::vector<WriteFrame> frames;
  bool fits = StartValue(source, 1, text, frames);
  while (fits && !frames.empty()) fits = ContinueFrame(text, frames);
  if (!fits) {
    return DetailError(MsgJsonNestedTooDeep, {{u"[NUMBER]", IntegerToText(std::int64_t(kMaxEncodedJsonDepth))}});
  }
  output += text;
  return CErrorText();
}

WString JsonStringEncode(WStringView text) {
  WString out;
  out.reserve(text.size());
  AppendEscaped(out, text);
  return out;
}

WString JsonStringDecode(WStringView text) {
  WString out;
  out.reserve(text.size());
  std::size_t at = 0;
  while (at < text.size()) {
    const std::size_t backslash = text.find(u'\\', at);
    out.append(text.substr(at, backslash == WStringView::npos ? WStringView::npos : backslash - at));
    if (backslash == WStringView::npos) break;
    at = backslash + 1;
    const std::size_t escape = at;
    if (!DecodeEscape(text, at, out)) {
      out += u'\\';
      at = escape;
    }
  }
  return out;
}

}  // namespace NScrivolt
