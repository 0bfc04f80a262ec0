// The difference window, with keys and mouse.
#include "diffwindow/WindowTest.h"
#include "entry/Handles.h"

TEST_F(DiffWindowTest, GoesFromDifferenceToDifference) {
  Open(Lines(300), Lines(300, {100, 200, 201, 290}));
  char title[100] = "";
  ::GetWindowText(m_frame->m_hWnd, title, sizeof title);
  EXPECT_STREQ(title, "Left title - Right title - Differences");
  EXPECT_EQ(::GetFocus(), Child(IDC_DIFF_LEFT));
  // The first one is shown.
  EXPECT_EQ(state().place.caret(), 99);
  EXPECT_LT(state().place.first(), 99);
  EXPECT_GT(state().place.first() + state().place.page(), 99);
  EXPECT_EQ(Status(1), "Line 100 | 100");
  EXPECT_EQ(Status(2), "Difference 1 of 3");
  const struct {
    UINT key;
    int modifiers;
    int row;
    const char* status;
    const char* message;
  } steps[] = {
      {VK_F8, kNone, 199, "Difference 2 of 3", ""},
      {VK_DOWN, kNone, 200, "Difference 2 of 3", ""},
      {VK_F8, kNone, 289, "Difference 3 of 3", ""},
      {VK_F8, kNone, 99, "Difference 1 of 3", "Continued from the first difference"},
      {VK_F7, kNone, 289, "Difference 3 of 3", "Continued from the last difference"},
      {VK_F7, kNone, 199, "Difference 2 of 3", ""},
      {VK_DOWN, kNone, 200, "Difference 2 of 3", ""},
      {VK_DOWN, kNone, 201, "3 differences", ""},
      {VK_F7, kNone, 199, "Difference 2 of 3", ""},
      {VK_HOME, kControl, 0, "3 differences", ""},
      {VK_F8, kNone, 99, "Difference 1 of 3", ""},
      {VK_END, kAlt, 289, "Difference 3 of 3", ""},
      {VK_HOME, kAlt, 99, "Difference 1 of 3", ""},
  };
  for (const auto& step : steps) {
    Press(step.key, step.modifiers);
    EXPECT_EQ(state().place.caret(), step.row);
    EXPECT_EQ(Status(2), step.status) << step.row;
    EXPECT_EQ(Status(0), step.message) << step.row;
  }
}

TEST_F(DiffWindowTest, ScrollsBothSides) {
  std::string left = Lines(300), right = Lines(300, {3});
  right += std::string(500, 'x');
  Open(left, right);
  const int page = state().place.page();
  const HWND view = m_frame->view().m_hWnd;
  const auto bar = [&](UINT message, int code, int id) {
    ::SendMessage(view, message, static_cast<WPARAM>(code), reinterpret_cast<LPARAM>(Child(id)));
  };
  Press(VK_HOME, kControl);
  Press(VK_NEXT);
  EXPECT_EQ(state().place.first(), page - 1);
  Press(VK_PRIOR);
  EXPECT_EQ(state().place.first(), 0);
  Press(VK_DOWN, kControl);
  EXPECT_EQ(state().place.first(), 1);
  EXPECT_EQ(state().place.caret(), 0) << "it is only scrolled";
  bar(WM_VSCROLL, SB_PAGEDOWN, IDC_DIFF_VERTICAL);
  EXPECT_EQ(state().place.first(), page);
  ::SendMessage(Child(IDC_DIFF_RIGHT), WM_MOUSEWHEEL, MAKEWPARAM(0, WHEEL_DELTA), 0);
  EXPECT_EQ(state().place.first(), page - 3);
  bar(WM_VSCROLL, SB_BOTTOM, IDC_DIFF_VERTICAL);
  EXPECT_EQ(state().place.first(), document().rowCount() - page);
  EXPECT_EQ(::GetScrollPos(Child(IDC_DIFF_VERTICAL), SB_CTL), state().place.first());

  Press(VK_END);
  EXPECT_GT(state().firstColumn, 300) << "up to the end of the longest line";
  const int columns = state().firstColumn;
  Press(VK_LEFT);
  EXPECT_EQ(state().firstColumn, columns - 4);
  bar(WM_HSCROLL, SB_LINEDOWN, IDC_DIFF_HORIZONTAL);
  EXPECT_EQ(state().firstColumn, columns);
  Press(VK_HOME);
  EXPECT_EQ(state().firstColumn, 0);
}

