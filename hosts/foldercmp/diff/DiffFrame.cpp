#include "foldercmp/diff/DiffFrame.h"

#include <algorithm>
#include <array>
#include <optional>
#include <vector>

#include "foldercmp/common/WindowPlace.h"
#include "foldercmp/diff/BufferedPaint.h"
#include "foldercmp/diff/DiffOperation.h"
#include "foldercmp/diff/diff_ids.h"

namespace {

enum StatusPart { kMessagePart, kLinesPart, kDifferencePart, kOptionsPart, kParts };

// The tool bar's commands; 0 is a gap.
constexpr int kTools[] = {ID_DIFF_NEXT,   ID_DIFF_PREVIOUS, 0, ID_DIFF_FIND,       0,
                          ID_DIFF_RELOAD, ID_DIFF_SWAP,     0, ID_DIFF_IGNORE_CASE};
constexpr int kImageSize = 16;
constexpr COLORREF kImageGround = RGB(255, 0, 255);

constexpr int kLeastBars = 10;  // the window's least height, in those of the find bar
constexpr WindowPlace kPlace = {"Diff"};

CString TitleOf(const CString& title, const CString& path) {
  return title.IsEmpty() ? path : title;
}

}  // namespace

DiffFrame::DiffFrame(const DiffArguments& documents)
    : m_documents(documents),
      m_settings(DiffSettings::Load()),
      m_findBar([this](bool forward) { Find(forward); }, [this] { CloseFindBar(); }) {
  m_documents.leftTitle = TitleOf(documents.leftTitle, documents.left);
  m_documents.rightTitle = TitleOf(documents.rightTitle, documents.right);
  if (documents.options) {
    m_settings.whiteSpaceMode = documents.options->whiteSpaceMode;
    m_settings.ignoreCase = documents.options->ignoreCase;
  }
}

BOOL DiffFrame::Create() {
  if (!LoadFrame(IDR_DIFF)) return FALSE;
  m_view.OnChange([this] { ShowState(); });
  m_view.SetPaneMenu(IDR_DIFF_PANE);
  m_view.SetTabSize(m_settings.tabSize);
  m_view.SetSplitter(m_settings.splitter);
  ShowTitles();
  return TRUE;
}

void DiffFrame::Show() {
  // Two texts side by side want most of the screen.
  CRect work;
  SystemParametersInfo(SPI_GETWORKAREA, 0, work, 0);
  work.DeflateRect(work.Width() / 20, work.Height() / 20);
  MoveWindow(work, FALSE);
  ShowWindow(kPlace.Restore(*this, SW_SHOWNORMAL));
  m_view.Activate(DiffSide::Left);
  UpdateWindow();
}

BOOL DiffFrame::PreCreateWindow(CREATESTRUCT& create) {
  create.style |= WS_CLIPCHILDREN;
  return CFrameWnd::PreCreateWindow(create);
}

BOOL DiffFrame::OnCreateClient(LPCREATESTRUCT, CCreateContext*) {
  return CreateToolBar() && CreateStatusBar() && m_view.Create(this, AFX_IDW_PANE_FIRST) &&
         m_findBar.Create(this, m_settings.matchCase, m_settings.findOnBothSides);
}

