// Reads arbitrary text as XML; whenever a tree comes back, writes it in both
// forms and reads the written text again, which must succeed and must be
// stable under a further write and read.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string_view>
#include <vector>

#include "text/base/utf8.h"
#include "xml/xml_parse.h"
#include "xml/xml_write.h"

namespace {

using namespace NScrivolt;

void Check(bool condition) {
  if (!condition) std::abort();
}

bool StartsWith(WStringView text, WStringView prefix) {
  return text.substr(0, prefix.size()) == prefix;
}

// Names are written as they stand, so some names the reader accepts read back
// as something else (see xml_write.h); trees holding one are only read.
bool BeginsWithQuote(WStringView name) {
  return !name.empty() && (name[0] == u'"' || name[0] == u'\'');
}

bool DeclarationNameReadsBack(WStringView name) { return !BeginsWithQuote(name); }

bool ElementNameReadsBack(WStringView name) {
  return !name.empty() && !BeginsWithQuote(name) && name[0] != u'?' &&
         name.find(u'/') == WStringView::npos && name != u"PRE" && name != u"Script" &&
         !StartsWith(name, u"!--") && !StartsWith(name, u"![CDATA[") &&
         !StartsWith(name, u"!DOCTYPE");
}

bool AttributeNameReadsBack(WStringView name) {
  return !name.empty() && !BeginsWithQuote(name) && name.back() != u'/';
}

bool NamesReadBack(const XmlTreeNode& tree) {
  std::vector<XmlTreeNode> pending{tree};
  while (!pending.empty()) {
    const XmlTreeNode node = pending.back();
    pending.pop_back();
    if (node.Name() && !(node.IsDeclaration() ? DeclarationNameReadsBack(*node.Name())
                                               : ElementNameReadsBack(*node.Name()))) {
      return false;
    }
    for (std::size_t i = 0; i < node.AttributeCount(); ++i) {
      if (!AttributeNameReadsBack(node.Attribute(i).name)) return false;
    }
    for (std::size_t i = 0; i < node.ChildCount(); ++i) pending.push_back(node.Child(i));
  }
  return true;
}

bool KeepsTree(XmlParseError error) {
  return error == XmlParseError::None || IsXmlParseWarning(error);
}

void CheckResult(const XmlTreeNode& tree, const XmlParseResult& result, WStringView text) {
  Check(static_cast<bool>(tree) == KeepsTree(result.error));
  if (result.error == XmlParseError::NoElementsFound) {
    Check(text.empty() && result.line == 0 && result.column == 0);
  } else if (result.error != XmlParseError::None) {
    Check(result.line >= 1 && result.column >= 1 && result.column <= text.size() + 1);
  }
}

// Written text reads back without error; written once more it no longer
// changes (the first write may still drop white space that entities made).
void CheckWrittenText(const XmlTreeNode& tree, bool formatted) {
  const WString written = WriteXmlText(tree, formatted);
  XmlParseResult result;
  const XmlTreeNode again = ParseXmlText(written, u"", result);
  Check(result.error == XmlParseError::None || result.error == XmlParseError::NoXmlTagWarning ||
        (written.empty() && result.error == XmlParseError::NoElementsFound));
  const WString rewritten = WriteXmlText(again, formatted);
  const XmlTreeNode third = ParseXmlText(rewritten, u"", result);
  Check(WriteXmlText(third, formatted) == rewritten);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const WString text = Utf8ToWide(std::string_view(reinterpret_cast<const char*>(data), size));
  XmlParseResult result;
  const XmlTreeNode tree = ParseXmlText(text, u"", result);
  CheckResult(tree, result, text);
  if (!tree || !NamesReadBack(tree)) return 0;
  CheckWrittenText(tree, true);
  CheckWrittenText(tree, false);
  return 0;
}