TEST_F(DiffWindowTest, SelectsAndCopiesLinesOfASide) {
  Open("one\r\ntwo\r\nthree\r\nf\xC3\xBCnf\r\n", "one\r\ntwo and more\r\nf\xC3\xBCnf\r\n");
  ASSERT_EQ(document().rowCount(), 4);
  const auto copied = [&] {
    Press('C', kControl);
    EXPECT_EQ(Status(0), "Copied");
    std::wstring text;
    if (::OpenClipboard(m_frame->m_hWnd)) {
      text = static_cast<const wchar_t*>(::GlobalLock(::GetClipboardData(CF_UNICODETEXT)));
      ::CloseClipboard();
    }
    return text;
  };
  Press(VK_HOME, kControl);
  EXPECT_EQ(copied(), L"one\r\n");
  Press(VK_DOWN, kShift);
  Press(VK_DOWN, kShift);
  EXPECT_EQ(copied(), L"one\r\ntwo\r\nthree\r\n");
  Press(VK_TAB);
  EXPECT_EQ(::GetFocus(), Child(IDC_DIFF_RIGHT));
  EXPECT_EQ(copied(), L"one\r\ntwo and more\r\n") << "nothing stands in the third row";
  Click(IDC_DIFF_RIGHT, RowPlace(3));
  EXPECT_EQ(copied(), L"f\u00FCnf\r\n");
  Click(IDC_DIFF_LEFT, RowPlace(1));
  EXPECT_EQ(state().active, DiffSide::Left);
  Click(IDC_DIFF_LEFT, RowPlace(2), MK_SHIFT);
  EXPECT_EQ(copied(), L"two\r\nthree\r\n");
  Drag(IDC_DIFF_LEFT, RowPlace(3), RowPlace(2));
  EXPECT_EQ(copied(), L"three\r\nf\u00FCnf\r\n");
  Press('A', kControl);
  EXPECT_EQ(copied(), L"one\r\ntwo\r\nthree\r\nf\u00FCnf\r\n");
}

TEST_F(DiffWindowTest, FindsTexts) {
  Open(Lines(300), Lines(300, {100, 200}));
  Press('F', kControl);
  EXPECT_EQ(::GetDlgCtrlID(::GetFocus()), IDC_DIFF_FIND_TEXT);
  ::SetWindowTextW(::GetFocus(), L"LINE 200");
  Press(VK_RETURN);
  ASSERT_TRUE(state().found);
  EXPECT_EQ(state().place.caret(), 199);
  EXPECT_EQ(::GetDlgCtrlID(::GetFocus()), IDC_DIFF_FIND_TEXT) << "the user may go on typing";
  Press(VK_F3);
  EXPECT_EQ(state().found->side, DiffSide::Right);
  Press(VK_F3);
  EXPECT_EQ(state().found->side, DiffSide::Left);
  EXPECT_EQ(Status(0), "Continued from the top");
  Press(VK_RETURN, kShift);
  EXPECT_EQ(state().found->side, DiffSide::Right);
  EXPECT_EQ(Status(0), "Continued from the end");

  const HWND bar = ::GetParent(::GetFocus());
  ::SendMessage(::GetDlgItem(bar, IDC_DIFF_MATCH_CASE), BM_CLICK, 0, 0);
  Press(VK_F3);
  EXPECT_EQ(Status(0), "Not found");
  Press(VK_ESCAPE);
  EXPECT_FALSE(::IsWindowVisible(bar));
  EXPECT_EQ(::GetFocus(), Child(IDC_DIFF_RIGHT));
}

namespace {

const char* typedLine = "";

// The dialog has a loop of its own.
void CALLBACK answerGoToLine(HWND, UINT, UINT_PTR id, DWORD) {
  const HWND edit = ::GetFocus();
  if (edit == nullptr || ::GetParent(edit) != ::GetActiveWindow()) return;
  ::KillTimer(nullptr, id);
  ::SetWindowText(edit, typedLine);
  ::PostMessage(edit, WM_KEYDOWN, VK_RETURN, 1);
}

}  // namespace

TEST_F(DiffWindowTest, GoesToALine) {
  Open(Lines(300), "new\r\n" + Lines(300));
  Press(VK_TAB);
  const struct {
    const char* typed;
    int row;
  } cases[] = {{"100", 99}, {"0", 0}, {"999999999", 300}, {"", 300}};
  for (const auto& c : cases) {
    typedLine = c.typed;
    const UINT_PTR timer = ::SetTimer(nullptr, 0, 50, answerGoToLine);
    Press('G', kControl);
    ::KillTimer(nullptr, timer);
    EXPECT_EQ(state().place.caret(), c.row) << c.typed;
    EXPECT_EQ(::GetFocus(), Child(IDC_DIFF_RIGHT));
  }
}

