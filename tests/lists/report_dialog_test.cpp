// The report dialog and what it opens, as the user sees and uses them.
#include "lists/ReportDialog.h"

#include <dlgs.h>

#include "diag/AssertVerifyTrace.h"
#include "lists/DialogSteps.h"
#include "lists/filter_dialogs_ids.h"
#include "lists/report_dialogs_ids.h"
#include "support/RunProgram.h"
#include "support/TempFolder.h"
#include "util/pathutils.h"

namespace {

// The dialog with the world around it made up.
class TestedDialog : public ReportDialog {
 public:
  using ReportDialog::ReportDialog;

  CString answer;  // to the question for a file
  CString suggested, opened;
  std::vector<ReportSettings> generated;

 protected:
  CString AskForFile(const CString& path) override {
    suggested = path;
    return answer;
  }
  bool Generate(const ReportSettings& settings) override {
    generated.push_back(settings);
    return true;
  }
  bool Open(const CString& file) override {
    opened = file;
    return true;
  }
};

class ReportDialogTest : public TestWithWindows {
 protected:
  ReportDialogTest() {
    m_list.SetRegistryKey(m_key.c_str());
    m_settings.columns = {Files::kName, Files::kState, Files::kTime, Files::kSize};
  }

  // What the dialog was closed with.
  ReportSettings Run(std::vector<Driver::Step> steps) {
    TestedDialog dialog(m_list, m_settings, true);
    steps.push_back(Driver::Click(IDCANCEL));
    Driver driver(std::move(steps));
    dialog.DoModal();
    return dialog.Get();
  }

  UserKey m_key;
  Files m_list;
  ReportSettings m_settings;
};

// A key that is taken at once.
Driver::Step pressInRows(WPARAM key) {
  return [=](HWND window) { SendDlgItemMessage(window, IDC_COLUMNS, WM_KEYDOWN, key, 1); };
}

// The rows of the column chooser, checked ones with a "+", the selected one in brackets.
std::string rows(HWND window) {
  CListCtrl& list = static_cast<CListCtrl&>(*CWnd::FromHandle(GetDlgItem(window, IDC_COLUMNS)));
  std::string all;
  for (int row = 0; row < list.GetItemCount(); ++row) {
    std::string text = str(list.GetItemText(row, 0));
    if (list.GetCheck(row)) text = "+" + text;
    if (list.GetItemState(row, LVIS_SELECTED)) text = "[" + text + "]";
    all += (row == 0 ? "" : " ") + text;
  }
  return all;
}

Driver::Step expectRows(const char* expected) {
  return [=](HWND window) { EXPECT_EQ(rows(window), expected); };
}

// Whether there is a control to be seen.
Driver::Step expectShown(int id, bool expected) {
  return [=](HWND window) { EXPECT_EQ(IsWindowVisible(GetDlgItem(window, id)), expected) << id; };
}
Driver::Step expectChecked(int id, bool expected) {
  return [=](HWND window) { EXPECT_EQ(IsDlgButtonChecked(window, id), expected) << id; };
}
// That a control's text has a part.
Driver::Step expectText(int id, const char* part) {
  return [=](HWND window) {
    const std::string text = Driver::TextOf(GetDlgItem(window, id));
    EXPECT_NE(text.find(part), std::string::npos) << text;
  };
}
Driver::Step expectColumns(int count) {
  return [=](HWND window) {
    EXPECT_EQ(SendDlgItemMessage(window, IDC_REPORT_TITLES, LB_GETCOUNT, 0, 0), count);
  };
}

void expectRoomForTexts(HWND window) {
  for (HWND child = GetWindow(window, GW_CHILD); child != nullptr;
       child = GetWindow(child, GW_HWNDNEXT)) {
    char name[20];
    GetClassName(child, name, sizeof name);
    if (strcmp(name, "Static") != 0 && strcmp(name, "Button") != 0) continue;
    EXPECT_TRUE(ShowsWholeText(child, DT_WORDBREAK)) << Driver::TextOf(child);
  }
}

}  // namespace

