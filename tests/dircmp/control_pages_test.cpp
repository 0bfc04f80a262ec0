// The pages that a comparison adds to its list's reports.
#include <afxwin.h>

#include <algorithm>
#include <filesystem>

#include "dialogs/Driver.h"
#include "dircmp/ControlTest.h"
#include "dircmp/compare_dialogs_ids.h"
#include "settings/RegistryUtil.h"
#include "support/RegistrySubtree.h"
#include "support/Watchdog.h"

namespace {

using DocumentLinks = HlReportSettings::DocumentLinks;

class ControlPages : public ControlTest {
 protected:
  void SetUp() override {
    WriteEach();
    Init(m_list);
  }

  // 1 as GenerateHlReport; all documents are in the report.
  int Generate(const HlReportSettings& pages, bool isPreview = false) {
    m_list.SetReportPages(pages);
    ReportSettings settings;
    settings.outputFile = (m_folder / "out\\r.htm").c_str();
    settings.isQuiet = true;
    settings.isPreview = isPreview;
    std::vector<unsigned long> ids;
    for (int row = 0; row < m_list.GetItemCount(); ++row) ids.push_back(m_list.GetItemData(row));
    m_note.Empty();
    return m_list.GenerateHlReport({settings, ids}, m_note);
  }
  std::string Link(const char* path, int column) {
    return str(m_list.GenerateSourceFileLinks(m_list.IdOf(path), column));
  }

  NotingList m_list;
  CString m_note;
};

}  // namespace

TEST_F(ControlPages, Links) {
  std::string inPlace = "file:///" + base(), revisedInPlace = "file:///" + revised();
  for (std::string* url : {&inPlace, &revisedInPlace})
    std::replace(url->begin(), url->end(), '\\', '/');
  constexpr const char* kDocuments[] = {"gone", "new & more.txt", "sub\\Changed.CPP", "same.txt"};
  const struct {
    HlReportSettings pages;
    std::string status[4], names[4];  // as the documents
  } kCases[] = {
      {{.includeNew = false},
       {"r_files/index.html#deleted", "", "r_files/differences/1/1.html", ""},
       {}},
      {{false, true, false, DocumentLinks::kCopies},
       {"", "r_files/index.html#new", "", ""},
       {"r_files/base/gone", "r_files/revised/new%20%26%20more.txt",
        "r_files/revised/sub/Changed.CPP", "r_files/revised/same.txt"}},
      {{false, false, false, DocumentLinks::kBaseInPlace},
       {},
       {inPlace + "/gone", revisedInPlace + "/new%20%26%20more.txt", inPlace + "/sub/Changed.CPP",
        inPlace + "/same.txt"}},
      {{false, false, false, DocumentLinks::kRevisedInPlace},
       {},
       {inPlace + "/gone", revisedInPlace + "/new%20%26%20more.txt",
        revisedInPlace + "/sub/Changed.CPP", revisedInPlace + "/same.txt"}},
  };
  for (const auto& row : kCases) {
    std::filesystem::remove_all(m_folder / "out");
    EXPECT_EQ(Generate(row.pages), 1);
    EXPECT_EQ(str(m_note), "");
    for (int i = 0; i < 4; ++i) {
      EXPECT_EQ(Link(kDocuments[i], DirCmpCtrl::kStatus), row.status[i]);
      EXPECT_EQ(Link(kDocuments[i], DirCmpCtrl::kDocumentName), row.names[i]);
      EXPECT_EQ(Link(kDocuments[i], DirCmpCtrl::kType), "");
    }
    EXPECT_EQ(m_folder.Has("out\\r_files\\index.html"), row.pages.hasSections());
    if (!row.pages.hasSections()) continue;
    const std::string index = m_folder.Read("out\\r_files\\index.html");
    EXPECT_EQ(index.find("Modified (1)") != index.npos, row.pages.includeModified);
    EXPECT_EQ(index.find("New (1)") != index.npos, row.pages.includeNew);
    EXPECT_EQ(index.find("Deleted (1)") != index.npos, row.pages.includeDeleted);
  }
  EXPECT_FALSE(m_folder.Has("out\\r_files"));
}