TEST_F(DiffWindowTest, OtherOptionsKeepThePlace) {
  Open("A\r\n" + Lines(200) + "x  y\r\n" + Lines(50),
       "a\r\n" + Lines(200, {7}) + "x y\r\n" + Lines(50));
  EXPECT_EQ(Status(3), "Runs of white space are alike");
  EXPECT_EQ(Status(2), "Difference 1 of 2");
  Press('0', kControl);
  EXPECT_EQ(document().differences().size(), 3u);
  Press(VK_END, kAlt);
  ASSERT_EQ(state().place.caret(), 201);
  const int first = state().place.first();
  Press('2', kControl);
  Press('I', kControl);
  EXPECT_EQ(document().differences().size(), 1u);
  EXPECT_EQ(state().place.caret(), 201);
  EXPECT_EQ(state().place.first(), first);
  EXPECT_EQ(Status(3), "White space is ignored, case is ignored");

  m_folder.Write("left.txt", "new\r\nA\r\n" + Lines(200) + "x  y\r\n" + Lines(50));
  Press(VK_F5);
  EXPECT_EQ(document().rowCount(), 253);
  EXPECT_EQ(document().differences().size(), 2u);
  Press('T', kControl);
  EXPECT_EQ(document().differences()[0].kind, DiffKind::Added);
  EXPECT_STREQ(state().leftTitle, "Right title");

  // No place is left when one of them is no text any more, and nothing to be scrolled.
  m_folder.Write("left.txt", std::string(1, '\0'));
  Press(VK_F5);
  EXPECT_EQ(state().place.caret(), 0);
  int least = -1, most = -1;
  ::GetScrollRange(Child(IDC_DIFF_HORIZONTAL), SB_CTL, &least, &most);
  EXPECT_EQ(most, 0);
}

TEST_F(DiffWindowTest, MapLeadsToAPlace) {
  Open(Lines(5000), Lines(5000, {4000}));
  const DiffMap& map = static_cast<DiffMap&>(*CWnd::FromHandlePermanent(Child(IDC_DIFF_MAP)));
  CRect client;
  map.GetClientRect(client);
  Click(IDC_DIFF_MAP, CPoint(5, client.Height() / 2));
  const auto middle = [&] { return state().place.first() + state().place.page() / 2; };
  EXPECT_NEAR(middle(), 2500, 20);
  Drag(IDC_DIFF_MAP, CPoint(5, client.Height() / 2), CPoint(5, client.Height() + 50));
  EXPECT_EQ(state().place.first(), state().place.lastFirst());
  EXPECT_NEAR(map.RowAt(map.YOfRow(4000)), 4000, 5000 / client.Height() + 1);
}

TEST_F(DiffWindowTest, SplitterIsRememberedWithTheRest) {
  Open(Lines(10), Lines(10, {5}));
  CRect before, after;
  ::GetWindowRect(Child(IDC_DIFF_LEFT), before);
  // The splitter is beside the left pane.
  const HWND view = m_frame->view().m_hWnd;
  const LPARAM from = MAKELPARAM(before.Width() + 2, 200), to = MAKELPARAM(300, 200);
  ::SendMessage(view, WM_LBUTTONDOWN, MK_LBUTTON, from);
  ::SendMessage(view, WM_MOUSEMOVE, MK_LBUTTON, to);
  ::SendMessage(view, WM_LBUTTONUP, 0, to);
  ::GetWindowRect(Child(IDC_DIFF_LEFT), after);
  EXPECT_NEAR(after.Width(), 300, 8);
  Press('2', kControl);
  m_frame->SendMessage(WM_COMMAND, ID_DIFF_TABS_8);
  m_frame->SetWindowPos(nullptr, 60, 50, 700, 500, SWP_NOZORDER);
  EXPECT_FALSE(Press(VK_ESCAPE)) << "it was the main window";
  m_frame = nullptr;

  OpenFiles();
  EXPECT_EQ(Status(3), "White space is ignored");
  EXPECT_EQ(state().tabSize, 8);
  EXPECT_NEAR(m_frame->view().splitter(), 300 * 1000 / 1120, 40);
  CRect place;
  m_frame->GetWindowRect(place);
  EXPECT_EQ(place, CRect(60, 50, 760, 550));
}