TEST_F(ReportDialogTest, HasRoomForWhatItShows) {
  m_settings.sortColumn = Files::kName;
  m_settings.primary = {Files::kName,
                        std::make_shared<StringFilter>(MListCtrl::CompareStr, "from", "to"), true};
  Run({expectTitle("Report"), expectText(IDC_PRIMARY_TEXT, "Primary filter on column Name"),
       expectShown(IDC_HYPER_LINKS, false), expectShown(IDC_REPORT_HELP, false), expectRoomForTexts,
       Driver::Click(IDC_SELECT_COLUMNS), expectRoomForTexts, Driver::Press(VK_ESCAPE),
       Driver::Click(IDC_CONFIGURE_SECONDARY), expectRoomForTexts, Driver::Press(VK_ESCAPE),
       // Items in the order of the list have no direction, and no column for a filter.
       choose(IDC_SORT_COLUMN, 0),
       expectEnabled({IDC_ASCENDING, IDC_ACTIVATE_PRIMARY, IDC_CONFIGURE_PRIMARY}, "000"),
       [](HWND window) { EXPECT_EQ(Driver::TextOf(GetDlgItem(window, IDC_PRIMARY_TEXT)), ""); }});
}

TEST_F(ReportDialogTest, ColumnsAreChosenAndMoved) {
  m_settings.columns = {Files::kSize, Files::kName};
  const std::vector<int> moves = {IDC_COLUMN_UP, IDC_COLUMN_DOWN};
  const ReportSettings chosen = Run({
      Driver::Click(IDC_SELECT_COLUMNS),
      expectRows("[+Size] +Name State Time"),
      expectEnabled(moves, "01"),
      pressInRows(VK_END),
      expectRows("+Size +Name State [Time]"),
      expectEnabled(moves, "10"),
      Driver::Click(IDC_COLUMN_UP),
      Driver::Click(IDC_COLUMN_UP),
      expectRows("+Size [Time] +Name State"),
      pressInRows(VK_SPACE),
      Driver::Accelerator('u'),
      expectRows("[+Time] +Size +Name State"),
      [](HWND window) {
        EXPECT_EQ(GetFocus(), GetDlgItem(window, IDC_COLUMNS)) << "its button can do no more";
      },
      pressInRows(VK_DOWN),
      Driver::Accelerator('d'),
      expectRows("+Time +Name [+Size] State"),
      pressInRows(VK_SPACE),
      Driver::Click(IDOK),
      expectColumns(2),
      // Cancelled.
      Driver::Click(IDC_SELECT_COLUMNS),
      expectRows("[+Time] +Name State Size"),
      Driver::Click(IDC_COLUMNS_RESET),
      expectRows("[+Name] +State +Time +Size"),
      Driver::Press(VK_ESCAPE),
  });
  EXPECT_EQ(chosen.columns, (std::vector<int>{Files::kTime, Files::kName}));
}

TEST_F(ReportDialogTest, FiltersAreConfigured) {
  m_settings.sortColumn = Files::kName;
  const ReportSettings chosen = Run({
      Driver::Click(IDC_CONFIGURE_PRIMARY),
      choose(IDC_FIRST_CONDITION, StringFilter::Contains),
      type(IDC_FIRST_TEXT, "ab"),
      Driver::Click(IDOK),
      expectChecked(IDC_ACTIVATE_PRIMARY, true),
      expectText(IDC_PRIMARY_TEXT, "ab"),
      // Without a column yet, it is asked for.
      Driver::Click(IDC_ACTIVATE_SECONDARY),
      Driver::Press(VK_ESCAPE),
      expectChecked(IDC_ACTIVATE_SECONDARY, false),
      Driver::Click(IDC_CONFIGURE_SECONDARY),
      expectTitle("Secondary Filter"),
      choose(IDC_FILTER_COLUMN, Files::kSize),
      Driver::Click(IDC_CONFIGURE_FILTER),
      type(IDC_FROM_NUMBER, "10"),
      type(IDC_TO_NUMBER, "20"),
      Driver::Click(IDC_INCLUDE),
      Driver::Click(IDOK),
      Driver::Click(IDOK),
      expectChecked(IDC_ACTIVATE_SECONDARY, true),
      expectText(IDC_SECONDARY_TEXT, "Secondary filter on column Size"),
  });
  EXPECT_TRUE(chosen.primary.isActive);
  EXPECT_TRUE(chosen.primary.filter->IsMatch("xaby"));
  EXPECT_FALSE(chosen.primary.filter->IsMatch("xay"));
  EXPECT_EQ(chosen.secondary.column, Files::kSize);
  EXPECT_TRUE(chosen.secondary.filter->IsMatch(number(15)));
  EXPECT_FALSE(chosen.secondary.filter->IsMatch(number(21)));
}

