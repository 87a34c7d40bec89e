#include "engine/syntax/template_source.h"

#include <algorithm>

namespace NScrivolt {

namespace {

// A line ends at the first CR or LF at or after its start; a CR directly
// followed by an LF ends it at the LF. The next line starts one further, so
// a text ending in a line break has an empty last line.
std::vector<std::size_t> FindLineStarts(WStringView text) {
  std::vector<std::size_t> starts{0};
  const std::size_t length = text.size();
  for (std::size_t i = 0; i < length; ++i) {
    const WChar c = text[i];
    if (c > u'\r') continue;
    if (c == u'\r' && i + 1 < length && text[i + 1] == u'\n') ++i;
    if (c == u'\r' || c == u'\n') starts.push_back(i + 1);
  }
  return starts;
}

}  // namespace

CTemplateSource::CTemplateSource(WString text, WString context)
    : text_(std::move(text)), context_(std::move(context)) {}

WString CTemplateSource::TakeText() {
  WString text;
  text.swap(text_);
  lineStarts_.clear();
  return text;
}

ParseLocation CTemplateSource::Locate(std::size_t position) const {
  ParseLocation location{position, 0, 0, context_};
  if (position > text_.size()) return location;
  if (lineStarts_.empty()) lineStarts_ = FindLineStarts(text_);
  const auto next = std::upper_bound(lineStarts_.begin(), lineStarts_.end(), position);
  const std::size_t index = std::size_t(next - lineStarts_.begin()) - 1;
  location.line = index + 1;
  location.column = position - lineStarts_[index] + 1;
  return location;
}

}  // namespace NScrivolt
