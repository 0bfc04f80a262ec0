// Parses and writes documents of many elements, of many attributes and of much text.
//
// Floor: RapidXML, which checks next to nothing, changes the text it is given and leaves names and
// values where they stand in it; here they are copied into nodes that may be changed. Writing is
// measured against its printing into memory and one write of the result.
#include <afxwin.h>

#include <psapi.h>

#include <iterator>
#include <memory>
#include <string>
#include <vector>

#include "Measure.h"
#include "entry/Handles.h"
#include "markup/OXParser.h"

#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wunused-parameter"
#include "/usr/include/rapidxml/rapidxml.hpp"

// The printing header uses these before it declares them.
namespace rapidxml::internal {
template <class Out, class Ch>
Out print_children(Out, const xml_node<Ch>*, int, int);
template <class Out, class Ch>
Out print_element_node(Out, const xml_node<Ch>*, int, int);
template <class Out, class Ch>
Out print_data_node(Out, const xml_node<Ch>*, int, int);
template <class Out, class Ch>
Out print_cdata_node(Out, const xml_node<Ch>*, int, int);
template <class Out, class Ch>
Out print_declaration_node(Out, const xml_node<Ch>*, int, int);
template <class Out, class Ch>
Out print_comment_node(Out, const xml_node<Ch>*, int, int);
template <class Out, class Ch>
Out print_doctype_node(Out, const xml_node<Ch>*, int, int);
template <class Out, class Ch>
Out print_pi_node(Out, const xml_node<Ch>*, int, int);
}  // namespace rapidxml::internal
#include "/usr/include/rapidxml/rapidxml_print.hpp"
#pragma GCC diagnostic pop

namespace {

constexpr size_t kMegabyte = 1024 * 1024;
constexpr double kAim = 2.5;
constexpr char kFile[] = "bench_markup.xml";

// The same numbers on every run.
class Numbers {
 public:
  unsigned Below(unsigned limit) {
    m_state = m_state * 1664525u + 1013904223u;
    return (m_state >> 8) % limit;
  }

 private:
  unsigned m_state = 1;
};

std::string Words(Numbers& numbers, unsigned length) {
  constexpr const char* kWords[] = {"folder", "a",    "document", "was",    "compared", "with",
                                    "its",    "base", "revision", "before", "release",  "&amp;"};
  std::string text;
  for (unsigned line = 0; text.size() < length;) {
    const std::string word = kWords[numbers.Below(std::size(kWords))];
    const bool wraps = text.size() + word.size() - line > 78;
    if (wraps) line = text.size();
    text += (text.empty() ? "" : wraps ? "\r\n" : " ") + word;
  }
  return text;
}

std::string ElementHeavy(Numbers& numbers) {
  const std::string number = std::to_string(numbers.Below(100000));
  return "  <item>\r\n    <name>item" + number + "</name>\r\n    <count>" + number +
         "</count>\r\n    <checked/>\r\n  </item>\r\n";
}

std::string AttributeHeavy(Numbers& numbers) {
  const std::string number = std::to_string(numbers.Below(100000));
  return "  <file path=\"modules\\storage\\index" + number + ".cpp\" size=\"" + number +
         "\" date=\"2001-02-03 04:05:06\" state=\"Modified\" owner=\"maintainer\"/>\r\n";
}

std::string TextHeavy(Numbers& numbers) {
  return "  <p>" + Words(numbers, 100 + numbers.Below(500)) + "</p>\r\n";
}

std::string MakeDocument(std::string (*piece)(Numbers&), size_t size) {
  Numbers numbers;
  std::string text = "<?xml version=\"1.0\"?>\r\n<root>\r\n";
  text.reserve(size + 1024);
  while (text.size() < size) text += piece(numbers);
  return text + "</root>\r\n";
}

struct RapidDocument {
  explicit RapidDocument(const std::string& document) : text(document) {}
  void Parse() { tree.parse<0>(text.data()); }

