#include "cmdline/cmd_line.h"

#include <utility>

#include "cmdline/switch_table.h"

namespace NScrivolt {

CCmdLine::CCmdLine(Platform::SwitchSyntax syntax) : syntax_(syntax) {}

void CCmdLine::Reset() {
  entries_.clear();
  stopped_ = false;
  errorText_ = CErrorText();
}

void CCmdLine::AddToken(WString& token) {
  if (token.empty()) return;
  const bool isSwitch = IsSwitchToken(token, syntax_);
  entries_.push_back({isSwitch, std::move(token)});
  token.clear();
}

// text    := blank* (token blank+)* token?          blank := " " | TAB
// token   := (plain | quoted | escape)+
// quoted  := '"' (any but an unescaped '"')* '"'?   blanks inside are kept
// escape  := "\"* '"'
// A run of n backslashes before a double quote gives n/2 backslashes; when n
// is odd the quote is a literal one, otherwise it opens or closes quoting.
// Backslashes before anything else stand as they are.
void CCmdLine::Parse(WString text) {
  Reset();
  source_ = std::move(text);
  WString token;
  std::size_t backslashes = 0;
  bool inQuotes = false;
  for (const WChar c : source_) {
    if (c == u'\\') {
      ++backslashes;
      continue;
    }
    if (c == u'"') {
      token.append(backslashes / 2, u'\\');
      if (backslashes % 2 == 1) {
        token.push_back(u'"');
      } else {
        inQuotes = !inQuotes;
      }
      backslashes = 0;
      continue;
    }
    token.append(backslashes, u'\\');
    backslashes = 0;
    if (IsBlank(c) && !inQuotes) {
      AddToken(token);
    } else {
      token.push_back(c);
    }
  }
  token.append(backslashes, u'\\');
  AddToken(token);
}

void CCmdLine::SetArguments(const std::vector<WString>& arguments) {
  Reset();
  source_.clear();
  for (const WString& argument : arguments) {
    WString token = argument;
    AddToken(token);
  }
}

bool CCmdLine::Process(ICmdLineProcessor& processor) {
  stopped_ = false;
  errorText_ = CErrorText();
  auto current = entries_.cbegin();
  while (current != entries_.cend() && !stopped_) {
    SwitchResult result = processor.ProcessSwitch(current, entries_.cend());
    if (!result.ok) {
      stopped_ = true;
      errorText_ = std::move(result.errorText);
      break;
    }
    const auto left = std::size_t(entries_.cend() - current) - 1;
    current += std::ptrdiff_t(1 + (result.optionsConsumed < left ? result.optionsConsumed : left));
  }
  return !stopped_;
}

}  // namespace NScrivolt
