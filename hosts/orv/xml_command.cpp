#include <afxwin.h>

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <fstream>
#include <memory>
#include <vector>

#include "commands.h"
#include "markup/OXParser.h"
#include "xml_html_parser.h"

namespace {

struct Options {
  const char* file = nullptr;
  const char* out = nullptr;
  bool html = false;
};

bool ReadOptions(int count, char** arguments, Options& options) {
  for (int i = 0; i < count; ++i) {
    const char* const argument = arguments[i];
    if (strcmp(argument, "--html") == 0) {
      options.html = true;
    } else if (strcmp(argument, "-o") == 0 && options.out == nullptr && i + 1 < count) {
      options.out = arguments[++i];
    } else if (*argument != '-' && options.file == nullptr) {
      options.file = argument;
    } else {
      return false;
    }
  }
  return options.file != nullptr;
}

struct Problems {
  const char* file;
  int count = 0;
};

int PrintProblem(int code, const char* message, int line, int column, unsigned long data) {
  auto* const problems = reinterpret_cast<Problems*>(data);
  ++problems->count;
  fprintf(stderr, "%s:%d:%d: %d %s\n", problems->file, line, column, code, message);
  return 0;
}

struct Summary {
  int elements = 0;
  int attributes = 0;
  int texts = 0;
  int depth = 0;
};

void Count(const COXParserElement& element, int depth, Summary& summary) {
  summary.depth = std::max(summary.depth, depth);
  summary.attributes += element.NumAttributes();
  for (int i = 0; i < element.NumObjects(); ++i) {
    const int type = element.GetObject(i)->GetType();
    if (type == COXParserObject::ELEMENT) {
      ++summary.elements;
      Count(*element.GetElement(i), depth + 1, summary);
    } else if (type == COXParserObject::PLAINTEXT || type == COXParserObject::CDATA) {
      ++summary.texts;
    }
  }
}

const char* WhyNotLoaded(COXParser::ParseError status) {
  switch (status) {
    case COXParser::kFileMissing:
      return "there is no such file";
    case COXParser::kFolderMissing:
      return "there is no such folder";
    case COXParser::kFileNotOpened:
      return "can't be opened";
    case COXParser::kNoMemory:
      return "is too large";
    case COXParser::kParseFailed:
      return "is empty";
    default:
      return "can't be read";
  }
}

// The parser reads a text up to its first zero byte: what stands behind it would be lost unnoticed.
bool HoldsZeroByte(const char* path) {
  std::ifstream file(path, std::ios::binary);
  std::vector<char> piece(64 * 1024);
  do {
    file.read(piece.data(), static_cast<std::streamsize>(piece.size()));
    if (memchr(piece.data(), 0, static_cast<size_t>(file.gcount())) != nullptr) return true;
  } while (file);
  return false;
}

}  // namespace

int XmlCommand(int count, char** arguments) {
  Options options;
  if (!ReadOptions(count, arguments, options)) return kWrongUsage;
  if (HoldsZeroByte(options.file)) {
    fprintf(stderr, "orv: %s: is no 8-bit text: it holds zero bytes, as UTF-16 does\n",
            options.file);
    return kFailed;
  }
  const std::unique_ptr<COXParser> parser =
      options.html ? std::make_unique<HtmlParser>() : std::make_unique<COXParser>();
  Problems problems = {options.file};
  parser->SetErrorRptFunction(PrintProblem, reinterpret_cast<unsigned long>(&problems));
  COXParser::ParseError status;
  const int parsed = parser->ParseFileEx(options.file, FALSE, status);
  if (!parsed && problems.count == 0) {
    fprintf(stderr, "orv: %s: %s\n", options.file, WhyNotLoaded(status));
  }
  if (!parsed) return kFailed;

  if (options.out != nullptr && !parser->WriteFile(options.out)) {
    fprintf(stderr, "orv: %s: %s\n", options.out,
            parser->IsEmpty() ? "there is nothing to write" : "can't be written");
    return kFailed;
  }
  if (problems.count > 0) return kFailed;
  Summary summary;
  Count(parser->Root(), 0, summary);
  printf("elements %d\nattributes %d\ntexts %d\ndepth %d\n", summary.elements, summary.attributes,
         summary.texts, summary.depth);
  return kDone;
}