bool DiffFrame::CreateToolBar() {
  if (!m_tools.Create(WS_CHILD | WS_VISIBLE | CCS_TOP | CCS_NODIVIDER | TBSTYLE_FLAT |
                          TBSTYLE_LIST | TBSTYLE_TOOLTIPS,
                      CRect(0, 0, 0, 0), this, AFX_IDW_TOOLBAR)) {
    return false;
  }
  CBitmap bitmap;
  const std::size_t count = std::size(kTools) - static_cast<std::size_t>(std::count(
                                                    std::begin(kTools), std::end(kTools), 0));
  m_images.Create(kImageSize, kImageSize, ILC_COLOR24 | ILC_MASK, static_cast<int>(count), 0);
  if (bitmap.LoadBitmap(IDB_DIFF_TOOLS)) m_images.Add(&bitmap, kImageGround);
  m_tools.SetImageList(&m_images);

  CString texts;
  texts.LoadString(IDS_DIFF_TOOLS);
  std::vector<TBBUTTON> buttons;
  int image = 0;
  for (const int command : kTools) {
    TBBUTTON button = {};
    button.fsState = TBSTATE_ENABLED;
    button.fsStyle = BTNS_SEP;
    if (command != 0) {
      CString text;
      AfxExtractSubString(text, texts, image);
      button.iBitmap = image++;
      button.idCommand = command;
      button.fsStyle =
          static_cast<BYTE>(BTNS_AUTOSIZE | BTNS_SHOWTEXT |
                            (command == ID_DIFF_IGNORE_CASE ? BTNS_CHECK : BTNS_BUTTON));
      // The list of texts ends with a second null.
      std::vector<char> list(static_cast<std::size_t>(text.GetLength()) + 2);
      std::copy_n(static_cast<LPCTSTR>(text), text.GetLength(), list.begin());
      button.iString = m_tools.AddStrings(list.data());
    }
    buttons.push_back(button);
  }
  return m_tools.AddButtons(static_cast<int>(buttons.size()), buttons.data());
}

bool DiffFrame::CreateStatusBar() {
  return m_status.CreateEx(0, STATUSCLASSNAME, "",
                           WS_CHILD | WS_VISIBLE | CCS_BOTTOM | SBARS_SIZEGRIP, CRect(0, 0, 0, 0),
                           this, AFX_IDW_STATUS_BAR);
}

void DiffFrame::RecalcLayout(BOOL) {
  if (m_findBar.m_hWnd == nullptr || IsIconic()) return;
  m_tools.AutoSize();
  m_status.SendMessage(WM_SIZE);
  CRect client, tools, status;
  GetClientRect(client);
  m_tools.GetWindowRect(tools);
  m_status.GetWindowRect(status);
  client.top += tools.Height();
  client.bottom -= status.Height();
  if (m_findBar.GetStyle() & WS_VISIBLE) {
    m_findBar.MoveWindow(0, client.top, client.Width(), m_findBar.Height());
    client.top += m_findBar.Height();
  }
  m_view.MoveWindow(0, client.top, client.Width(), std::max(0, static_cast<int>(client.Height())));

  CClientDC dc(&m_status);
  std::optional<Selected<CFont>> font;
  if (CFont* const own = m_status.GetFont()) font.emplace(dc, *own);
  const int unit = dc.GetTextExtent("0", 1).cx;
  // In a narrow window the options give way: what was not found is told in the first part.
  const int rest = std::max(24 * unit, static_cast<int>(client.right) - 94 * unit);
  const std::array<int, kParts> ends = {rest, rest + 24 * unit, rest + 50 * unit, -1};
  m_status.SendMessage(SB_SETPARTS, kParts, reinterpret_cast<LPARAM>(ends.data()));
}

// All of the find bar, and some lines.
void DiffFrame::OnGetMinMaxInfo(MINMAXINFO* info) {
  CFrameWnd::OnGetMinMaxInfo(info);
  if (m_findBar.m_hWnd == nullptr) return;
  info->ptMinTrackSize = CPoint(m_findBar.LeastWidth() + 2 * GetSystemMetrics(SM_CXSIZEFRAME),
                                kLeastBars * m_findBar.Height());
}

// While a comparison runs its window's messages are served; what would change what is shown has to
// wait.
BOOL DiffFrame::OnCommand(WPARAM wParam, LPARAM lParam) {
  const bool isHeld = m_running != nullptr && LOWORD(wParam) != ID_DIFF_CLOSE;
  return isHeld || CFrameWnd::OnCommand(wParam, lParam);
}

// A comparison that is under way ends first: its result goes to this window.
void DiffFrame::OnClose() {
  if (m_running != nullptr) {
    m_closesWhenDone = true;
    m_running->StopLoop();
    return;
  }
  SaveSettings();
  CFrameWnd::OnClose();
}

