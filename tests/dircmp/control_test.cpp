// The comparison's list: what it shows, opens and starts, and how it is stopped.
#include <afxwin.h>

#include <filesystem>

#include "dialogs/Driver.h"
#include "dircmp/ControlTest.h"
#include "settings/RegistryUtil.h"
#include "support/AssertionLog.h"
#include "support/RegistrySubtree.h"
#include "support/Watchdog.h"

namespace {

using RowList = std::vector<std::string>;

class ControlWindowTest : public ControlTest {
 protected:
  void SetUp() override {
    m_parent.CreateEx(0, AfxRegisterWndClass(0), "Comparison", WS_POPUP, 0, 0, 600, 400, nullptr,
                      nullptr);
    m_parent.ShowWindow(SW_SHOW);
  }
  void TearDown() override {
    m_parent.DestroyWindow();
    ControlTest::TearDown();
  }
  void Show(DirCmpCtrl& list) {
    ASSERT_TRUE(list.Create(WS_CHILD | WS_VISIBLE, CRect(0, 0, 600, 400), &m_parent, 1000));
    list.SetFocus();
  }

  CWnd m_parent;

 private:
  watchdog::ExpectWindows m_windows;
};

}  // namespace

TEST_F(ControlWindowTest, ShowsStatesAndColours) {
  WriteEach();
  SetTime("base\\same.txt", 3);
  NotingList list;
  Show(list);
  EXPECT_EQ(Init(list), 1);
  EXPECT_EQ(str(list.ListTitle()), "'old' vs. '" + revised() + "'");
  // By status, descending; the first row is selected.
  EXPECT_EQ(list.Rows(),
            (RowList{"D gone", "N new & more.txt", "M sub\\Changed.CPP", "S same.txt"}));
  EXPECT_TRUE(list.IsSelected(0));
  EXPECT_EQ(list.Sum(), 4);
  const char* const kTitles[] = {"Document Name", "Type", "Folder Name", "Status", "Modified"};
  const char* const kCells[] = {"Changed", "cpp", "sub", "Modified"};
  ASSERT_EQ(list.GetVisibleColNum(), 5);
  for (int i = 0; i < 5; ++i) EXPECT_EQ(str(list.GetColName(i)), kTitles[i]);
  for (int i = 0; i < 4; ++i) EXPECT_EQ(str(list.GetItemText(2, i)), kCells[i]);
  EXPECT_EQ(list.GetItemTime(0, DirCmpCtrl::kRevisedModified), 0);
  EXPECT_EQ(list.GetItemTime(3, DirCmpCtrl::kBaseModified),
            list.GetItemTime(3, DirCmpCtrl::kModified));

  const COLORREF colours[] = {RGB(255, 0, 0), RGB(0, 0, 255), RGB(0, 180, 0), RGB(0, 0, 0)};
  for (int row = 0; row < 4; ++row) {
    COLORREF text = 1, background = 1;
    list.GetDisplayColors(row, text, background);
    EXPECT_EQ(text, colours[row]) << row;
    EXPECT_EQ(background, RGB(255, 255, 255));
  }
  const AssertionLog log;
  EXPECT_EQ(Init(list), 0) << "a second time";
  EXPECT_TRUE(log.Names("DirCmpCtrl"));
}

TEST_F(ControlTest, ColoursCanBeSwitchedOff) {
  WriteEach();
  const RegistrySubtree key;
  MRegistry::InitProductRegistry(key.c_str(), 1);
  MRegistry::GetProductRegistry().SetUserKey("useColourMarking", 0ul);
  NotingList list;
  Init(list);
  COLORREF text = 1, background = 1;
  list.GetDisplayColors(0, text, background);
  EXPECT_EQ(text, RGB(0, 0, 0));
  MRegistry::FreeProductRegistry();
}

// What is listed, and whether it is everything.
TEST_F(ControlTest, ResultAndCounts) {
  WriteEach();
  const struct {
    std::string left, right;
    const char* types;
    int result;
    int counts[kFileStates];
  } kCases[] = {
      {base() + "\\", revised(), "*.txt", 1, {1, 0, 1, 0, 0}},
      {base(), revised(), "*.none", 1, {}},
      {base(), m_folder / "missing", "", 0, {0, 0, 0, 3, 0}},
      {"", revised(), "", 0, {0, 0, 3, 0, 0}},
  };
  for (const auto& row : kCases) {
    SCOPED_TRACE(row.left + ", " + row.right);
    NotingList list;
    EXPECT_EQ(list.InitList(row.left.c_str(), row.right.c_str(), Prm(row.types)), row.result);
    for (int state = 0; state < kFileStates; ++state)
      EXPECT_EQ(list.CountOf(static_cast<FileState>(state)), row.counts[state]) << state;
    EXPECT_EQ(list.GetItemCount(), list.Sum());
    EXPECT_EQ(list.Comparison()->problems().size(), row.result ? 0u : 1u);
  }
}