TEST_F(DiffWindowTest, SaysWhatItCannotShow) {
  const std::string text = "text\n", binary("\0\1\2", 3);
  const struct {
    const char* name;
    std::string left, right;
    const char* notice;
  } cases[] = {
      {"same", text, text, "The documents are the same."},
      {"both empty", "", "", "The documents are the same."},
      {"only line ends differ", "a\n", "a\r\n",
       "No line differs with the chosen options, but the documents are not the same byte by byte."},
      {"one binary", binary, text, "The documents are different. 'Left title' is not a text."},
      {"both binary", binary, binary,
       "The documents are the same. 'Left title' is not a text. 'Right title' is not a text."},
      {"too large", text, std::string(DocumentText::kMostBytes + 1, 'x'),
       "The documents are different. 'Right title' is too large to be shown."},
  };
  for (const auto& c : cases) {
    Open(c.left, c.right);
    EXPECT_STREQ(m_frame->view().notice(), c.notice) << c.name;
    Press(VK_F8);
    Press('C', kControl);
    Close();
  }
  m_left = m_folder / "missing.txt";
  OpenFiles();
  EXPECT_STREQ(m_frame->view().notice(),
               "The documents could not be compared. 'Left title' cannot be read. 'Right title' is "
               "too large to be shown.");
}

namespace {

// A line of words of 100 characters, every second one of them with another letter.
std::string Words(int count, char letter) {
  std::string line;
  for (int i = 0; i < count; ++i) line += std::string(99, i % 2 == 0 ? letter : 'x') + ' ';
  return line + "\n";
}

}  // namespace

TEST_F(DiffWindowTest, ShowsAwkwardTexts) {
  const std::string utf16(
      "\xFF\xFE"
      "a\0\n\0"
      "\x3D\xD8\x00\xDE\n\0",
      10);
  const struct {
    const char* name;
    std::string left, right;
    int rows;
  } cases[] = {
      {"UTF-16 with surrogates", utf16, "a\n\xF0\x9F\x98\x80\n", 2},
      {"right to left", "\xD7\xA9\xD7\x9C\xD7\x95\xD7\x9D 1\n",
       "\xD7\xA9\xD7\x9C\xD7\x95\xD7\x9D 2\n", 1},
      {"not UTF-8", "\x93\xFA\x96\x7B\n", "\x93\xFA\x96\x7B x\n", 1},
      {"one line of a megabyte", std::string(1 << 20, 'a'), std::string(1 << 20, 'a') + " b", 1},
      {"changes all over a long line", Words(9000, 'a'), Words(9000, 'b'), 1},
      {"tabs", "\ta\tb\n", "    a   b\n", 1},
      {"carriage returns", "a\rb\r", "a\rc\r", 2},
  };
  for (const auto& c : cases) {
    Open(c.left, c.right);
    EXPECT_EQ(document().rowCount(), c.rows) << c.name;
    for (const UINT key : {VK_F8, VK_END, VK_HOME, VK_NEXT}) {
      Press(key);
      m_frame->RedrawWindow(nullptr, nullptr, RDW_INVALIDATE | RDW_UPDATENOW | RDW_ALLCHILDREN);
    }
    Close();
  }
}

namespace {

// Holes, which take no room on the disk.
void MakeHuge(const std::string& path) {
  const unique_file file(
      CreateFileA(path.c_str(), GENERIC_WRITE, 0, nullptr, OPEN_EXISTING, 0, nullptr));
  SetFilePointer(file.get(), 0x7F000000, nullptr, FILE_BEGIN);
  SetEndOfFile(file.get());
}

DWORD closedAt = 0;

void CALLBACK closeFrame(HWND frame, UINT, UINT_PTR id, DWORD) {
  ::KillTimer(frame, id);
  closedAt = ::GetTickCount();
  ::SendMessage(frame, WM_CLOSE, 0, 0);
}

}  // namespace

TEST_F(DiffWindowTest, ClosesWhileItCompares) {
  const auto manyLines = [](unsigned seed) {
    std::string text;
    for (int i = 0; i < 490'000; ++i)
      text += std::to_string((seed = seed * 1103515245 + 12345) >> 12) + "\n";
    return text;
  };
  const struct {
    const char* what;
    std::function<void()> write;
    UINT milliseconds;  // from the start of the comparison to the end of the window
  } cases[] = {{"bytes", [&] { MakeHuge(m_left), MakeHuge(m_right); }, 50},
               {"lines",
                [&] {
                  m_folder.Write("left.txt", manyLines(1));
                  m_folder.Write("right.txt", manyLines(2));
                },
                400}};
  for (const auto& c : cases) {
    Open("", "");
    c.write();
    ::SetTimer(m_window, 1, c.milliseconds, closeFrame);
    closedAt = 0;
    EXPECT_FALSE(Press(VK_F5)) << "the program is to end";
    ASSERT_NE(closedAt, 0u) << c.what;
    EXPECT_LT(::GetTickCount() - closedAt, 500u) << c.what;
    EXPECT_FALSE(::IsWindow(m_window));
    Close();
  }
}
