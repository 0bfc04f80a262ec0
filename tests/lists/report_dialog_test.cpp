// The report dialog and what it opens, as the user sees and uses them.
#include "lists/ReportDialog.h"

#include <dlgs.h>

#include <algorithm>
#include <cstdlib>
#include <set>

#include "diag/AssertVerifyTrace.h"
#include "dialogs/Driver.h"
#include "lists/ListTest.h"
#include "lists/filter_dialogs_ids.h"
#include "lists/report_dialogs_ids.h"
#include "settings/RegistryUtil.h"
#include "support/RegistrySubtree.h"
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

class ReportDialogTest : public testing::Test {
 protected:
  ReportDialogTest() {
    MRegistry::InitProductRegistry(m_key.c_str(), 1);
    m_list.SetRegistryKey(m_key.c_str());
    m_settings.columns = {Files::kName, Files::kState, Files::kTime, Files::kSize};
  }
  ~ReportDialogTest() override {
    MRegistry::FreeProductRegistry();
    DeleteTemporaryObjects();
    CMenu::DeleteTempMap();
  }

  // What the dialog was closed with.
  ReportSettings Run(std::vector<Driver::Step> steps) {
    TestedDialog dialog(m_list, m_settings, true);
    steps.push_back(Driver::Click(IDCANCEL));
    Driver driver(std::move(steps));
    dialog.DoModal();
    return dialog.Get();
  }

  RegistrySubtree m_key;
  Files m_list;
  ReportSettings m_settings;
};

Driver::Step choose(int id, int entry) {
  return [=](HWND window) {
    SendDlgItemMessage(window, id, CB_SETCURSEL, static_cast<WPARAM>(entry), 0);
    SendMessage(window, WM_COMMAND, MAKEWPARAM(id, CBN_SELCHANGE),
                reinterpret_cast<LPARAM>(GetDlgItem(window, id)));
  };
}

Driver::Step type(int id, const char* text) {
  return [=](HWND window) { SetDlgItemText(window, id, text); };
}

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

bool isEnabled(HWND window, int id) { return IsWindowEnabled(GetDlgItem(window, id)); }
bool isShown(HWND window, int id) { return IsWindowVisible(GetDlgItem(window, id)); }

// Texts that have no room, and controls that cover each other, but for what stands in groups.
void expectWellLaidOut(HWND window) {
  std::vector<HWND> controls;
  for (HWND child = GetWindow(window, GW_CHILD); child != nullptr;
       child = GetWindow(child, GW_HWNDNEXT)) {
    if (!IsWindowVisible(child)) continue;
    char name[20];
    GetClassName(child, name, sizeof name);
    if (strcmp(name, "Static") == 0 || strcmp(name, "Button") == 0) {
      EXPECT_TRUE(ShowsWholeText(child, DT_WORDBREAK)) << Driver::TextOf(child);
    }
    const bool isGroup = strcmp(name, "Button") == 0 &&
                         (GetWindowLong(child, GWL_STYLE) & BS_TYPEMASK) == BS_GROUPBOX;
    if (!isGroup) controls.push_back(child);
  }
  for (const HWND one : controls)
    for (const HWND other : controls) {
      CRect place, otherPlace, common;
      GetWindowRect(one, place);
      GetWindowRect(other, otherPlace);
      EXPECT_FALSE(one < other && common.IntersectRect(place, otherPlace))
          << Driver::TextOf(one) << " and " << Driver::TextOf(other);
    }
}

}  // namespace

TEST_F(ReportDialogTest, HasItsGroupsAndButtons) {
  m_settings.sortColumn = Files::kName;
  m_settings.primary = {Files::kName,
                        std::make_shared<StringFilter>(MListCtrl::CompareStr, "from", "to"), true};
  Run({[](HWND window) {
         EXPECT_EQ(Driver::TextOf(window), "Report");
         std::set<std::string> texts;
         for (HWND child = GetWindow(window, GW_CHILD); child != nullptr;
              child = GetWindow(child, GW_HWNDNEXT)) {
           CString text = Driver::TextOf(child).c_str();
           text.Replace("&", "");
           texts.insert(str(text));
         }
         for (const char* const wanted :
              {"Sort by", "Ascending", "Descending", "Activate filter", "Configure...",
               "Secondary filter", "Format", "Report columns", "Select", "Preview", "Report...",
               "Close"})
           EXPECT_TRUE(texts.count(wanted)) << wanted;
         EXPECT_EQ(Driver::TextOf(GetDlgItem(window, IDC_PRIMARY_TEXT))
                       .find("Primary filter on column Name"),
                   0u);
         EXPECT_FALSE(isShown(window, IDC_HYPER_LINKS));
         EXPECT_FALSE(isShown(window, IDC_REPORT_HELP));
         expectWellLaidOut(window);
       },
       Driver::Click(IDC_SELECT_COLUMNS), expectWellLaidOut, Driver::Press(VK_ESCAPE),
       Driver::Click(IDC_CONFIGURE_SECONDARY), expectWellLaidOut, Driver::Press(VK_ESCAPE),
       // Items in the order of the list have no direction, and no column for a filter.
       choose(IDC_SORT_COLUMN, 0),
       [](HWND window) {
         for (const int id : {IDC_ASCENDING, IDC_ACTIVATE_PRIMARY, IDC_CONFIGURE_PRIMARY})
           EXPECT_FALSE(isEnabled(window, id));
         EXPECT_EQ(Driver::TextOf(GetDlgItem(window, IDC_PRIMARY_TEXT)), "");
       }});
}