TEST_F(ControlTest, OpensAndAnalyses) {
  WriteEach();
  NotingList list;
  Init(list);
  for (const char* path : {"gone", "new & more.txt", "same.txt"}) list.OpenCommand(list.IdOf(path));
  EXPECT_EQ(list.opened,
            (std::vector<std::string>{base() + "\\gone", revised() + "\\new & more.txt",
                                      base() + "\\same.txt"}));
  EXPECT_TRUE(list.started.empty());
  list.OpenCommand(12345);  // not an item's
  EXPECT_EQ(list.opened.size(), 3u);

  const std::string left = base() + "\\sub\\Changed.CPP", right = revised() + "\\sub\\Changed.CPP";
  const std::string titles[] = {"old->\\sub\\Changed.CPP", revised() + "->\\sub\\Changed.CPP"};
  const std::string inOrder =
      "\"" + left + "\" \"" + right + "\" \"" + titles[0] + "\" \"" + titles[1] + "\"";
  const std::string swapped =
      "\"" + right + "\" \"" + left + "\" \"" + titles[1] + "\" \"" + titles[0] + "\"";
  const struct {
    unsigned baseDay, revisedDay;
    int olderOnLeft;
    const char* params;
    std::string commandLine;
  } kCases[] = {
      {1, 2, 1, "", "Diff " + inOrder},
      {1, 1, 1, "", "Diff " + inOrder},
      {2, 1, 1, "", "Diff " + swapped},
      {2, 1, 0, "", "Diff " + inOrder},
      {1, 2, 1, "/x /y", "Diff /x /y " + inOrder},
  };
  for (const auto& row : kCases) {
    SetTime("base\\sub\\Changed.CPP", row.baseDay);
    SetTime("revised\\sub\\changed.cpp", row.revisedDay);
    NotingList each;
    each.params = row.params;
    DirCmpPrm prm = Prm();
    prm.m_olderOnLeft = row.olderOnLeft;
    Init(each, prm);
    each.OpenCommand(each.IdOf("sub\\Changed.CPP"));
    EXPECT_EQ(each.started, std::vector<std::string>{row.commandLine});
    EXPECT_TRUE(each.opened.empty());
  }
  EXPECT_EQ(str(list.GetTitle("old", left.c_str())), titles[0]);
  EXPECT_EQ(str(list.GetTitle("other", right.c_str())), "other->\\sub\\Changed.CPP");
  EXPECT_EQ(str(list.GetTitle("old", "C:\\else")), "C:\\else");
}

// One folder in the other, and display names that would end an argument.
TEST_F(ControlTest, TitlesOfNestedFolders) {
  m_folder.Write("base\\b\\x", "1");
  m_folder.Write("base\\b\\b\\x", "2");
  SetTime("base\\b\\x", 2);
  SetTime("base\\b\\b\\x", 1);
  NotingList list;
  list.InitList(base().c_str(), (base() + "\\b").c_str(), Prm(), "the \"old\" one", "new");
  list.OpenCommand(list.IdOf("b\\x"));
  const std::string inner = base() + "\\b";
  EXPECT_EQ(list.started,
            std::vector<std::string>{"Diff \"" + inner + "\\b\\x\" \"" + inner +
                                     "\\x\" \"new->\\b\\x\" \"the 'old' one->\\b\\x\""});
}

