#include <afxwin.h>

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <string>
#include <vector>

#include "commands.h"
#include "dircmp/DirCmpCtrl.h"
#include "dircmp/HyperLinkReportOp.h"
#include "lists/ReportCommand.h"
#include "lists/ReportOperation.h"
#include "operation_run.h"

namespace {

// As comparing tools do.
enum CompareStatus { kSame = 0, kDifferent = 1, kTrouble = 2 };

struct Options {
  const char* base = nullptr;
  const char* revised = nullptr;
  const char* links = nullptr;
  const char* report = nullptr;
  bool isBrief = false;
  DirCmpPrm prm;
  HyperLinkReportOptions pages;
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
    if (name == "--report") return (options.report = Value()) != nullptr;
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
      options.pages.linkSourceFiles = true;
    } else if (name == "--copy") {
      options.pages.copyDocuments = true;
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

// The library's list, without a window: the same comparison and the same reports.
class ConsoleList : public DirCmpCtrl {
 public:
  // Of what goes on.
  void SetVerb(const char* verb) { m_verb = verb; }

 protected:
  int RunOperation(MMultiOperation& operation) override { return ::RunOperation(operation); }
  int RunPagesOperation(MMultiOperation& operation) override { return ::RunOperation(operation); }
  void Progress(unsigned done, unsigned all) override { ShowProgress(m_verb, done, all); }

 private:
  const char* m_verb = "comparing";
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
  printf("%d same, %d modified, %d new, %d deleted", counts[0], counts[1], counts[2], counts[3]);
  if (counts[4] > 0) printf(", %d unknown", counts[4]);
  puts("");
  return counts[1] + counts[2] + counts[3] == 0;
}

bool WritePages(const FolderComparison& comparison, const Options& options) {
  HyperLinkReport report(comparison, "", "", options.pages, OptionsOf(options.prm));
  report.AddAll();
  const HyperLinkReport::Target target = report.Prepare(options.links);
  if (target != HyperLinkReport::Target::Ready) {
    const bool isOccupied = target == HyperLinkReport::Target::Occupied;
    fprintf(stderr, "orv: %s: %s\n", options.links,
            isOccupied ? "the folder holds something else than a report" : "can't be created");
    return false;
  }
  HyperLinkReportOp writing(
      report, [](unsigned done, unsigned all) { ShowProgress("writing", done, all); });
  const bool isWritten = RunOperation(writing) != 0 && !writing.wasAborted();
  PrintProblems(report.problems(), "can't be written");
  return isWritten && report.problems().empty();
}

HlReportSettings::DocumentLinks LinksOf(const HyperLinkReportOptions& pages) {
  return pages.copyDocuments     ? HlReportSettings::kCopies
         : pages.linkSourceFiles ? HlReportSettings::kRevisedInPlace
                                 : HlReportSettings::kInactive;
}

// Ends at Ctrl+C, too.
class ConsoleReport : public ReportOperation {
 public:
  using ReportOperation::ReportOperation;

 protected:
  OperationReturnState Operation(unsigned index) override {
    if (WasStopped()) StopLoop();
    return ReportOperation::Operation(index);
  }
};

bool WriteReport(ConsoleList& list, const Options& options) {
  ReportSettings settings = ReportCommand::Defaults(list);
  if (const char* const place = ReportCommand::Parse(list, options.report, settings)) {
    fprintf(stderr, "orv: the report's command can't be read from here on: %s\n", place);
    return false;
  }
  list.SetVerb("writing");
  list.SetReportPages({.documentLinks = LinksOf(options.pages)});
  settings.isQuiet = true;  // no boxes from a console program
  const bool isWritten = ConsoleReport(list, settings).Generate() != 0;
  if (!isWritten)
    fprintf(stderr, "orv: no report was written to \"%s\"\n",
            static_cast<LPCSTR>(settings.outputFile));
  return isWritten;
}

bool WriteReports(ConsoleList& list, const Options& options) {
  const bool hasPages = options.links == nullptr || WritePages(*list.Comparison(), options);
  const bool hasReport = options.report == nullptr || WriteReport(list, options);
  return hasPages && hasReport;
}

}  // namespace

const char kCompareOptions[] =
    "\n"
    "  --types LIST    only documents of these types: \"*.c;*.h\"\n"
    "  --exclude LIST  all documents but those of these types\n"
    "  --ignore-case   letters are equal regardless of case\n"
    "  --space MODE    white space: 0 counts, 1 any run of it equals any run (from the start),\n"
    "                  2 is ignored\n"
    "  --flat          not the sub-folders\n"
    "  --brief         no lines for documents that are the same\n"
    "  --links FOLDER  writes a report with the differences as pages for a browser; the folder is\n"
    "                  new, empty, or that of an earlier report\n"
    "  --report COMMAND\n"
    "                  writes a report of the list: \"S:5D R:H O:C:\\out\\report.htm\";\n"
    "                  a page gets such differences in a folder beside it\n"
    "  --link-sources  reports link to the documents where they are\n"
    "  --copy          reports get copies of the documents\n"
    "\n"
    "Exit status: 0 same, 1 different, 2 trouble.\n";

int CompareCommand(int count, char** arguments) {
  Options options;
  if (!OptionReader(count, arguments).Read(options)) return kWrongUsage;
  if (!IsFolder(options.base) || !IsFolder(options.revised)) return kTrouble;
  FinishAfterCtrlC(kTrouble);
  ConsoleList list;
  list.InitList(options.base, options.revised, options.prm);
  const FolderComparison& comparison = *list.Comparison();
  const bool isSame = PrintStates(comparison, options.isBrief);
  PrintProblems(comparison.problems(), "can't be read");
  if (comparison.WasStopped()) {
    fputs("orv: stopped\n", stderr);
    return kTrouble;
  }
  if (!WriteReports(list, options) || WasStopped() || !comparison.problems().empty())
    return kTrouble;
  return isSame ? kSame : kDifferent;
}