TEST_F(ReportDialogTest, ColumnsAreChosenAndMoved) {
  m_settings.columns = {Files::kSize, Files::kName};
  const ReportSettings chosen = Run({
      Driver::Click(IDC_SELECT_COLUMNS),
      expectRows("[+Size] +Name State Time"),
      [](HWND window) { EXPECT_FALSE(isEnabled(window, IDC_COLUMN_UP)) << "the first one"; },
      pressInRows(VK_END),
      [](HWND window) {
        EXPECT_EQ(rows(window), "+Size +Name State [Time]");
        EXPECT_FALSE(isEnabled(window, IDC_COLUMN_DOWN)) << "the last one";
      },
      Driver::Click(IDC_COLUMN_UP),
      Driver::Click(IDC_COLUMN_UP),
      expectRows("+Size [Time] +Name State"),
      pressInRows(VK_SPACE),
      Driver::Accelerator('u'),
      [](HWND window) {
        EXPECT_EQ(rows(window), "[+Time] +Size +Name State");
        EXPECT_EQ(GetFocus(), GetDlgItem(window, IDC_COLUMNS)) << "its button can do no more";
      },
      pressInRows(VK_DOWN),
      Driver::Accelerator('d'),
      expectRows("+Time +Name [+Size] State"),
      pressInRows(VK_SPACE),
      Driver::Click(IDOK),
      [](HWND window) {
        EXPECT_EQ(SendDlgItemMessage(window, IDC_REPORT_TITLES, LB_GETCOUNT, 0, 0), 2);
      },
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
      [](HWND window) {
        EXPECT_TRUE(IsDlgButtonChecked(window, IDC_ACTIVATE_PRIMARY));
        EXPECT_NE(Driver::TextOf(GetDlgItem(window, IDC_PRIMARY_TEXT)).find("ab"),
                  std::string::npos);
        EXPECT_FALSE(IsDlgButtonChecked(window, IDC_ACTIVATE_SECONDARY));
      },
      // Without a column yet, it is asked for.
      Driver::Click(IDC_ACTIVATE_SECONDARY),
      Driver::Press(VK_ESCAPE),
      [](HWND window) { EXPECT_FALSE(IsDlgButtonChecked(window, IDC_ACTIVATE_SECONDARY)); },
      Driver::Click(IDC_CONFIGURE_SECONDARY),
      [](HWND window) {
        EXPECT_EQ(Driver::TextOf(window), "Secondary Filter");
        choose(IDC_FILTER_COLUMN, Files::kSize)(window);
      },
      Driver::Click(IDC_CONFIGURE_FILTER),
      type(IDC_FROM_NUMBER, "10"),
      type(IDC_TO_NUMBER, "20"),
      Driver::Click(IDC_INCLUDE),
      Driver::Click(IDOK),
      Driver::Click(IDOK),
      [](HWND window) {
        EXPECT_TRUE(IsDlgButtonChecked(window, IDC_ACTIVATE_SECONDARY));
        EXPECT_EQ(Driver::TextOf(GetDlgItem(window, IDC_SECONDARY_TEXT))
                      .find("Secondary filter on column Size"),
                  0u);
      },
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
        [&](HWND window) {
          ASSERT_EQ(dialog.generated.size(), 1u);
          EXPECT_NE(Driver::TextOf(GetDlgItem(window, IDC_REPORT_DONE)).find("list.htm"),
                    std::string::npos);
        },
        Driver::Click(IDC_FORMAT_XML),
        Driver::Click(IDC_TITLES_ON_TOP),
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
  EXPECT_TRUE(report.hasHeader);
  EXPECT_FALSE(report.isPreview);
  EXPECT_TRUE(preview.isPreview);
  EXPECT_FALSE(preview.hasHeader);
  EXPECT_EQ(str(preview.outputFile), str(GetSystemTempFolder() + "previewFile.htm"));
  EXPECT_EQ(dialog.opened, preview.outputFile);
  EXPECT_EQ(str(dialog.Get().outputFile), "C:\\out\\list.htm") << "the preview leaves no trace";
}

namespace {

struct Client {
  int configured = 0;
  CWnd* owner = nullptr;
};

int configureLinks(void* client, CWnd* owner) {
  ++static_cast<Client*>(client)->configured;
  static_cast<Client*>(client)->owner = owner;
  return 1;
}

unsigned long helpShown = 0;
void showHelp(unsigned long helpId) { helpShown = helpId; }

}  // namespace

TEST_F(ReportDialogTest, AsksTheClientForLinksAndHelp) {
  Client client;
  HlReportCallbacks callbacks;
  callbacks.configure = configureLinks;
  m_list.OnHlReport(callbacks, &client);
  m_list.OnReportsHelp(showHelp);
  helpShown = 0;
  Run({Driver::Click(IDC_HYPER_LINKS), Driver::Click(IDC_REPORT_HELP),
       [&](HWND window) {
         EXPECT_EQ(client.configured, 1);
         EXPECT_EQ(client.owner->GetSafeHwnd(), window);
         EXPECT_EQ(helpShown, static_cast<unsigned long>(IDD_REPORT));
         expectWellLaidOut(window);
       },
       Driver::Click(IDC_FORMAT_TEXT),
       [](HWND window) { EXPECT_FALSE(isEnabled(window, IDC_HYPER_LINKS)) << "only in pages"; }});
  TestedDialog dialog(m_list, m_settings, false);
  Driver driver(
      {[](HWND window) { EXPECT_FALSE(isShown(window, IDC_PREVIEW)); }, Driver::Press(VK_ESCAPE)});
  dialog.DoModal();
}

TEST_F(ReportDialogTest, BeginsWithWhatTheLastOneEndedWith) {
  m_settings.sortColumn = Files::kName;
  Run({choose(IDC_SORT_COLUMN, 2), Driver::Click(IDC_DESCENDING),
       Driver::Click(IDC_ACTIVATE_PRIMARY), Driver::Click(IDC_FORMAT_TABS),
       Driver::Click(IDC_TITLES_ON_TOP), Driver::Click(IDC_SELECT_COLUMNS),
       Driver::Click(IDC_COLUMN_DOWN), pressInRows(VK_END), pressInRows(VK_SPACE),
       Driver::Click(IDOK), Driver::Click(IDC_CONFIGURE_SECONDARY), Driver::Press(VK_RETURN)});
  const auto loaded = [&](MListCtrl& list) {
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
  m_key.WriteRaw("ReportPositionState", REG_SZ, "first");
  const ReportSettings damaged = loaded(m_list);
  EXPECT_EQ(damaged.columns, (std::vector<int>{Files::kTime, Files::kName, Files::kState}));
  EXPECT_EQ(damaged.sortColumn, -1);
  EXPECT_EQ(damaged.format, ReportFormat::Html);
  EXPECT_EQ(damaged.secondary.column, -1);
}

TEST_F(ReportDialogTest, StaysAwayWhereNoDialogMayBeShown) {
  AssertVerifyTrace::BlockGuiMessages(1);
  EXPECT_EQ(m_list.DoReport(), 0);
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
        [&](HWND window) {
          CRect dialog, owner;
          GetWindowRect(window, dialog);
          parent.GetWindowRect(owner);
          const CPoint apart = dialog.CenterPoint() - owner.CenterPoint();
          EXPECT_LE(std::max(std::abs(apart.x), std::abs(apart.y)), 1) << "above its owner";
          EXPECT_TRUE(IsDlgButtonChecked(window, IDC_FORMAT_TEXT));
          EXPECT_EQ(SendDlgItemMessage(window, IDC_REPORT_TITLES, LB_GETCOUNT, 0, 0), 2);
          EXPECT_FALSE(isShown(window, IDC_PREVIEW));
        },
        // Without a column there is nothing to write.
        Driver::Click(IDC_SELECT_COLUMNS),
        pressInRows(VK_SPACE),
        pressInRows(VK_DOWN),
        pressInRows(VK_SPACE),
        Driver::Click(IDOK),
        Driver::Click(IDC_MAKE_REPORT),
        Driver::UntilShown("Please include at least one field in report."),
        Driver::Press(VK_RETURN),
        Driver::Press(VK_ESCAPE),
    });
    EXPECT_EQ(m_list.DoReport("C:01 S:0 R:A"), 0);
  }
  {
    Driver driver(
        {[](HWND window) { EXPECT_TRUE(isShown(window, IDC_PREVIEW)); }, Driver::Press(VK_ESCAPE)});
    EXPECT_EQ(m_list.DoReport(), 0);
  }
  parent.DestroyWindow();
}

namespace {

// A dialog of another process, as soon as it is there and can be used: one with a control, since
// the system's own dialogs have titles in the language of the user.
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

// Nothing made up: by way of the system's file dialog to the file, in a program of its own.
TEST_F(ReportDialogTest, WritesTheFileThatTheUserNames) {
  const TempFolder folder;
  const std::string file = folder / "made.txt";
  StartedProgram host("list_host.exe show report");
  const HWND dialog = otherDialog(IDC_MAKE_REPORT);
  ASSERT_NE(dialog, nullptr);
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
  const size_t first = text.find("chapter 2.txt"), second = text.find("contents.txt");
  EXPECT_LT(first, second);
  EXPECT_LT(second, text.size());
}
