// Reads and writes generated XML documents of about 5 MB and 50 MB (wide
// text, two bytes a unit) and prints the throughput of each step.
#include <chrono>
#include <cstdio>

#include "xml/xml_parse.h"
#include "xml/xml_write.h"

namespace {

using namespace NScrivolt;
using Clock = std::chrono::steady_clock;

constexpr double kMegabyte = 1024.0 * 1024.0;

double Megabytes(const WString& text) { return double(text.size() * sizeof(WChar)) / kMegabyte; }

// Records with attributes, texts, nested elements, entities and comments,
// repeated until the document reaches `megabytes`.
WString GenerateDocument(double megabytes) {
  WString text = u"<?xml version=\"1.0\"?>\n<catalog>\n";
  for (std::size_t n = 0; Megabytes(text) < megabytes; ++n) {
    const WString id = IntegerToText(std::int64_t(n));
    text += u"\t<item id=\"" + id + u"\" name=\"Item " + id + u" &amp; sons\" active>\n";
    text += u"\t\t<title>The title of item " + id + u", with &lt;markup&gt;</title>\n";
    text += u"\t\t<price currency='EUR'>" + id + u".95</price>\n";
    text += u"\t\t<!-- note " + id + u" -->\n";
    text += u"\t\t<tags><tag>a</tag><tag>b</tag><tag/></tags>\n";
    text += u"\t\tFree text of the item, a little longer than the others.\n";
    text += u"\t</item>\n";
  }
  return text + u"</catalog>\n";
}

double SecondsSince(Clock::time_point start) {
  return std::chrono::duration<double>(Clock::now() - start).count();
}

void Measure(double megabytes) {
  const WString text = GenerateDocument(megabytes);
  Clock::time_point start = Clock::now();
  XmlParseResult result;
  const XmlTreeNode tree = ParseXmlText(text, u"", result);
  const double readSeconds = SecondsSince(start);
  if (result.error != XmlParseError::None) {
    std::printf("reading failed with code %d\n", int(result.error));
    return;
  }
  std::printf("%6.1f MB document: read                  %8.1f MB/s\n", Megabytes(text),
              Megabytes(text) / readSeconds);
  for (bool formatted : {true, false}) {
    start = Clock::now();
    const WString written = WriteXmlText(tree, formatted);
    const double writeSeconds = SecondsSince(start);
    std::printf("%6.1f MB document: write %-11s %8.1f MB/s (%.1f MB written)\n", Megabytes(text),
                formatted ? "formatted" : "unformatted", Megabytes(written) / writeSeconds,
                Megabytes(written));
  }
}

}  // namespace

int main() {
  Measure(5);
  Measure(50);
  return 0;
}