TEST_F(ReportDialogTest, ReportsAndPreviewsAreMade) {
  m_list.SetListTitle("Base: old/new");
  TestedDialog dialog(m_list, m_settings, true);
  {
    Driver driver({
        Driver::Click(IDC_MAKE_REPORT),  // no file is chosen
        [&](HWND) {
          EXPECT_EQ(str(dialog.suggested), "Base_ old_new.htm");
          EXPECT_TRUE(dialog.generated.empty());
          dialog.answer = "C:\\out\\list.htm";
        },
        choose(IDC_SORT_COLUMN, 3),
        Driver::Click(IDC_DESCENDING),
        Driver::Press(VK_RETURN),  // "Report..." is the default
        expectText(IDC_REPORT_DONE, "list.htm"),
        Driver::Click(IDC_FORMAT_XML),
        [&](HWND) { dialog.answer = ""; },
        Driver::Click(IDC_MAKE_REPORT),
        [&](HWND) { EXPECT_EQ(str(dialog.suggested), "C:\\out\\list.xml"); },
        Driver::Click(IDC_FORMAT_PAGE),
        Driver::Click(IDC_PREVIEW),
        Driver::Press(VK_ESCAPE),
    });
    dialog.DoModal();
  }
  EXPECT_TRUE(dialog.HasWritten());
  ASSERT_EQ(dialog.generated.size(), 2u);
  const ReportSettings &report = dialog.generated[0], &preview = dialog.generated[1];
  EXPECT_EQ(str(report.outputFile), "C:\\out\\list.htm");
  EXPECT_EQ(report.sortColumn, Files::kTime);
  EXPECT_TRUE(report.isDescending);
  EXPECT_TRUE(preview.isPreview);
  EXPECT_EQ(str(preview.outputFile), str(GetSystemTempFolder() + "previewFile.htm"));
  EXPECT_EQ(dialog.opened, preview.outputFile);
  EXPECT_EQ(str(dialog.Get().outputFile), "C:\\out\\list.htm") << "the preview leaves no trace";
}

namespace {

unsigned long helpShown = 0;

}  // namespace

TEST_F(ReportDialogTest, AsksTheClientForLinksAndHelp) {
  HWND owner = nullptr;
  HlReportCallbacks callbacks;
  callbacks.configure = [](void* client, CWnd* above) {
    *static_cast<HWND*>(client) = above->GetSafeHwnd();
    return 1;
  };
  m_list.OnHlReport(callbacks, &owner);
  m_list.OnReportsHelp([](unsigned long helpId) { helpShown = helpId; });
  Run({Driver::Click(IDC_HYPER_LINKS), Driver::Click(IDC_REPORT_HELP),
       [&](HWND window) {
         EXPECT_EQ(owner, window);
         EXPECT_EQ(helpShown, static_cast<unsigned long>(IDD_REPORT));
       },
       expectRoomForTexts, Driver::Click(IDC_FORMAT_TEXT), expectEnabled({IDC_HYPER_LINKS}, "0")});
}

TEST_F(ReportDialogTest, BeginsWithWhatTheLastOneEndedWith) {
  m_settings.sortColumn = Files::kName;
  Run({choose(IDC_SORT_COLUMN, 2), Driver::Click(IDC_DESCENDING),
       Driver::Click(IDC_ACTIVATE_PRIMARY), Driver::Click(IDC_FORMAT_TABS),
       Driver::Click(IDC_TITLES_ON_TOP), Driver::Click(IDC_SELECT_COLUMNS),
       Driver::Click(IDC_COLUMN_DOWN), pressInRows(VK_END), pressInRows(VK_SPACE),
       Driver::Click(IDOK), Driver::Click(IDC_CONFIGURE_SECONDARY), Driver::Press(VK_RETURN)});
  const auto loaded = [](MListCtrl& list) {
    ReportSettings settings;
    settings.columns = {0};
    LoadLastReport(list, settings);
    return settings;
  };
  const ReportSettings again = loaded(m_list);
  EXPECT_EQ(again.columns, (std::vector<int>{Files::kState, Files::kName, Files::kTime}));
  EXPECT_EQ(again.sortColumn, Files::kState);
  EXPECT_TRUE(again.isDescending);
  EXPECT_TRUE(again.primary.isActive);
  EXPECT_NE(again.primary.filter, nullptr);
  EXPECT_EQ(again.secondary.column, Files::kName);
  EXPECT_EQ(again.format, ReportFormat::TabSeparated);
  EXPECT_FALSE(again.hasHeader);

  MListCtrl others;
  others.SetRegistryKey(m_key.c_str());
  others.AddColumn("New", MListCtrl::CompareStr);
  others.AddColumn("Time", MListCtrl::CompareStr);
  others.AddColumn("Name", MListCtrl::CompareStr);
  const ReportSettings moved = loaded(others);
  EXPECT_EQ(moved.columns, (std::vector<int>{2, 1, 0})) << "by their titles; new ones come last";
  EXPECT_EQ(moved.sortColumn, -1) << "that column has gone";

  const std::string nonsense("\xFF\xFF\xFF\x7F", 4);
  for (const char* const name : {"ReportPositionName", "ReportFormat", "ReportSecondaryFilter"})
    m_key.WriteRaw(name, REG_DWORD, nonsense);
  for (const char* const name : {"ReportSortColumn", "ReportSecondaryColumn", "ReportFile"})
    m_key.WriteRaw(name, REG_BINARY, nonsense);
  const ReportSettings damaged = loaded(m_list);
  EXPECT_EQ(damaged.columns, (std::vector<int>{Files::kState, Files::kTime, Files::kName}));
  EXPECT_EQ(damaged.sortColumn, -1);
  EXPECT_EQ(damaged.format, ReportFormat::Html);
  EXPECT_EQ(damaged.secondary.column, -1);
}