  std::string text;
  rapidxml::xml_document<> tree;
};

size_t UsedMemory() {
  PROCESS_MEMORY_COUNTERS counters = {};
  K32GetProcessMemoryInfo(GetCurrentProcess(), &counters, sizeof counters);
  return counters.WorkingSetSize;
}

int CountNodes(const COXParserElement& element) {
  int count = element.NumAttributes();
  for (int i = 0; i < element.NumObjects(); ++i) {
    const bool isElement = element.GetObject(i)->GetType() == COXParserObject::ELEMENT;
    count += 1 + (isElement ? CountNodes(*element.GetElement(i)) : 0);
  }
  return count;
}

void WriteWhole(const std::string& text) {
  const unique_file file(
      CreateFileA(kFile, GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr));
  DWORD written = 0;
  bench::Require(
      WriteFile(file.get(), text.data(), text.size(), &written, nullptr) && written == text.size(),
      "the floor's file can't be written");
}

// The trees of small documents are all kept, so that each is made in memory that was not used
// before, as that of a large one is.
void MeasureParsing(const std::string& name, const std::string& document, int rounds) {
  std::vector<std::unique_ptr<COXParser>> parsers;
  std::vector<std::unique_ptr<RapidDocument>> rapids;
  bench::Best ours, floor;
  for (int round = 0; round < rounds; ++round) {
    if (document.size() > 2 * kMegabyte) parsers.clear();
    parsers.push_back(std::make_unique<COXParser>());
    ours.Run([&] {
      bench::Require(parsers.back()->Parse(document.c_str()), "the document is refused");
    });
    if (document.size() > 2 * kMegabyte) parsers.clear();
    rapids.push_back(std::make_unique<RapidDocument>(document));
    floor.Run([&] { rapids.back()->Parse(); });
    if (document.size() > 2 * kMegabyte) rapids.clear();
  }
  bench::PrintRow("parse " + name, {ours.Milliseconds(), floor.Milliseconds()}, kAim);
}

void MeasureWriting(const std::string& name, const std::string& document, int rounds) {
  COXParser parser;
  const size_t before = UsedMemory();
  bench::Require(parser.Parse(document.c_str()), "the document is refused");
  const size_t used = UsedMemory() - before;
  RapidDocument rapid(document);
  rapid.Parse();
  const bench::Times times = bench::Compare(
      rounds, [&] { bench::Require(parser.WriteFile(kFile), "the file can't be written"); },
      [&] {
        std::string text;
        rapidxml::print(std::back_inserter(text), rapid.tree, 0);
        WriteWhole(text);
      });
  bench::PrintRow("write " + name, times, 0);
  DeleteFileA(kFile);

  const int nodes = CountNodes(parser.Root());
  bench::Best destroying;
  destroying.Run([&] { parser.Clear(); });
  printf(
      "  %d nodes, %.1f bytes each; %.1f of memory for a byte of the document; deleted in %.1f "
      "ms\n",
      nodes, static_cast<double>(used) / nodes, static_cast<double>(used) / document.size(),
      destroying.Milliseconds());
}

// One document of 50 MB against 50 of 1 MB, whose trees are all kept: as much memory that was not
// used before, and so the same time when the time grows with the bytes alone.
void MeasureGrowth(const std::string& name, const std::string& small, const std::string& large) {
  const auto many = [&] {
    std::vector<std::unique_ptr<COXParser>> parsers(large.size() / small.size());
    const bench::Stopwatch watch;
    for (auto& parser : parsers) {
      parser = std::make_unique<COXParser>();
      parser->Parse(small.c_str());
    }
    return watch.Milliseconds();
  };
  const auto one = [&] {
    COXParser parser;
    const bench::Stopwatch watch;
    parser.Parse(large.c_str());
    return watch.Milliseconds();
  };
  bench::Times best = {one(), many()};
  for (int round = 0; round < 4; ++round) {
    best.subject = std::min(best.subject, one());
    best.floor = std::min(best.floor, many());
  }
  bench::PrintRow("growth, " + name + ": 50 MB for 50 x 1 MB", best, 0);
}

}  // namespace

int main() {
  constexpr struct {
    const char* name;
    std::string (*piece)(Numbers&);
  } kKinds[] = {{"elements", ElementHeavy}, {"attributes", AttributeHeavy}, {"text", TextHeavy}};
  bench::PrintHeader();
  for (const auto& kind : kKinds) {
    const std::string small = MakeDocument(kind.piece, kMegabyte);
    const std::string large = MakeDocument(kind.piece, 50 * kMegabyte);
    MeasureParsing(kind.name + std::string(", 1 MB"), small, 40);
    MeasureParsing(kind.name + std::string(", 50 MB"), large, 9);
    MeasureWriting(kind.name + std::string(", 1 MB"), small, 9);
    MeasureWriting(kind.name + std::string(", 50 MB"), large, 3);
    MeasureGrowth(kind.name, small, large);
  }
}