TEST_F(ControlWindowTest, CommandsOfTheUser) {
  WriteEach();
  NotingList list;
  Show(list);
  Init(list);
  // The context menu by its key: the entry is the first one, and Enter does the same.
  list.SelectItem(2);
  for (const WPARAM key : {VK_DOWN, VK_RETURN}) ::PostMessage(list, WM_KEYDOWN, key, 1);
  list.SendMessage(WM_CONTEXTMENU, reinterpret_cast<WPARAM>(list.m_hWnd), -1);
  EXPECT_EQ(list.started.size(), 1u);
  list.SendMessage(WM_KEYDOWN, VK_RETURN, 1);
  EXPECT_EQ(list.started.size(), 2u);
  list.SelectAll();
  list.SelectItem(1);
  EXPECT_TRUE(list.ExecuteCode(MListCtrl::FirstUserCommand()));
  EXPECT_EQ(list.opened, std::vector<std::string>{revised() + "\\new & more.txt"});

  MPopupMenu onModified, onDeleted, onNothing;
  list.DoContextMenu(2, list.IdOf("sub\\Changed.CPP"), onModified);
  list.DoContextMenu(0, list.IdOf("gone"), onDeleted);
  list.DoContextMenu(-1, MListCtrl::kAutomaticId, onNothing);
  EXPECT_EQ(str(onModified.GetText(0)), "Analyze");
  EXPECT_EQ(str(onDeleted.GetText(0)), "Open");
  EXPECT_EQ(onNothing.GetCount(), 0);
}

// The analysis is started as another program; what can't be started is reported.
TEST_F(ControlTest, StartsPrograms) {
  struct Starting : DirCmpCtrl {
    std::string program;
    int StartProgram(const char*, const char* commandLine) override {
      return DirCmpCtrl::StartProgram(program.c_str(), commandLine);
    }
  } list;
  WriteEach();
  list.InitList(base().c_str(), revised().c_str(), Prm(), "\"old\" \\", "%1");
  const AssertionLog log;
  const std::string left = base() + "\\a b", right = revised() + "\\a b";
  char program[MAX_PATH];
  GetModuleFileNameA(nullptr, program, MAX_PATH);
  list.program = std::filesystem::path(program).replace_filename("arguments_host.exe").string();
  SetEnvironmentVariableA("ORVANE_ARGUMENTS", (m_folder / "arguments").c_str());
  EXPECT_EQ(list.NewWindow(left.c_str(), right.c_str()), 1);
  for (int i = 0; i < 1000 && !m_folder.Has("arguments"); ++i) Sleep(10);
  SetEnvironmentVariableA("ORVANE_ARGUMENTS", nullptr);
  EXPECT_EQ(m_folder.Read("arguments"),
            "Diff\n" + left + "\n" + right + "\n'old' \\->\\a b\n%1->\\a b\n");
  EXPECT_TRUE(log.Empty());
  list.program = m_folder / "missing.exe";
  EXPECT_EQ(list.NewWindow(left.c_str(), right.c_str()), 0);
  EXPECT_TRUE(log.Names("DirCmpCtrlCommands"));
}

// In the middle of a large file: what was found is listed.
TEST_F(ControlWindowTest, TheStopButtonStops) {
  m_folder.Write("base\\a", "x");
  m_folder.Write("revised\\a", "x");
  m_folder.Write("revised\\z", "x");
  for (const char* name : {"base\\huge", "revised\\huge"}) WriteHoles(name, 0x7F000000);
  NotingList list;
  Show(list);
  int operations = 0;
  Driver driver({Driver::Click(IDCANCEL)});
  list.onOperation = [&](MMultiOperation& operation) {
    return operation.DoOperation(++operations == 3);  // with a window at once
  };
  DirCmpPrm prm = Prm();
  prm.m_noGui = 0;
  EXPECT_EQ(Init(list, prm), 0);
  RowList rows = list.Rows();
  std::sort(rows.begin(), rows.end());
  EXPECT_EQ(rows, (RowList{"? huge", "? z", "S a"}));
  COLORREF text = 1, background = 1;
  list.GetItemColors(list.IdOf("huge"), text, background);
  EXPECT_EQ(text, RGB(128, 128, 128));
  // What was not evaluated opens from the folder that has it.
  list.OpenCommand(list.IdOf("z"));
  EXPECT_EQ(list.opened, std::vector<std::string>{revised() + "\\z"});
}

// A stopped scan: nothing is known about what it has found.
TEST_F(ControlTest, StopsTheScan) {
  WriteEach();
  for (const int stopped : {1, 2}) {
    NotingList list;
    int operations = 0;
    list.onOperation = [&](MMultiOperation& operation) {
      const int result = operation.DoOperation(0);
      if (++operations == stopped) operation.StopLoop();
      return result;
    };
    EXPECT_EQ(Init(list), 0);
    EXPECT_EQ(operations, stopped);
    EXPECT_EQ(list.CountOf(FileState::Unknown), stopped == 1 ? 3 : 4);
    EXPECT_EQ(list.Sum(), list.CountOf(FileState::Unknown));
  }
}
