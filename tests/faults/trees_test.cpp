// Folders copied over folders, moved, cleaned; reports over reports.
#include <afxwin.h>

#include <gtest/gtest.h>

#include "EveryFault.h"
#include "dircmp/HyperLinkReport.h"
#include "ops/DirOp.h"

namespace {

using faults::Kind;

constexpr std::initializer_list<Kind> kSystem = {Kind::kMemory, Kind::kMapping, Kind::kOpen,
                                                 Kind::kRead,   Kind::kWrite,   Kind::kMove,
                                                 Kind::kFolder};

void WriteTrees(const TempFolder& folder) {
  folder.Write("from\\a", "new a");
  folder.Write("from\\sub\\b", std::string(50'000, 'b'));
  folder.Write("from\\sub\\c", "new c");
  folder.Write("to\\a", "old a");
  folder.Write("to\\sub\\b", std::string(70'000, 'o'));
  for (const char* name : {"from\\sub\\c", "to\\a"})
    SetFileAttributesA((folder / name).c_str(), FILE_ATTRIBUTE_READONLY);
}

}  // namespace

TEST(Faults, Trees) {
  const struct {
    const char* what;
    bool (*act)(const TempFolder& folder);
    bool targetGoesFirst = false;
  } cases[] = {
      {"copied over another",
       [](const TempFolder& folder) {
         return DirectoryCopy(Path(folder, "from"), Path(folder, "to"), 0, 1, 1) != 0;
       }},
      {"moved in place of another",
       [](const TempFolder& folder) {
         return DirectoryRename(Path(folder, "from"), Path(folder, "to")) != 0;
       },
       true},
      {"moved",
       [](const TempFolder& folder) {
         return DirectoryRename(Path(folder, "from"), Path(folder, "elsewhere\\new")) != 0;
       }},
      {"cleaned",
       [](const TempFolder& folder) {
         return DirectoryCleanup(folder.path().c_str(), "a", 1, 0) != 0;
       }},
      {"removed",
       [](const TempFolder& folder) { return RemoveDirectoryA(Path(folder, "from"), 1) != 0; }},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.what);
    WithEveryFault({.prepare = WriteTrees,
                    .act = c.act,
                    .goesFirst =
                        [&](const std::string& name) {
                          return c.targetGoesFirst && name.starts_with("to\\");
                        }},
                   kSystem);
  }
}

// A page is there whole, old or new, or not at all.
TEST(Faults, ReportOverAReport) {
  const auto write = [](const TempFolder& folder, const char* name) {
    DirCmpPrm prm;
    prm.m_scanFlags = kScanSubFolders;
    prm.m_excludeListedTypes = 0;
    FolderComparison comparison(Path(folder, "from"), Path(folder, "to"), prm);
    comparison.Scan();
    comparison.EvaluateAll();
    HyperLinkReport report(comparison, "from", name, {}, {});
    report.AddAll();
    if (report.Prepare(Path(folder, "report")) != HyperLinkReport::Target::Ready) return false;
    bool written = true;
    for (size_t i = 0; i < report.documentCount(); ++i) written &= report.WriteDocument(i);
    return report.WriteIndex() && written && comparison.problems().empty();
  };
  WithEveryFault(
      {.prepare =
           [&](const TempFolder& folder) {
             WriteTrees(folder);
             EXPECT_TRUE(write(folder, "old"));
           },
       .act = [&](const TempFolder& folder) { return write(folder, "new"); },
       .isRight = [](const std::string& page) { return page.ends_with("</body>\n</html>\n"); },
       .goesFirst =
           [](const std::string& name) { return name.starts_with("report\\differences\\"); }},
      {Kind::kMapping, Kind::kOpen, Kind::kWrite, Kind::kMove});
}
