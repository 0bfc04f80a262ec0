// The states of the documents of two trees.
#include <afxwin.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <map>
#include <string>
#include <vector>

#include "dircmp/ControlTest.h"
#include "dircmp/FolderComparison.h"
#include "entry/SetGetCurrentDir.h"
#include "support/AssertionLog.h"
#include "support/CodePage.h"
#include "support/LongRun.h"

namespace {

constexpr char kStates[] = "SMND?";

char StateOf(const DocumentRecord& record) { return kStates[static_cast<int>(record.state)]; }

DirCmpPrm AllTypes() {
  DirCmpPrm prm;
  prm.m_scanFlags = kScanSubFolders;
  prm.m_excludeListedTypes = 0;
  prm.m_whiteSpaceMode = kWhiteSpaceExact;
  return prm;
}

class Folders : public TwoFolders {
 protected:
  void Write(const std::string& name, const std::string& bytes) { m_folder.Write(name, bytes); }
  // "S a.txt" and so on, in order.
  std::vector<std::string> Rows(const DirCmpPrm& prm = AllTypes()) {
    FolderComparison comparison(base().c_str(), revised().c_str(), prm);
    comparison.Scan();
    comparison.EvaluateAll();
    m_problems = comparison.problems().size();
    return RowsOf(comparison);
  }

  static std::vector<std::string> RowsOf(const FolderComparison& comparison) {
    std::vector<std::string> rows;
    for (const DocumentRecord& record : comparison.records()) {
      if (!comparison.IsCompared(record)) continue;
      rows.push_back(std::string(1, StateOf(record)) + " " +
                     static_cast<LPCSTR>(record.relativePath));
    }
    std::sort(rows.begin(), rows.end());
    return rows;
  }

