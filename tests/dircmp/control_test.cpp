// The comparison's list: what it shows, opens and starts, and how it is stopped.
#include <afxwin.h>

#include <atomic>
#include <filesystem>
#include <thread>

#include "dialogs/Driver.h"
#include "dircmp/ControlTest.h"
#include "settings/RegistryUtil.h"
#include "support/AssertionLog.h"
#include "support/ImportTable.h"
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
  std::vector<std::string> titles;
  for (int i = 0; i < list.GetVisibleColNum(); ++i) titles.push_back(str(list.GetColName(i)));
  EXPECT_EQ(titles, (std::vector<std::string>{"Document Name", "Type", "Folder Name", "Status",
                                              "Modified"}));
  const char* const kCells[] = {"Changed", "cpp", "sub", "Modified"};
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
  EXPECT_EQ(background, RGB(255, 255, 255));
  MRegistry::FreeProductRegistry();
}

TEST_F(ControlTest, Types) {
  for (const char* name : {"x.c", "y.H", "z.cpp", "none"})
    m_folder.Write(std::string("base\\") + name, "x");
  m_folder.Write("revised\\x.c", "x");
  const struct {
    const char* types;
    int exclude;
    RowList rows;
  } kCases[] = {
      {"*.c;*.h", 0, {"D y.H", "S x.c"}},
      {"*.c;*.h", 1, {"D none", "D z.cpp"}},
      {"", 0, {"D none", "D y.H", "D z.cpp", "S x.c"}},
      {"", 1, {}},
      {"*.*", 1, {}},
      {"*.", 0, {"D none"}},
  };
  for (const auto& row : kCases) {
    NotingList list;
    EXPECT_EQ(Init(list, Prm(row.types, row.exclude)), 1);
    RowList rows = list.Rows();
    std::sort(rows.begin(), rows.end());
    EXPECT_EQ(rows, row.rows) << row.types << row.exclude;
    EXPECT_EQ(list.Sum(), static_cast<int>(row.rows.size()));
  }
}