// The system ends the program without closing its window.
void DiffFrame::OnEndSession(BOOL ends) {
  if (ends) SaveSettings();
  CFrameWnd::OnEndSession(ends);
}

void DiffFrame::SaveSettings() {
  kPlace.Store(*this);
  m_settings.splitter = m_view.splitter();
  m_settings.matchCase = m_findBar.matchCase();
  m_settings.findOnBothSides = m_findBar.bothSides();
  m_settings.Save();
}

// The tool bar shows through.
BOOL DiffFrame::OnEraseBkgnd(CDC* dc) {
  CRect client;
  GetClientRect(client);
  dc->FillSolidRect(client, GetSysColor(COLOR_BTNFACE));
  return TRUE;
}

// What the status bar would say of the command.
void DiffFrame::OnToolTip(UINT, NMHDR* header, LRESULT* result) {
  auto* const tip = reinterpret_cast<TOOLTIPTEXTA*>(header);
  CString text;
  GetMessageString(static_cast<UINT>(header->idFrom), text);
  lstrcpyn(tip->szText, text, static_cast<int>(std::size(tip->szText)));
  *result = 0;
}

// --- What is shown of the state ---

void DiffFrame::ShowTitles() {
  CString title;
  AfxFormatString2(title, IDS_DIFF_TITLE, m_documents.leftTitle, m_documents.rightTitle);
  SetWindowText(title);
  m_view.SetTitles(m_documents.leftTitle, m_documents.rightTitle);
}

void DiffFrame::ShowState() {
  const auto show = [this](int part, const CString& text) {
    m_status.SendMessage(SB_SETTEXT, part, reinterpret_cast<LPARAM>(static_cast<LPCTSTR>(text)));
  };
  show(kMessagePart, CString());
  show(kLinesPart, LinesText());
  show(kDifferencePart, DifferenceText());
  show(kOptionsPart, OptionsText());
  const BOOL hasDifferences = !document().differences().empty();
  m_tools.EnableButton(ID_DIFF_NEXT, hasDifferences);
  m_tools.EnableButton(ID_DIFF_PREVIOUS, hasDifferences);
  m_tools.CheckButton(ID_DIFF_IGNORE_CASE, m_settings.ignoreCase);
}

void DiffFrame::ShowMessage(UINT id) {
  CString text;
  text.LoadString(id);
  m_status.SendMessage(SB_SETTEXT, kMessagePart,
                       reinterpret_cast<LPARAM>(static_cast<LPCTSTR>(text)));
}

CString DiffFrame::DifferenceText() const {
  const int count = static_cast<int>(document().differences().size());
  const int current = m_view.state().CurrentDifference();
  CString text;
  if (current >= 0) {
    text.LoadString(IDS_DIFF_NUMBER);
    text.Format(CString(text), current + 1, count);
  } else if (count > 1) {
    text.LoadString(IDS_DIFF_COUNT);
    text.Format(CString(text), count);
  } else if (document().texts()->AreTexts()) {
    text.LoadString(count == 1 ? IDS_DIFF_ONE : IDS_DIFF_NONE);
  }
  return text;
}

CString DiffFrame::LinesText() const {
  if (document().rowCount() == 0) return CString();
  const DiffRow row = document().RowAt(m_view.state().place.caret());
  const auto number = [](int line) {
    CString text = "-";
    if (line >= 0) text.Format("%d", line + 1);
    return text;
  };
  CString text;
  AfxFormatString2(text, IDS_DIFF_LINES, number(row.left), number(row.right));
  return text;
}

CString DiffFrame::OptionsText() const {
  CString all, text, ignored;
  all.LoadString(IDS_DIFF_WHITE_SPACE_MODES);
  AfxExtractSubString(text, all, m_settings.whiteSpaceMode);
  if (m_settings.ignoreCase) ignored.LoadString(IDS_DIFF_CASE_IGNORED);
  return text + ignored;
}