  size_t m_problems = 0;
};

using RowList = std::vector<std::string>;

TEST_F(Folders, States) {
  Write("base\\same.txt", "x");
  Write("revised\\same.txt", "x");
  Write("base\\sub\\Changed.C", "x");
  Write("revised\\SUB\\changed.c", "y");
  Write("base\\gone", "x");
  Write("revised\\a\\b\\c\\new.x", "x");
  const std::string upper = Ansi(UpperLetter()) + "rger.txt";
  Write("base\\" + upper, "x");
  Write("revised\\" + Ansi(LowerLetter()) + "rger.txt", "x");
  EXPECT_EQ(Rows(), (RowList{"D gone", "M sub\\Changed.C", "N a\\b\\c\\new.x", "S same.txt",
                             "S " + upper}));
  EXPECT_EQ(m_problems, 0u);

  DirCmpPrm prm = AllTypes();
  prm.m_scanFlags = 0;
  EXPECT_EQ(Rows(prm), (RowList{"D gone", "S same.txt", "S " + upper}));
  prm = AllTypes();
  prm.m_typeList = "*.C;*.x";
  EXPECT_EQ(Rows(prm), (RowList{"M sub\\Changed.C", "N a\\b\\c\\new.x"}));
}

TEST_F(Folders, LargeFiles) {
  const int64_t size = int64_t{1} << (IsLongRun() ? 31 : 26);  // over 2 GB in a long run
  for (const std::string side : {"base\\", "revised\\"}) {
    WriteHoles(side + "same", size, "end");
    WriteHoles(side + "changed", size, side);
  }
  DirCmpPrm prm = AllTypes();
  prm.m_whiteSpaceMode = kWhiteSpaceRuns;
  EXPECT_EQ(Rows(prm), (RowList{"M changed", "S same"}));
}

// Times in days; 0: there is no such file, or it is not told.
TEST_F(Folders, Times) {
  const struct {
    const char* name;
    unsigned base, revised;
    const char* row;  // state, base, revised, modified
  } kCases[] = {
      {"same", 1, 2, "S 2 2 2"},         {"same, newer base", 2, 1, "S 2 2 2"},
      {"changed", 1, 2, "M 1 2 2"},      {"changed, newer base", 2, 1, "M 2 1 2"},
      {"only revised", 0, 2, "N 0 2 2"}, {"only base", 1, 0, "D 1 0 1"},
  };
  const auto write = [&](const std::string& name, unsigned day, const char* bytes) {
    if (day == 0) return;
    Write(name, bytes);
    SetTime(name, day);
  };
  for (const auto& row : kCases) {
    write(std::string("base\\") + row.name, row.base, "x");
    write(std::string("revised\\") + row.name, row.revised, *row.row == 'S' ? "x" : "y");
  }
  FolderComparison comparison(base().c_str(), revised().c_str(), AllTypes());
  EXPECT_TRUE(comparison.Scan() && comparison.EvaluateAll());
  std::map<std::string, std::string> rows;
  for (const DocumentRecord& record : comparison.records()) {
    std::string& row = rows[str(record.relativePath)] = StateOf(record);
    for (const CTime& time : {record.baseModified, record.revisedModified, record.modified})
      row += " " + std::to_string(time == CTime() ? 0 : (time - CTime(Day(0))).GetDays());
  }
  for (const auto& row : kCases) EXPECT_EQ(rows[row.name], row.row) << row.name;
}

// Nobody is kept from working with it, and a tree on a network is not read.
TEST_F(Folders, ADocumentOfOneFolderIsNotOpened) {
  std::vector<unique_file> locks;
  for (const char* name : {"base\\deleted", "revised\\new"})
    locks.emplace_back(CreateFileA(m_folder.Write(name, "x").c_str(), GENERIC_READ, 0, nullptr,
                                   OPEN_EXISTING, 0, nullptr));
  EXPECT_EQ(Rows(), (RowList{"D deleted", "N new"}));
  EXPECT_EQ(m_problems, 0u);
}

// What happens to documents between the scan and the evaluation.
TEST_F(Folders, ChangesMeanwhile) {
  unique_file locked;
  const struct {
    const char* what;
    std::function<void()> change;
    const char* row;
    bool isProblem;
    bool isReported;  // to the assertion log
  } kCases[] = {
      {"nothing", [] {}, "S a", false, false},
      {"base vanishes", [&] { DeleteFileA((base() + "\\a").c_str()); }, "M a", true, true},
      {"revised vanishes", [&] { DeleteFileA((revised() + "\\a").c_str()); }, "M a", true, true},
      {"revised grows", [&] { Write("revised\\a", "xx"); }, "M a", false, false},
      {"base is locked",
       [&] {
         locked.reset(CreateFileA((base() + "\\a").c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING,
                                  0, nullptr));
       },
       "M a", true, false},
      {"base becomes a folder",
       [&] {
         DeleteFileA((base() + "\\a").c_str());
         ::CreateDirectoryA((base() + "\\a").c_str(), nullptr);
       },
       "M a", true, false},
  };
  for (const auto& row : kCases) {
    SCOPED_TRACE(row.what);
    RemoveDirectoryA((base() + "\\a").c_str());
    Write("base\\a", "x");
    Write("revised\\a", "x");
    const AssertionLog log;
    FolderComparison comparison(base().c_str(), revised().c_str(), AllTypes());
    EXPECT_TRUE(comparison.Scan());
    row.change();
    EXPECT_TRUE(comparison.EvaluateAll());
    locked.reset();
    EXPECT_EQ(RowsOf(comparison), RowList{row.row});
    ASSERT_EQ(comparison.problems().size(), row.isProblem ? 1u : 0u);
    for (const FolderComparison::Problem& problem : comparison.problems())
      EXPECT_NE(problem.error, 0u);
    EXPECT_EQ(!log.Empty(), row.isReported) << log.Text();
  }
}

TEST_F(Folders, OddFolders) {
  Write("base\\a", "x");
  Write("base\\sub\\b", "y");
  const auto rows = [&](const std::string& left, const std::string& right, size_t problems) {
    FolderComparison comparison(left.c_str(), right.c_str(), AllTypes());
    comparison.Scan();
    comparison.EvaluateAll();
    EXPECT_EQ(comparison.problems().size(), problems) << left << ", " << right;
    return RowsOf(comparison);
  };
  EXPECT_EQ(rows(base(), m_folder / "missing", 1), (RowList{"D a", "D sub\\b"}));
  EXPECT_EQ(rows(m_folder / "missing", base(), 1), (RowList{"N a", "N sub\\b"}));
  EXPECT_EQ(rows(base(), base(), 0), (RowList{"S a", "S sub\\b"}));
  EXPECT_EQ(rows(base(), base() + "\\sub", 0), (RowList{"D a", "D sub\\b", "N b"}));
  EXPECT_EQ(rows(base() + "\\", base() + "/sub/../", 0), (RowList{"S a", "S sub\\b"}));
  EXPECT_EQ(rows(base(), "", 1), (RowList{"D a", "D sub\\b"}));
  EXPECT_EQ(rows(base() + "\\a", base(), 1), (RowList{"N a", "N sub\\b"}));
  const SetGetCurrentDir current(base().c_str());
  const std::string drive = base().substr(0, 2);
  EXPECT_EQ(rows(".", drive, 0), (RowList{"S a", "S sub\\b"}));
  EXPECT_EQ(str(FolderComparison("\\", "", AllTypes()).baseFolder()), drive);
}

// Paths that the system's limit cuts off are told, and nothing else is lost.
TEST_F(Folders, PathsAtTheLimit) {
  const size_t room = MAX_PATH - 1 - revised().size() - 1;
  const std::string folder(100, 'f');
  const std::string longest = folder + "\\" + std::string(room - folder.size() - 1, 'n');
  for (const char* side : {"base\\", "revised\\"}) {
    Write(side + std::string("short"), "x");
    Write(side + longest.substr(0, longest.size() - 1), side);
  }
  Write("revised\\" + longest, "x");
  const RowList rows = Rows();
  EXPECT_EQ(rows,
            (RowList{"M " + longest.substr(0, longest.size() - 1), "N " + longest, "S short"}));
  EXPECT_EQ(m_problems, 0u);
}

TEST_F(Folders, AStopLeavesTheRestUnknown) {
  for (const char* name : {"a", "b", "c"}) {
    Write(std::string("base\\") + name, "x");
    Write(std::string("revised\\") + name, "x");
  }
  Write("revised\\new", "x");
  // At every place where a stop is asked for.
  bool hasEnded = false;
  for (int place = 0; !hasEnded; ++place) {
    ASSERT_LT(place, 100);
    int asked = 0;
    FolderComparison comparison(base().c_str(), revised().c_str(), AllTypes(),
                                [&] { return asked++ == place; });
    comparison.Scan();
    hasEnded = comparison.EvaluateAll();
    EXPECT_LE(asked, place + 1) << "asked again after the stop";
    for (const DocumentRecord& record : comparison.records()) {
      const char expected = record.isEvaluated ? (record.relativePath == "new" ? 'N' : 'S') : '?';
      EXPECT_EQ(StateOf(record), expected) << record.relativePath;
    }
  }
}

TEST(DirCmpPrm, TypeFilter) {
  constexpr struct {
    const char* list;
    const char *only, *allBut;  // what passes of c, h, p.p and none, which is "-"
  } kCases[] = {
      {"*.c;*.h", "ch", "p-"}, {"*.C;*.H", "ch", "p-"}, {"", "chp-", ""},
      {"*.*", "chp-", ""},     {"*.", "-", "chp"},      {"*.p.p;", "p", "ch-"},
      {"*.*;*.c", "c", "hp-"}, {"c;h", "", "chp-"},
  };
  for (const auto& row : kCases) {
    for (const int excludes : {0, 1}) {
      DirCmpPrm prm;
      prm.m_typeList = row.list;
      prm.m_excludeListedTypes = excludes;
      std::string passing;
      for (const char* extension : {"c", "h", "p.p", ""})
        if (prm.PassesTypeFilter(extension)) passing += *extension != 0 ? *extension : '-';
      EXPECT_EQ(passing, excludes ? row.allBut : row.only) << row.list << excludes;
    }
  }
}

TEST(DocumentName, Parts) {
  constexpr struct {
    const char *path, *folder, *name, *extension;
  } kCases[] = {
      {"a.TXT", "", "a", "txt"},     {"sub\\x\\a.b.c", "sub\\x", "a.b", "c"},
      {"none", "", "none", ""},      {"d.ir\\none", "d.ir", "none", ""},
      {".dotted", "", "", "dotted"}, {"ends.", "", "ends", ""},
  };
  for (const auto& row : kCases) {
    const DocumentName name(row.path);
    EXPECT_STREQ(name.folder, row.folder) << row.path;
    EXPECT_STREQ(name.name, row.name) << row.path;
    EXPECT_STREQ(name.extension, row.extension) << row.path;
  }
}

}  // namespace