// Folders that are odd: every document has one state.
TEST_F(ControlTest, OddFolders) {
  WriteEach();
  const struct {
    std::string left, right;
    int result;
    int counts[kFileStates];
  } kCases[] = {
      {base(), base(), 1, {3, 0, 0, 0, 0}},
      {base(), base() + "\\sub", 1, {0, 0, 1, 3, 0}},
      {base() + "\\", m_folder / "missing", 0, {0, 0, 0, 3, 0}},
      {"", revised(), 0, {0, 0, 3, 0, 0}},
  };
  for (const auto& row : kCases) {
    NotingList list;
    EXPECT_EQ(list.InitList(row.left.c_str(), row.right.c_str(), Prm()), row.result);
    for (int state = 0; state < kFileStates; ++state)
      EXPECT_EQ(list.CountOf(static_cast<FileState>(state)), row.counts[state])
          << row.left << ", " << row.right << ", " << state;
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
  // The context menu by its key: the entry is the first one, and the default.
  const auto openMenu = [&](int row, bool choose) {
    list.SelectItem(row);
    if (choose) {
      ::PostMessage(list, WM_KEYDOWN, VK_DOWN, 1);
      ::PostMessage(list, WM_KEYDOWN, VK_RETURN, 1);
    } else {
      ::PostMessage(list, WM_KEYDOWN, VK_ESCAPE, 1);
    }
    list.SendMessage(WM_CONTEXTMENU, reinterpret_cast<WPARAM>(list.m_hWnd), -1);
  };
  list.DeselectAll();
  openMenu(0, false);
  EXPECT_TRUE(list.opened.empty());
  list.DeselectAll();
  openMenu(2, true);
  EXPECT_EQ(list.started.size(), 1u);
  list.SendMessage(WM_KEYDOWN, VK_RETURN, 1);
  EXPECT_EQ(list.started.size(), 2u);
  list.SelectAll();
  list.SelectItem(1);
  EXPECT_TRUE(list.ExecuteCode(MListCtrl::FirstUserCommand()));
  EXPECT_EQ(list.opened, std::vector<std::string>{revised() + "\\new & more.txt"});

  MPopupMenu onItem, onNothing;
  list.DoContextMenu(2, list.IdOf("sub\\Changed.CPP"), onItem);
  list.DoContextMenu(-1, MListCtrl::kAutomaticId, onNothing);
  EXPECT_EQ(str(onItem.GetText(0)), "Analyze");
  EXPECT_EQ(onItem.GetCommand(0), MListCtrl::FirstUserCommand());
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

namespace {

std::atomic<int> g_reads = 0;  // of the library, from files
decltype(&ReadFile) g_readFile = nullptr;
BOOL WINAPI NoteReadFile(HANDLE file, void* buffer, DWORD size, DWORD* read, OVERLAPPED* place) {
  ++g_reads;
  return g_readFile(file, buffer, size, read, place);
}

void** ImportedReadFile() {
  void** place = nullptr;
  ForEachImport(GetModuleHandleA("orvane.dll"), [&](const char* name, void** address) {
    if (std::string(name) == "ReadFile") place = address;
  });
  return place;
}

void WriteHuge(const std::string& path) {
  const unique_file file(
      CreateFileA(path.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, 0, nullptr));
  const LARGE_INTEGER size = {.QuadPart = 2047ll * 1024 * 1024};
  SetFilePointerEx(file.get(), size, nullptr, FILE_BEGIN);
  SetEndOfFile(file.get());
}

class StoppedControl : public ControlTest {
 protected:
  // Compares, and stops while the large files are read: the milliseconds from the stop to the end.
  DWORD TimeOfStop(NotingList& list) {
    std::atomic<DWORD> stoppedAt = 0;
    std::atomic<int> readsAtStop = 0;
    DWORD ended = 0;
    int operations = 0;
    list.onOperation = [&](MMultiOperation& operation) {
      if (++operations < 3) return operation.DoOperation(0);  // the scans
      g_reads = 0;
      std::thread user([&] {
        while (g_reads < 100) Sleep(1);
        stoppedAt = GetTickCount();
        operation.StopLoop();
        readsAtStop = g_reads.load();
      });
      const int result = operation.DoOperation(0);
      ended = GetTickCount();
      user.join();
      return result;
    };
    EXPECT_EQ(Init(list), 0);
    EXPECT_LE(g_reads, readsAtStop + 1) << "the block that was being read";
    return ended - stoppedAt;
  }
};

}  // namespace

// In the middle of a large file: nothing more is read, and what was found is listed.
TEST_F(StoppedControl, ActsAtOnce) {
  m_folder.Write("base\\a", "x");
  m_folder.Write("revised\\a", "x");
  WriteHuge(m_folder.Write("base\\huge", ""));
  WriteHuge(m_folder.Write("revised\\huge", ""));
  m_folder.Write("revised\\z", "x");
  void** const place = ImportedReadFile();
  ASSERT_NE(place, nullptr);
  g_readFile = reinterpret_cast<decltype(&ReadFile)>(*place);
  ReplaceImport(place, reinterpret_cast<void*>(&NoteReadFile));
  // Measured: 0 to 14 ms. A busy machine may hold up one attempt, but not all.
  DWORD fastest = INFINITE;
  std::unique_ptr<NotingList> list;
  for (int attempt = 0; attempt < 4; ++attempt) {
    list = std::make_unique<NotingList>();
    fastest = std::min(fastest, TimeOfStop(*list));
  }
  ReplaceImport(place, reinterpret_cast<void*>(g_readFile));
  EXPECT_LT(fastest, 200u);
  RowList rows = list->Rows();
  std::sort(rows.begin(), rows.end());
  EXPECT_EQ(rows, (RowList{"? huge", "? z", "S a"}));
  COLORREF text = 1, background = 1;
  list->GetItemColors(list->IdOf("huge"), text, background);
  EXPECT_EQ(text, RGB(128, 128, 128));
  // What was not evaluated opens from the folder that has it.
  list->OpenCommand(list->IdOf("z"));
  EXPECT_EQ(list->opened, std::vector<std::string>{revised() + "\\z"});
}

// By the user, with the button of the progress window.
TEST_F(ControlWindowTest, TheStopButtonStops) {
  WriteHuge(m_folder.Write("base\\huge", ""));
  WriteHuge(m_folder.Write("revised\\huge", ""));
  m_folder.Write("base\\later", "");
  NotingList list;
  Show(list);
  int operations = 0;
  Driver driver({Driver::Click(IDCANCEL)});
  list.onOperation = [&](MMultiOperation& operation) {
    // At once with a window.
    return operation.DoOperation(++operations == 3);
  };
  DirCmpPrm prm = Prm();
  prm.m_noGui = 0;
  EXPECT_EQ(Init(list, prm), 0);
  EXPECT_EQ(list.CountOf(FileState::Unknown), 2);
  EXPECT_EQ(list.GetItemCount(), 2);
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

// Paths as long as the system lets them be.
TEST_F(ControlTest, LongPaths) {
  const std::string folder(100, 'f');
  const size_t room = MAX_PATH - 1 - revised().size() - 1 - folder.size() - 1;
  const std::string longest = folder + "\\" + std::string(room, 'n');
  m_folder.Write("revised\\" + longest, "y");
  const std::string both = longest.substr(0, longest.size() - 1);
  m_folder.Write("base\\" + both, "x");
  m_folder.Write("revised\\" + both, "y");
  NotingList list;
  EXPECT_EQ(Init(list), 1);
  EXPECT_EQ(list.Rows(), (RowList{"N " + longest, "M " + both}));
  list.OpenCommand(list.IdOf(both));
  EXPECT_EQ(list.started.size(), 1u);
}
