#include <afxwin.h>

#include <io.h>

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <string>
#include <vector>

#include "commands.h"
#include "dircmp/FolderComparison.h"
#include "dircmp/HyperLinkReport.h"

namespace {

constexpr char kUsage[] =
    "usage: orv compare BASE REVISED [OPTIONS]\n"
    "\n"
    "  --types LIST    only documents of these types: \"*.c;*.h\"\n"
    "  --exclude LIST  all documents but those of these types\n"
    "  --ignore-case   letters are equal regardless of case\n"
    "  --space MODE    white space: 0 counts, 1 any run of it equals any run, 2 is ignored (from "
    "the\n"
    "                  start: 1)\n"
    "  --flat          not the sub-folders\n"
    "  --brief         no lines for documents that are the same\n"
    "  --links FOLDER  writes a report with the differences as pages for a browser; the folder is\n"
    "                  new, empty, or that of an earlier report\n"
    "  --link-sources  the report links to the documents where they are\n"
    "  --copy          the report gets copies of the documents\n"
    "\n"
    "Exit status: 0 same, 1 different, 2 trouble.\n";

// As comparing tools do.
enum CompareStatus { kSame = 0, kDifferent = 1, kTrouble = 2 };

struct Options {
  const char* base = nullptr;
  const char* revised = nullptr;
  const char* links = nullptr;
  bool isBrief = false;
  DirCmpPrm prm;
  HyperLinkReportOptions report;
};

class OptionReader {
 public:
  OptionReader(int count, char** arguments) : m_next(arguments), m_end(arguments + count) {}

  bool Read(Options& options) {
    options.prm.m_scanFlags = kScanSubFolders;
    options.prm.m_excludeListedTypes = 0;
    while (m_next != m_end) {
      if (!ReadOne(options, *m_next++)) return false;
    }
    return options.revised != nullptr;
  }

 private:
  bool ReadOne(Options& options, const std::string& name) {
    DirCmpPrm& prm = options.prm;
    if (!name.starts_with("--")) return ReadFolder(options, m_next[-1]);
    if (name == "--types" || name == "--exclude") {
      // One of them, once.
      const char* const list = prm.m_typeList.IsEmpty() ? Value() : nullptr;
      prm.m_typeList = list;
      prm.m_excludeListedTypes = name == "--exclude";
      return list != nullptr;
    }
    if (name == "--space") {
      const std::string mode = ValueOr("");
      prm.m_whiteSpaceMode = atoi(mode.c_str());
      return mode == "0" || mode == "1" || mode == "2";
    }
    if (name == "--links") return (options.links = Value()) != nullptr;
    return SetFlag(options, name);
  }

  static bool SetFlag(Options& options, const std::string& name) {
    if (name == "--ignore-case") {
      options.prm.m_ignoreCase = 1;
    } else if (name == "--flat") {
      options.prm.m_scanFlags &= ~kScanSubFolders;
    } else if (name == "--brief") {
      options.isBrief = true;
    } else if (name == "--link-sources") {
      options.report.linkSourceFiles = true;
    } else if (name == "--copy") {
      options.report.copyDocuments = true;
    } else {
      return false;
    }
    return true;
  }

  static bool ReadFolder(Options& options, const char* folder) {
    if (options.revised != nullptr || *folder == 0) return false;
    (options.base == nullptr ? options.base : options.revised) = folder;
    return true;
  }

  // The argument after an option; null: there is none.
  const char* Value() { return m_next != m_end ? *m_next++ : nullptr; }
  std::string ValueOr(const char* other) {
    const char* const value = Value();
    return value != nullptr ? value : other;
  }

  char** m_next;
  char** m_end;
};

// How far a long job is, on a terminal only.
class ProgressLine {
 public:
  explicit ProgressLine(const char* what) : m_what(what) {}
  ~ProgressLine() {
    if (m_isShown) fprintf(stderr, "\r%*s\r", kWidth, "");
  }
  ProgressLine(const ProgressLine&) = delete;
  ProgressLine& operator=(const ProgressLine&) = delete;

  void Show(size_t done, size_t all) {
    const DWORD now = GetTickCount();
    if (!m_isTerminal || now - m_shown < kInterval) return;
    m_shown = now;
    m_isShown = true;
    fprintf(stderr, "\r%s %zu of %zu", m_what, done, all);
  }