TEST_F(ControlPages, Copies) {
  // As its copy will be, which is replaced by the next one all the same.
  SetFileAttributesA((revised() + "\\SAME.txt").c_str(), FILE_ATTRIBUTE_READONLY);
  EXPECT_EQ(Generate({.documentLinks = DocumentLinks::kCopies}), 1);
  EXPECT_EQ(m_folder.Read("out\\r_files\\base\\gone"), "x");
  EXPECT_EQ(m_folder.Read("out\\r_files\\revised\\same.txt"), "x y");
  EXPECT_EQ(m_folder.Read("out\\r_files\\base\\sub\\Changed.CPP"), "one\ntwo\n");
  // What can't be copied is told, and the others are there; an older copy stays as it was.
  const std::string copy = m_folder / "out\\r_files\\base\\gone";
  SetFileAttributesA(copy.c_str(), FILE_ATTRIBUTE_READONLY);
  DeleteFileA((base() + "\\gone").c_str());
  EXPECT_EQ(Generate({.documentLinks = DocumentLinks::kCopies}), 1);
  EXPECT_EQ(str(m_note), "Of 1 document(s), pages or copies could not be written.");
  EXPECT_EQ(Link("gone", DirCmpCtrl::kDocumentName), "");
  EXPECT_NE(Link("same.txt", DirCmpCtrl::kDocumentName), "");
  EXPECT_TRUE(GetFileAttributesA(copy.c_str()) & FILE_ATTRIBUTE_READONLY);
}

TEST_F(ControlPages, Preview) {
  EXPECT_EQ(Generate({.documentLinks = DocumentLinks::kCopies}, true), 1);
  EXPECT_EQ(str(m_note), "No Hyper-link analysis was generated in preview mode");
  EXPECT_EQ(Link("sub\\Changed.CPP", DirCmpCtrl::kStatus), "");
  EXPECT_FALSE(m_folder.Has("out"));
}

TEST_F(ControlPages, WritesOverNobodysFiles) {
  m_folder.Write("out\\r_files\\mine.txt", "mine");
  EXPECT_EQ(Generate({}), 0);
  EXPECT_EQ(Link("sub\\Changed.CPP", DirCmpCtrl::kStatus), "");
  EXPECT_FALSE(m_folder.Has("out\\r_files\\index.html"));
}

// A stopped run leaves no links, and a folder that the next run can have.
TEST_F(ControlPages, Stopped) {
  m_list.onOperation = [&](MMultiOperation& operation) {
    const int result = operation.DoOperation(0);
    operation.StopLoop();
    return result;
  };
  EXPECT_EQ(Generate({}), 0);
  EXPECT_EQ(Link("sub\\Changed.CPP", DirCmpCtrl::kStatus), "");
  m_list.onOperation = nullptr;
  EXPECT_EQ(Generate({}), 1);
  EXPECT_EQ(Link("sub\\Changed.CPP", DirCmpCtrl::kStatus), "r_files/differences/1/1.html");
}

TEST_F(ControlPages, AreConfigured) {
  const RegistrySubtree product;
  MRegistry::InitProductRegistry(product.c_str(), 1);
  m_list.SetRegistryKey(product.c_str());
  {
    Driver driver({[](HWND window) {
                     EXPECT_EQ(Driver::TextOf(window), "Configure Hyper-link Reports");
                     for (const int id : {IDC_PAGES_MODIFIED, IDC_PAGES_NEW, IDC_PAGES_DELETED,
                                          IDC_PAGES_INACTIVE})
                       EXPECT_TRUE(IsDlgButtonChecked(window, id)) << id;
                   },
                   Driver::Accelerator('n'), Driver::Accelerator('r'), Driver::Press(VK_RETURN)});
    EXPECT_EQ(m_list.ConfigureReports(nullptr), 1);
  }
  // The next list with that key has them.
  NotingList next;
  next.SetRegistryKey(product.c_str());
  Init(next);
  EXPECT_TRUE(next.ReportPages().includeModified);
  EXPECT_FALSE(next.ReportPages().includeNew);
  EXPECT_EQ(next.ReportPages().documentLinks, DocumentLinks::kRevisedInPlace);
  // Copies go before links.
  MRegistry(product.c_str()).SetUserKey("CopyExistFiles", 1ul);
  HlReportSettings loaded;
  loaded.Load(*next.GetRegistry());
  EXPECT_EQ(loaded.documentLinks, DocumentLinks::kCopies);
  MRegistry::FreeProductRegistry();
}
