// The main window of the desktop host: the real program, with real folders.
#include <afxwin.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>

#include <afxres.h>
#include <commctrl.h>

#include "foldercmp/HostProgram.h"
#include "foldercmp/resource.h"
#include "support/RegistrySubtree.h"
#include "support/TempFolder.h"

using Names = std::vector<std::string>;
using testing::Test;

namespace {

constexpr char kProductKey[] = "SOFTWARE\\Orvane\\foldercmp";
constexpr UINT kSortByName = 10006;

// Two folders with a document of each state. What the program keeps for the user of this Wine
// prefix is cleared before and after each test.
class MainWindow : public Test {
 protected:
  MainWindow() {
    Forget();
    m_folder.Write("base\\same.c", "int main() {}\n");
    m_folder.Write("revised\\same.c", "int  main() {}\n");  // white space doesn't count
    m_folder.Write("base\\sub\\changed.c", "one\n");
    m_folder.Write("revised\\sub\\changed.c", "two\n");
    m_folder.Write("revised\\sub\\added.h", "new\n");
    m_folder.Write("base\\gone.txt", "old\n");
  }
  ~MainWindow() override { Forget(); }

  static void Forget() { RegDeleteTreeA(HKEY_CURRENT_USER, kProductKey); }
  static void Keep(const char* name, DWORD type, const std::string& bytes) {
    RegSetKeyValueA(HKEY_CURRENT_USER, kProductKey, name, type, bytes.data(),
                    static_cast<DWORD>(bytes.size()));
  }
  static void Keep(const char* name, DWORD number) {
    Keep(name, REG_DWORD, std::string(reinterpret_cast<const char*>(&number), sizeof number));
  }

  std::string Base() const { return m_folder / "base"; }
  std::string Revised() const { return m_folder / "revised"; }
  std::string Both() const { return "\"" + Base() + "\" \"" + Revised() + "\""; }
  static void WaitForRows(const HostProgram& host, int rows) {
    EXPECT_TRUE(HostProgram::Wait([&] { return host.RowCount() == rows; }))
        << host.RowCount() << " rows";
  }

  TempFolder m_folder;
};

const std::map<std::string, std::string> kStates = {
    {"same.c", "Same"}, {"changed.c", "Modified"}, {"added.h", "New"}, {"gone.txt", "Deleted"}};

}  // namespace

TEST_F(MainWindow, ComparesTheFoldersOfTheCommandLine) {
  const HostProgram host(Both());
  WaitForRows(host, 4);
  EXPECT_EQ(host.States(), kStates);
  EXPECT_EQ(host.Title(), "base vs. revised - Folder Comparison");
  EXPECT_EQ(host.TextOf(host.Control(IDC_BASE_FOLDER)), Base());
  EXPECT_EQ(host.TextOf(host.Control(IDC_REVISED_FOLDER)), Revised());
  const char* const panes[] = {"Ready",       "4 of 4 documents", "Same: 1",
                               "Modified: 1", "New: 1",           "Deleted: 1"};
  for (int pane = 0; pane < 6; ++pane) EXPECT_EQ(host.StatusText(pane), panes[pane]);
  EXPECT_EQ(host.Documents(), (Names{"gone.txt", "added.h", "changed.c", "same.c"}));
}

// Backslashes at the ends are not taken for the quotation marks' own.
TEST_F(MainWindow, FindsFoldersTheSame) {
  const HostProgram host("\"" + Base() + "\\\" \"" + Base() + "\\sub\\..\\\"");
  WaitForRows(host, 3);
  EXPECT_EQ(host.StatusText(0), "The folders are the same.");
  EXPECT_EQ(host.Title(), Base() + " vs. " + Base() + " - Folder Comparison");
  m_folder.Write("empty\\sub\\x", "");
  const std::string empty = m_folder / "empty";
  std::filesystem::remove(empty + "\\sub\\x");
  host.Type(IDC_BASE_FOLDER, empty);
  host.Type(IDC_REVISED_FOLDER, empty);
  host.Do(ID_COMPARE);
  EXPECT_EQ(host.StatusText(0), "There are no documents to compare.");
}