 private:
  static constexpr DWORD kInterval = 250;  // milliseconds
  static constexpr int kWidth = 60;

  const char* m_what;
  const bool m_isTerminal = _isatty(_fileno(stderr)) != 0;
  DWORD m_shown = GetTickCount();
  bool m_isShown = false;
};

bool IsFolder(const char* path) {
  const DWORD attributes = GetFileAttributesA(path);
  const bool isFolder =
      attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
  if (!isFolder) fprintf(stderr, "orv: %s: there is no such folder\n", path);
  return isFolder;
}

void PrintProblems(const std::vector<FolderComparison::Problem>& problems, const char* what) {
  for (const FolderComparison::Problem& problem : problems) {
    fprintf(stderr, "orv: %s: %s (system error %lu)\n", problem.path.c_str(), what, problem.error);
  }
}

void Evaluate(FolderComparison& comparison) {
  ProgressLine progress("comparing");
  size_t done = 0;
  for (DocumentRecord& record : comparison.records()) {
    if (comparison.IsCompared(record)) comparison.Evaluate(record);
    progress.Show(++done, comparison.records().size());
  }
}

std::vector<const DocumentRecord*> ComparedInOrder(const FolderComparison& comparison) {
  std::vector<const DocumentRecord*> records;
  for (const DocumentRecord& record : comparison.records()) {
    if (comparison.IsCompared(record)) records.push_back(&record);
  }
  std::sort(records.begin(), records.end(), [](const auto* left, const auto* right) {
    return strcmp(left->relativePath, right->relativePath) < 0;
  });
  return records;
}

// Prints the documents and the summary: whether all are the same.
bool PrintStates(const FolderComparison& comparison, bool isBrief) {
  constexpr const char* kNames[kFileStates] = {"Same", "Modified", "New", "Deleted", "Unknown"};
  int counts[kFileStates] = {};
  for (const DocumentRecord* record : ComparedInOrder(comparison)) {
    const int state = static_cast<int>(record->state);
    ++counts[state];
    if (isBrief && record->state == FileState::Same) continue;
    printf("%-8s  %s\n", kNames[state], static_cast<LPCSTR>(record->relativePath));
  }
  printf("%d same, %d modified, %d new, %d deleted\n", counts[0], counts[1], counts[2], counts[3]);
  return counts[1] + counts[2] + counts[3] == 0;
}

bool WriteReport(const FolderComparison& comparison, const Options& options) {
  HyperLinkReport report(comparison, "", "", options.report,
                         {.ignoreCase = options.prm.m_ignoreCase != 0,
                          .whiteSpaceMode = options.prm.m_whiteSpaceMode});
  report.AddAll();
  const HyperLinkReport::Target target = report.Prepare(options.links);
  if (target != HyperLinkReport::Target::Ready) {
    const bool isOccupied = target == HyperLinkReport::Target::Occupied;
    fprintf(stderr, "orv: %s: %s\n", options.links,
            isOccupied ? "the folder holds something else than a report" : "can't be created");
    return false;
  }
  {
    ProgressLine progress("writing");
    for (size_t i = 0; i < report.documentCount(); ++i) {
      report.WriteDocument(i);
      progress.Show(i, report.documentCount());
    }
  }
  report.WriteIndex();
  PrintProblems(report.problems(), "can't be written");
  return report.problems().empty();
}

}  // namespace

int CompareCommand(int count, char** arguments) {
  Options options;
  if (!OptionReader(count, arguments).Read(options)) {
    fputs(kUsage, stderr);
    return kTrouble;
  }
  if (!IsFolder(options.base) || !IsFolder(options.revised)) return kTrouble;
  FolderComparison comparison(options.base, options.revised, options.prm);
  comparison.Scan();
  Evaluate(comparison);
  const bool isSame = PrintStates(comparison, options.isBrief);
  PrintProblems(comparison.problems(), "can't be read");
  const bool isWritten = options.links == nullptr || WriteReport(comparison, options);
  if (!comparison.problems().empty() || !isWritten) return kTrouble;
  return isSame ? kSame : kDifferent;
}