TEST_F(ReportDialogTest, StaysAwayWhereNoDialogMayBeShown) {
  AssertVerifyTrace::BlockGuiMessages(1);
  EXPECT_EQ(m_list.DoReport(""), 0);
  AssertVerifyTrace::BlockGuiMessages(0);
}

TEST_F(ReportDialogTest, BeginsWithTheCommandWhereTheListHasAWindow) {
  const watchdog::ExpectWindows windows;
  CWnd parent;
  parent.CreateEx(0, AfxRegisterWndClass(0), "List", WS_POPUP | WS_VISIBLE, 400, 250, 400, 300,
                  nullptr, nullptr);
  ASSERT_TRUE(m_list.Create(WS_CHILD | WS_VISIBLE, CRect(0, 0, 400, 300), &parent, 1));
  {
    Driver driver({
        expectChecked(IDC_FORMAT_TEXT, true),
        expectColumns(2),
        expectShown(IDC_PREVIEW, false),
        // Without a column there is nothing to write.
        Driver::Click(IDC_SELECT_COLUMNS),
        pressInRows(VK_SPACE),
        pressInRows(VK_DOWN),
        pressInRows(VK_SPACE),
        Driver::Click(IDOK),
        expectColumns(0),
        Driver::Click(IDC_MAKE_REPORT),
        Driver::UntilShown("Please include at least one field in report."),
        Driver::Press(VK_RETURN),
        Driver::Press(VK_ESCAPE),
    });
    EXPECT_EQ(m_list.DoReport("C:01 S:0 R:A"), 0);
  }
  {
    Driver driver({expectShown(IDC_PREVIEW, true), Driver::Press(VK_ESCAPE)});
    EXPECT_EQ(m_list.DoReport(), 0);
  }
  parent.DestroyWindow();
}

namespace {

// A dialog of another process with a control, as soon as it can be used.
HWND otherDialog(int control) {
  for (int i = 0; i < 500; ++i, Sleep(10))
    for (HWND window = nullptr;
         (window = FindWindowEx(nullptr, window, "#32770", nullptr)) != nullptr;)
      if (GetDlgItem(window, control) != nullptr && IsWindowVisible(window) &&
          IsWindowEnabled(window))
        return window;
  return nullptr;
}

}  // namespace

// Nothing made up: by way of the system's file dialog, which keeps handles, to the file.
TEST_F(ReportDialogTest, WritesTheFileThatTheUserNames) {
  const TempFolder folder;
  const std::string file = folder / "made.txt";
  StartedProgram host("list_host.exe show report");
  const HWND dialog = otherDialog(IDC_MAKE_REPORT);
  SendDlgItemMessage(dialog, IDC_FORMAT_TEXT, BM_CLICK, 0, 0);
  PostMessage(GetDlgItem(dialog, IDC_MAKE_REPORT), BM_CLICK, 0, 0);
  const HWND fileDialog = otherDialog(cmb13);
  ASSERT_NE(fileDialog, nullptr);
  SendDlgItemMessage(fileDialog, cmb13, WM_SETTEXT, 0, reinterpret_cast<LPARAM>(file.c_str()));
  PostMessage(GetDlgItem(fileDialog, IDOK), BM_CLICK, 0, 0);
  for (int i = 0; i < 500 && Driver::TextOf(GetDlgItem(dialog, IDC_REPORT_DONE)).empty(); ++i)
    Sleep(10);
  ASSERT_EQ(otherDialog(IDC_MAKE_REPORT), dialog);
  PostMessage(dialog, WM_CLOSE, 0, 0);
  EXPECT_EQ(host.Wait(), 0u);
  const std::string text = folder.Read("made.txt");
  EXPECT_LT(text.find("chapter 2.txt"), text.find("contents.txt"));
  EXPECT_NE(text.find("contents.txt"), std::string::npos);
}
