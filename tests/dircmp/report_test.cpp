// The report of a folder comparison: which documents stand in it, and where it may be written.
#include <afxwin.h>

#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <vector>

#include "dircmp/DocumentText.h"
#include "dircmp/HyperLinkReport.h"
#include "support/CodePage.h"
#include "support/TempFolder.h"

namespace {

class Report : public testing::Test {
 protected:
  Report() {
    m_folder.Write("base\\changed & b.txt", "one two\nx < y\n");
    m_folder.Write("revised\\changed & b.txt", "one three\nx < y\n");
    m_folder.Write("base\\same", "x");
    m_folder.Write("revised\\same", "x");
    m_folder.Write("base\\sub\\gone%41.txt", "x");
    m_folder.Write("revised\\new" + Ansi(LowerLetter()) + ".txt", "x");
    DirCmpPrm prm;
    prm.m_scanFlags = kScanSubFolders;
    prm.m_excludeListedTypes = 0;
    m_comparison.emplace((m_folder / "base").c_str(), (m_folder / "revised").c_str(), prm);
    m_comparison->Scan();
    m_comparison->EvaluateAll();
  }

  HyperLinkReport::Target Write(const HyperLinkReportOptions& options,
                                const std::string& target = "report") {
    HyperLinkReport report(*m_comparison, "<base>", "%1", options, {});
    report.AddAll();
    const HyperLinkReport::Target result = report.Prepare((m_folder / target).c_str());
    if (result != HyperLinkReport::Target::Ready) return result;
    for (size_t i = 0; i < report.documentCount(); ++i) EXPECT_TRUE(report.WriteDocument(i));
    EXPECT_TRUE(report.WriteIndex());
    return result;
  }

  std::string Index() const { return m_folder.Read("report\\index.html"); }

  // Whether the texts stand in the index in this order.
  void ExpectInOrder(const std::vector<std::string>& texts) const {
    const std::string index = Index();
    size_t place = 0;
    for (const std::string& text : texts) {
      place = index.find(text, place);
      ASSERT_NE(place, std::string::npos) << text << "\nin\n" << index;
    }
  }

  TempFolder m_folder;
  std::optional<FolderComparison> m_comparison;
};

TEST_F(Report, SectionsLinksAndPages) {
  EXPECT_EQ(Write({.copyDocuments = true}), HyperLinkReport::Target::Ready);
  const std::string letter = Utf8(LowerLetter());
  char escaped[8];
  sprintf(escaped, "%%%02X%%%02X", letter[0] & 0xFF, letter[1] & 0xFF);
  ExpectInOrder(
      {"<h1>&#39;&lt;base&gt;&#39; vs. &#39;%1&#39;</h1>", "Modified (1)",
       "<a href=\"differences/1/1.html\">changed &amp; b.txt</a>",
       "<a href=\"base/changed%20%26%20b.txt\">", "<a href=\"revised/changed%20%26%20b.txt\">",
       "New (1)",
       std::string("<a href=\"revised/new") + escaped + ".txt\">new" + letter + ".txt</a>",
       "Deleted (1)", "<a href=\"base/sub/gone%2541.txt\">gone%41.txt</a>", "<td>sub</td>"});
  EXPECT_EQ(m_folder.Read("report\\base\\sub\\gone%41.txt"), "x");
  const std::string page = m_folder.Read("report\\differences\\1\\1.html");
  EXPECT_NE(page.find("one <del>two</del>"), std::string::npos) << page;
  EXPECT_NE(page.find("one <ins>three</ins>"), std::string::npos) << page;
  EXPECT_NE(page.find("x &lt; y"), std::string::npos) << page;
}

std::string Repeated(const std::string& text, int times) {
  std::string all;
  for (int i = 0; i < times; ++i) all += text;
  return all;
}

// What a page says where it doesn't show all lines.
TEST_F(Report, NotesInPages) {
  const struct {
    std::string base, revised;
    const char* note;
  } kCases[] = {
      {Ansi(LowerLetter()) + "\n", Utf8(LowerLetter()) + "\n", "No line differs"},
      {"text\n", std::string("a\0b", 3), "The revised document is not a text."},
      {std::string(DocumentText::kMostBytes + 1, 'x'), "text", "The base document is too large"},
      {"text", std::string(DocumentText::kMostLines + 1, '\n'),
       "The revised document is too large"},
      {Repeated("left\nleft\nsame\n", 20000), Repeated("right\nsame\n", 20000),
       "The page ends here"},
  };
  for (const auto& row : kCases) {
    m_folder.Write("base\\changed & b.txt", row.base);
    m_folder.Write("revised\\changed & b.txt", row.revised);
    Write({});
    const std::string page = m_folder.Read("report\\differences\\1\\1.html");
    EXPECT_NE(page.find(row.note), std::string::npos) << row.note;
    EXPECT_LT(page.size(), 5'000'000u);
  }
}

TEST_F(Report, WritesOverNobodysFiles) {
  using Target = HyperLinkReport::Target;
  EXPECT_EQ(Write({}, "base"), Target::Occupied);
  m_folder.Write("occupied\\index.html", "<!DOCTYPE html>\nmine");
  EXPECT_EQ(Write({}, "occupied"), Target::Occupied);
  EXPECT_EQ(Write({}, "base\\same\\below a file"), Target::NotCreated);
  EXPECT_EQ(Write({}, "new\\folders"), Target::Ready);

  // An earlier report is written over, and no page of it is left.
  EXPECT_EQ(Write({}), Target::Ready);
  m_folder.Write("report\\differences\\1\\7.html", m_folder.Read("report\\differences\\1\\1.html"));
  m_folder.Write("report\\differences\\1\\notes.html", "mine");
  EXPECT_EQ(Write({}), Target::Ready);
  EXPECT_FALSE(m_folder.Has("report\\differences\\1\\7.html"));
  EXPECT_TRUE(m_folder.Has("report\\differences\\1\\notes.html"));

  // A page that can't be written because somebody's file has its name.
  m_folder.Write("report\\differences\\1\\1.html", "mine");
  HyperLinkReport report(*m_comparison, "", "", {}, {});
  report.AddAll();
  EXPECT_EQ(report.Prepare((m_folder / "report").c_str()), Target::Ready);
  EXPECT_TRUE(report.WriteDocument(0, [] { return true; })) << "a stop is no problem";
  EXPECT_FALSE(report.WriteDocument(0));
  EXPECT_EQ(m_folder.Read("report\\differences\\1\\1.html"), "mine");
  EXPECT_EQ(report.problems().size(), 1u);

  // The compared folders stand in the folder of an earlier report.
  m_folder.Write("index.html", Index());
  EXPECT_EQ(Write({}, "."), Target::Occupied);
  EXPECT_EQ(Write({}, "BASE"), Target::Occupied);
}

}  // namespace