// What has changed on the disk is seen, and the user is where he was.
TEST_F(MainWindow, ComparingAgainKeepsThePlace) {
  for (int i = 0; i < 100; ++i) m_folder.Write("base\\many\\m" + std::to_string(1000 + i), "m");
  const HostProgram host(Both());
  WaitForRows(host, 104);
  host.Do(kSortByName);
  host.Select({"m1030.", "m1060.", "m1061."});
  SendMessageA(host.List(), LVM_SCROLL, 0, 20 * 13);
  const LRESULT top = SendMessageA(host.List(), LVM_GETTOPINDEX, 0, 0);
  ASSERT_GT(top, 0);
  const std::string topDocument = host.Documents()[top];

  m_folder.Write("revised\\a_new_one.h", "a\n");
  m_folder.Write("revised\\sub\\changed.c", "one\n");
  std::filesystem::remove(m_folder / "base\\many\\m1060");
  host.Key(VK_F5);
  EXPECT_TRUE(HostProgram::Wait([&] { return host.StatusText(3) == "Modified: 0"; }));

  EXPECT_EQ(host.States()["a_new_one.h"], "New");
  EXPECT_EQ(host.States()["changed.c"], "Same");
  EXPECT_EQ(host.Selected(), (Names{"m1030.", "m1061."}));
  EXPECT_EQ(host.Focused(), "m1061.");
  const Names documents = host.Documents();
  EXPECT_TRUE(std::is_sorted(documents.begin(), documents.end()));
  EXPECT_EQ(documents[SendMessageA(host.List(), LVM_GETTOPINDEX, 0, 0)], topDocument);
}

TEST_F(MainWindow, FiltersByStateAndText) {
  const HostProgram host(Both());
  WaitForRows(host, 4);
  host.Do(ID_SHOW_SAME);
  host.Click(IDC_SHOW_FIRST + 3);
  EXPECT_EQ(host.Documents(), (Names{"added.h", "changed.c"}));
  EXPECT_EQ(host.StatusText(1), "2 of 4 documents");

  // In any letter case, a moment after the last key; from the start in the whole path.
  host.Type(IDC_FILTER_TEXT, "SUB\\a");
  WaitForRows(host, 1);
  EXPECT_EQ(host.Documents(), (Names{"added.h"}));
  host.Do(ID_CLEAR_FILTER);
  EXPECT_EQ(host.TextOf(host.Control(IDC_FILTER_TEXT)), "");
  host.Do(ID_SHOW_ALL);
  EXPECT_EQ(host.RowCount(), 4);

  const struct {
    int column;
    const char* text;
    Names documents;
  } cases[] = {{0, "c", {"changed.c", "same.c"}},
               {1, "an", {"changed.c"}},
               {2, "T", {"gone.txt"}},
               {3, "ub", {"added.h", "changed.c"}},
               {3, "no such folder", {}}};
  for (const auto& c : cases) {
    SendMessageA(host.Control(IDC_FILTER_COLUMN), CB_SETCURSEL, c.column, 0);
    host.Type(IDC_FILTER_TEXT, c.text);
    EXPECT_TRUE(HostProgram::Wait([&] { return host.Documents() == c.documents; })) << c.text;
  }
}

TEST_F(MainWindow, SwapsTheFolders) {
  const HostProgram host(Both());
  WaitForRows(host, 4);
  host.Select({"changed.c"});
  host.Do(ID_SWAP);
  EXPECT_EQ(host.Selected(), (Names{"changed.c"}));
  EXPECT_EQ(host.Title(), "revised vs. base - Folder Comparison");
  auto states = kStates;
  std::swap(states["added.h"], states["gone.txt"]);
  EXPECT_EQ(host.States(), states);
}

TEST_F(MainWindow, KeepsItsSettings) {
  CRect place;
  {
    const HostProgram host(Both());
    WaitForRows(host, 4);
    MoveWindow(host.Main(), 60, 70, 900, 500, TRUE);
    GetWindowRect(host.Main(), place);
    host.Do(ID_SHOW_SAME);
    host.Do(kSortByName);
    SendMessageA(host.List(), LVM_SETCOLUMNWIDTH, 0, 177);
    host.Post(ID_OPTIONS);
    const HWND dialog = host.Dialog();
    ASSERT_NE(dialog, nullptr) << "no options";
    // Only the types c and h.
    SendMessageA(GetDlgItem(dialog, 2001), BM_CLICK, 0, 0);
    SetDlgItemTextA(dialog, 2010, "c, .h");
    PostMessageA(dialog, WM_COMMAND, IDOK, 0);
    WaitForRows(host, 2);
  }
  const HostProgram host;
  CRect again;
  GetWindowRect(host.Main(), again);
  EXPECT_EQ(again, place);
  EXPECT_EQ(host.TextOf(host.Control(IDC_BASE_FOLDER)), Base());
  host.Do(ID_COMPARE);
  EXPECT_EQ(host.Documents(), (Names{"added.h", "changed.c"}));
  EXPECT_EQ(SendMessageA(host.List(), LVM_GETCOLUMNWIDTH, 0, 0), 177);
  host.Do(ID_SHOW_SAME);
  EXPECT_EQ(host.Documents(), (Names{"added.h", "changed.c", "same.c"}));
}

// Values that are damaged, or of a screen that is gone, do no harm.
TEST_F(MainWindow, StartsWithDamagedSettings) {
  Keep("WindowLeft", 50'000);
  Keep("WindowTop", static_cast<DWORD>(-40'000));
  Keep("WindowWidth", 90'000);
  Keep("WindowHeight", 300);
  Keep("WindowMaximized", REG_SZ, "yes");
  Keep("ShownStates", 0xFFFFFFFF);
  Keep("FilterColumn", 77);
  Keep("WhiteSpaceMode", 3);
  Keep("SubFolders", REG_BINARY, "x");
  Keep("ExcludeTypes", 1);
  Keep("TypeList", REG_DWORD, "abcd");
  Keep("RecentBase1", REG_SZ, std::string(5000, 'x'));
  Keep("RecentRevised1", REG_BINARY, "\xFF\xFF");
  Keep("RecentBase2", REG_SZ, Base());
  const HostProgram host(Both());
  WaitForRows(host, 4);
  EXPECT_EQ(host.States(), kStates);
  CRect place, screen(0, 0, GetSystemMetrics(SM_CXSCREEN), GetSystemMetrics(SM_CYSCREEN)), both;
  GetWindowRect(host.Main(), place);
  both.IntersectRect(place, screen);
  EXPECT_EQ(both, place);
}

TEST_F(MainWindow, SaysWhatIsWrongWithAFolder) {
  const HostProgram host("\"" + Base() + "\" \"" + (m_folder / "nowhere") + "\"");
  EXPECT_NE(host.DismissMessage().find(m_folder / "nowhere' "), std::string::npos);
  EXPECT_EQ(host.FocusId(), IDC_REVISED_FOLDER);
  const struct {
    std::string typed, message;
  } cases[] = {{"", "Please choose the revised folder."},
               {"  ", "Please choose the revised folder."},
               {m_folder / "base\\gone.txt", "is not a folder."},
               {"Q:\\", "'Q:\\'  does not exist"},
               {"<?>", "does not exist"}};
  for (const auto& c : cases) {
    host.Type(IDC_REVISED_FOLDER, c.typed);
    host.Post(ID_COMPARE);
    const std::string texts = host.DismissMessage();
    EXPECT_NE(texts.find(c.message), std::string::npos) << texts;
  }
  EXPECT_EQ(host.List(), nullptr);
  // Slashes, quotation marks and a backslash at the end are the same folder.
  std::string typed = "\"" + Revised() + "\\\" ";
  std::replace(typed.begin(), typed.end(), '\\', '/');
  host.Type(IDC_REVISED_FOLDER, typed);
  host.Do(ID_COMPARE);
  EXPECT_EQ(host.States(), kStates);
  EXPECT_EQ(host.TextOf(host.Control(IDC_REVISED_FOLDER)), Revised());
}

TEST_F(MainWindow, NamesWhatCouldNotBeRead) {
  const HANDLE locked = CreateFileA((Base() + "\\same.c").c_str(), GENERIC_READ, 0, nullptr,
                                    OPEN_EXISTING, 0, nullptr);
  const HostProgram host(Both());
  const std::string texts = host.DismissMessage();
  CloseHandle(locked);
  EXPECT_NE(texts.find("could not be read: 1"), std::string::npos) << texts;
  EXPECT_NE(texts.find("same.c: "), std::string::npos) << texts;
  EXPECT_EQ(host.States()["same.c"], "Modified");
}

TEST_F(MainWindow, TakesDroppedFolders) {
  const HostProgram host;
  host.Drop({Base(), Revised()});
  WaitForRows(host, 4);
  // One begins a new pair, the next one completes it.
  host.Drop({Base() + "\\sub"});
  EXPECT_TRUE(HostProgram::Wait(
      [&] { return host.TextOf(host.Control(IDC_BASE_FOLDER)) == Base() + "\\sub"; }));
  EXPECT_EQ(host.TextOf(host.Control(IDC_REVISED_FOLDER)), "");
  host.Drop({Revised() + "\\sub"});
  WaitForRows(host, 2);
  host.Drop({Base() + "\\gone.txt"});
  EXPECT_NE(host.DismissMessage().find("is not a folder"), std::string::npos);
}

TEST_F(MainWindow, AnalyzesAModifiedDocument) {
  const HostProgram host(Both());
  WaitForRows(host, 4);
  host.Select({"changed.c"});
  host.Key(VK_RETURN);
  const std::string title =
      Base() + "->\\sub\\changed.c - " + Revised() + "->\\sub\\changed.c - Differences";
  HWND found = nullptr;
  HostProgram::Wait([&] { return (found = FindWindowA(nullptr, title.c_str())) != nullptr; });
  ASSERT_NE(found, nullptr) << "no difference window";
  PostMessageA(found, WM_CLOSE, 0, 0);
  EXPECT_TRUE(HostProgram::Wait([&] { return !IsWindow(found); }));
}

// Each opens, says what it is, and goes with Escape; nothing changes.
TEST_F(MainWindow, OpensItsDialogs) {
  const HostProgram host(Both());
  WaitForRows(host, 4);
  const struct {
    UINT command;
    const char *title, *text;
  } cases[] = {// The title of this one is the system's, in its language.
               {ID_CHOOSE_BASE, "", "The base folder of the comparison:"},
               {ID_OPTIONS, "Options", "White space:"},
               {ID_REPORT, "Report", "Tab-separated values"},
               {ID_REPORT_PAGES, "Configure Hyper-link Reports", "Deleted files"},
               {ID_APP_ABOUT, "About Folder Comparison", "Compares two folders"}};
  for (const auto& c : cases) {
    host.Post(c.command);
    const HWND dialog = host.Dialog();
    EXPECT_TRUE(*c.title == 0 || HostProgram::TextOf(dialog) == c.title) << c.title;
    EXPECT_NE(HostProgram::TextsIn(dialog).find(c.text), std::string::npos) << c.text;
    PostMessageA(dialog, WM_COMMAND, IDCANCEL, 0);
    EXPECT_TRUE(HostProgram::Wait([&] { return !IsWindow(dialog); })) << c.title;
  }
  EXPECT_EQ(host.States(), kStates);
}

TEST_F(MainWindow, ComparesRecentPairsAgain) {
  const HostProgram host(Both());
  WaitForRows(host, 4);
  host.Type(IDC_BASE_FOLDER, Base() + "\\sub");
  host.Type(IDC_REVISED_FOLDER, Revised() + "\\sub");
  host.Do(ID_COMPARE);
  EXPECT_EQ(host.RowCount(), 2);
  host.Do(ID_RECENT_FIRST + 1);
  EXPECT_EQ(host.States(), kStates);
  EXPECT_EQ(SendMessageA(host.Control(IDC_BASE_FOLDER), CB_GETCOUNT, 0, 0), 4);
  host.Do(ID_RECENT_FIRST + 2);  // there are two
  EXPECT_EQ(host.States(), kStates);
}

TEST_F(MainWindow, IsUsedWithTheKeyboard) {
  const HostProgram host(Both());
  WaitForRows(host, 4);
  EXPECT_EQ(host.FocusId(), 0xE900);
  const int order[] = {IDC_BASE_FOLDER,    IDC_BASE_BROWSE,    IDC_COMPARE,
                       IDC_REVISED_FOLDER, IDC_REVISED_BROWSE, IDC_SWAP,
                       IDC_FILTER_TEXT,    IDC_FILTER_COLUMN,  IDC_SHOW_FIRST};
  for (const int id : order) {
    host.Key(VK_TAB);
    EXPECT_TRUE(HostProgram::Wait([&] { return host.FocusId() == id; })) << host.FocusId();
  }
  host.Letter('r');
  EXPECT_TRUE(HostProgram::Wait([&] { return host.FocusId() == IDC_REVISED_FOLDER; }));
  // Enter compares.
  host.Type(IDC_BASE_FOLDER, Base() + "\\sub");
  host.Type(IDC_REVISED_FOLDER, Revised() + "\\sub");
  host.Do(ID_FILTER);
  EXPECT_EQ(host.FocusId(), IDC_FILTER_TEXT);
  host.Key(VK_RETURN);
  WaitForRows(host, 2);
  // Escape takes back a filter, then closes the window.
  host.Do(ID_FILTER);
  host.Type(IDC_FILTER_TEXT, "added");
  WaitForRows(host, 1);
  host.Key(VK_ESCAPE);
  WaitForRows(host, 2);
  host.Key(VK_ESCAPE);
  EXPECT_EQ(host.ExitStatus(), 0u);
}

// Files that take long to compare: holes, which take no room on the disk.
class LongComparison : public MainWindow {
 protected:
  LongComparison() {
    for (const std::string name : {"base\\huge1", "revised\\huge1", "base\\huge2", "revised\\huge2",
                                   "base\\one\\huge", "revised\\one\\huge"}) {
      const HANDLE file = CreateFileA(m_folder.Write(name, "").c_str(), GENERIC_WRITE, 0, nullptr,
                                      OPEN_EXISTING, 0, nullptr);
      LARGE_INTEGER size;
      size.QuadPart = 0x400000000;
      SetFilePointerEx(file, size, nullptr, FILE_BEGIN);
      SetEndOfFile(file);
      CloseHandle(file);
    }
  }
};

// Of many documents, and of one.
TEST_F(LongComparison, CanBeStopped) {
  const struct {
    const char* folder;
    int rows;
    const char* unknown;
  } cases[] = {{"", 7, "huge2."}, {"\\one", 1, "huge."}};
  for (const auto& c : cases) {
    const HostProgram host("\"" + Base() + c.folder + "\" \"" + Revised() + c.folder + "\"");
    const HWND progress = host.Dialog();
    ASSERT_NE(progress, nullptr);
    EXPECT_FALSE(IsWindowEnabled(host.Main()));
    PostMessageA(progress, WM_COMMAND, IDCANCEL, 0);
    WaitForRows(host, c.rows);
    EXPECT_NE(host.StatusText(0).find("Stopped"), std::string::npos);
    EXPECT_EQ(host.States()[c.unknown], "Unknown");
  }
}

TEST_F(LongComparison, EndsWithTheWindow) {
  const HostProgram host(Both());
  Sleep(500);
  const DWORD start = GetTickCount();
  PostMessageA(host.Main(), WM_CLOSE, 0, 0);
  EXPECT_EQ(host.ExitStatus(), 0u);
  EXPECT_LT(GetTickCount() - start, 1500u);
}

TEST_F(MainWindow, RefusesAWrongCommandLine) {
  const HostProgram host("\"" + Base() + "\"");
  EXPECT_NE(host.TextsIn(host.Main()).find("BASE FOLDER"), std::string::npos);
  PostMessageA(host.Main(), WM_COMMAND, IDOK, 0);
  EXPECT_EQ(host.ExitStatus(), 2u);
}
