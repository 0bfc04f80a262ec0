// The main window: its parts, their places, its keys, its beginning and end.
#include "foldercmp/MainFrame.h"

#include <algorithm>

#include "foldercmp/HostSettings.h"
#include "foldercmp/HostTexts.h"
#include "foldercmp/MainFrameMessages.h"
#include "foldercmp/common/WindowPlace.h"
#include "foldercmp/resource.h"

BEGIN_MESSAGE_MAP(MainFrame, CFrameWnd)
ON_WM_CLOSE()
ON_WM_DESTROY()
ON_WM_ENDSESSION()
ON_WM_SETFOCUS()
ON_WM_ERASEBKGND()
ON_WM_GETMINMAXINFO()
ON_WM_SETTINGCHANGE()
ON_WM_INITMENUPOPUP()
ON_WM_DROPFILES()
ON_WM_TIMER()
ON_MESSAGE(WM_NEXTDLGCTL, &MainFrame::OnNextControl)
ON_MESSAGE(kCompareMessage, &MainFrame::OnCompareMessage)

ON_COMMAND(ID_CHOOSE_BASE, &MainFrame::OnChooseBase)
ON_COMMAND(ID_CHOOSE_REVISED, &MainFrame::OnChooseRevised)
ON_COMMAND(ID_SWAP, &MainFrame::OnSwap)
ON_COMMAND(ID_COMPARE, &MainFrame::OnCompare)
ON_COMMAND(ID_OPTIONS, &MainFrame::OnOptions)
ON_COMMAND_RANGE(ID_RECENT_FIRST, ID_RECENT_LAST, &MainFrame::OnRecent)
ON_COMMAND(IDOK, &MainFrame::OnEnter)
ON_COMMAND(IDCANCEL, &MainFrame::OnEscape)
ON_BN_CLICKED(IDC_BASE_BROWSE, &MainFrame::OnChooseBase)
ON_BN_CLICKED(IDC_REVISED_BROWSE, &MainFrame::OnChooseRevised)
ON_BN_CLICKED(IDC_COMPARE, &MainFrame::OnCompare)
ON_BN_CLICKED(IDC_SWAP, &MainFrame::OnSwap)

ON_CONTROL(EN_CHANGE, IDC_FILTER_TEXT, &MainFrame::OnFilterTyped)
ON_CONTROL(CBN_SELCHANGE, IDC_FILTER_COLUMN, &MainFrame::OnFilterChosen)
ON_CONTROL_RANGE(BN_CLICKED, IDC_SHOW_FIRST, IDC_SHOW_FIRST + kHideableStates - 1,
                 &MainFrame::OnStateClicked)
ON_COMMAND_RANGE(ID_SHOW_SAME, ID_SHOW_DELETED, &MainFrame::OnShowState)
ON_COMMAND(ID_SHOW_ALL, &MainFrame::OnShowAll)
ON_COMMAND(ID_FILTER, &MainFrame::OnFilter)
ON_COMMAND(ID_CLEAR_FILTER, &MainFrame::OnClearFilter)

ON_COMMAND_RANGE(MListCtrl::CommandOpen, MListCtrl::CommandLast, &MainFrame::OnListCode)
ON_COMMAND(ID_DOCUMENT_OPEN, &MainFrame::OnOpenDocument)
ON_COMMAND_RANGE(ID_DOCUMENT_OPEN_BASE, ID_DOCUMENT_OPEN_REVISED, &MainFrame::OnOpenSide)
ON_COMMAND(ID_REPORT, &MainFrame::OnReport)
ON_COMMAND(ID_REPORT_PAGES, &MainFrame::OnReportPages)
ON_COMMAND(ID_APP_ABOUT, &MainFrame::OnAbout)

ON_UPDATE_COMMAND_UI_RANGE(ID_CHOOSE_BASE, ID_OPTIONS, &MainFrame::OnUpdateIdle)
ON_UPDATE_COMMAND_UI_RANGE(ID_REPORT, ID_REPORT_PAGES, &MainFrame::OnUpdateList)
ON_UPDATE_COMMAND_UI_RANGE(ID_RECENT_FIRST, ID_RECENT_LAST, &MainFrame::OnUpdateRecent)
ON_UPDATE_COMMAND_UI_RANGE(MListCtrl::CommandOpen, MListCtrl::CommandLast, &MainFrame::OnUpdateList)
ON_UPDATE_COMMAND_UI_RANGE(ID_SHOW_SAME, ID_SHOW_DELETED, &MainFrame::OnUpdateState)
ON_UPDATE_COMMAND_UI(ID_SHOW_ALL, &MainFrame::OnUpdateShowAll)
ON_UPDATE_COMMAND_UI(ID_CLEAR_FILTER, &MainFrame::OnUpdateClearFilter)
ON_UPDATE_COMMAND_UI(ID_DOCUMENT_OPEN, &MainFrame::OnUpdateOpen)
ON_UPDATE_COMMAND_UI_RANGE(ID_DOCUMENT_OPEN_BASE, ID_DOCUMENT_OPEN_REVISED,
                           &MainFrame::OnUpdateOpenSide)
END_MESSAGE_MAP()

namespace {

// In dialog units.
constexpr int kMargin = 4, kGap = 4, kLeastWidth = 360, kLeastHeight = 160;

constexpr WindowPlace kPlace = {"Window"};

}  // namespace

// --- Beginning and end ---

BOOL MainFrame::Open() { return LoadFrame(IDR_MAIN, WS_OVERLAPPEDWINDOW | WS_CLIPCHILDREN); }

BOOL MainFrame::OnCreateClient(LPCREATESTRUCT, CCreateContext*) {
  constexpr DWORD kShown = WS_CHILD | WS_VISIBLE, kButton = kShown | WS_TABSTOP | WS_GROUP;
  const CRect noPlace(0, 0, 0, 0);
  if (!m_base.Create(*this, IDC_BASE_LABEL, IDS_BASE_LABEL, IDS_BASE_BROWSE) ||
      !m_compareButton.Create(MString::Loaded(IDS_COMPARE_BUTTON), kButton | BS_DEFPUSHBUTTON,
                              noPlace, this, IDC_COMPARE) ||
      !m_revised.Create(*this, IDC_REVISED_LABEL, IDS_REVISED_LABEL, IDS_REVISED_BROWSE) ||
      !m_swapButton.Create(MString::Loaded(IDS_SWAP_BUTTON), kButton | BS_PUSHBUTTON, noPlace, this,
                           IDC_SWAP) ||
      !m_filterBar.Create(*this) ||
      !m_hint.Create(MString::Loaded(IDS_HINT), kShown | SS_CENTER | SS_CENTERIMAGE, noPlace, this,
                     IDC_HINT) ||
      !m_status.Create(*this))
    return FALSE;
  SetFonts();
  m_statusText = MString::Loaded(IDS_READY);
  m_recent.Load();
  ShowRecentPairs();
  if (!m_recent.Pairs().empty()) ShowPair(m_recent.Pairs().front());
  const ShownDocuments shown =
      LoadShownDocuments({DocumentFilter::kAllStates, static_cast<int>(FilterColumn::Path)},
                         static_cast<int>(FilterColumn::kCount));
  DocumentFilter filter;
  filter.states = shown.states;
  filter.column = static_cast<FilterColumn>(shown.column);
  m_filterBar.SetFilter(filter);
  m_status.ShowCounts(nullptr, m_metrics);
  DragAcceptFiles();
  return TRUE;
}

void MainFrame::Show(int cmdShow) {
  ShowWindow(kPlace.Restore(*this, cmdShow));
  UpdateWindow();
}

void MainFrame::CompareLater(const FolderPair& pair) {
  ShowPair(pair);
  PostMessage(kCompareMessage);
}

// A comparison that is under way ends first: its list is this window's.
void MainFrame::OnClose() {
  if (IsBusy()) {
    m_closesWhenDone = true;
    m_working->StopWork();
    return;
  }
  CFrameWnd::OnClose();
}

void MainFrame::OnDestroy() {
  StoreSettings();
  CFrameWnd::OnDestroy();
}

// The system ends the program without closing its window.
void MainFrame::OnEndSession(BOOL ends) {
  if (ends) StoreSettings();
  CFrameWnd::OnEndSession(ends);
}

void MainFrame::StoreSettings() const {
  kPlace.Store(*this);
  const DocumentFilter filter = m_filterBar.Filter();
  StoreShownDocuments({filter.states, static_cast<int>(filter.column)});
}

// --- Layout ---

void MainFrame::SetFonts() {
  CFont& font = m_metrics.Font();
  m_base.SetFont(font);
  m_revised.SetFont(font);
  m_compareButton.SetFont(&font);
  m_swapButton.SetFont(&font);
  m_filterBar.SetFont(font);
  m_hint.SetFont(&font);
  m_status.SetFont(font);
  if (m_list != nullptr) m_list->SetFont(&font);
}

void MainFrame::OnSettingChange(UINT what, LPCTSTR section) {
  CFrameWnd::OnSettingChange(what, section);
  if (what != SPI_SETNONCLIENTMETRICS) return;
  m_metrics.Update();
  SetFonts();
  RecalcLayout();
}

// From the top: the two folders with a button each, the filter, the list, the status bar.
void MainFrame::RecalcLayout(BOOL) {
  if (m_status.Window() == nullptr) return;  // the parts are not all there yet
  m_status.Place(m_metrics);
  CRect client;
  GetClientRect(client);
  const int margin = m_metrics.Width(kMargin), gap = m_metrics.Width(kGap);
  const int between = m_metrics.Height(kMargin), height = m_base.Height();
  const int labelWidth = std::max(m_base.LabelWidth(m_metrics), m_revised.LabelWidth(m_metrics));
  const int browseWidth = std::max(m_base.ButtonWidth(m_metrics), m_revised.ButtonWidth(m_metrics));
  const int buttonWidth = std::max(m_metrics.TextWidth(MString::Loaded(IDS_COMPARE_BUTTON)),
                                   m_metrics.TextWidth(MString::Loaded(IDS_SWAP_BUTTON))) +
                          m_metrics.Width(14);

  CRect line(margin, between, client.right - margin, between + height);
  const auto placeFolder = [&](FolderBox& box, CButton& button) {
    CRect rest = line;
    rest.right -= buttonWidth + gap;
    box.Place(rest, labelWidth, browseWidth, gap);
    button.MoveWindow(line.right - buttonWidth, line.top, buttonWidth, height);
    line.OffsetRect(0, height + between);
  };
  placeFolder(m_base, m_compareButton);
  placeFolder(m_revised, m_swapButton);
  m_filterBar.Place(line, labelWidth, m_metrics);

  CRect rest(0, line.bottom + between, client.right, client.bottom - m_status.Height());
  rest.bottom = std::max(rest.top, rest.bottom);
  m_hint.MoveWindow(rest);
  if (m_list != nullptr) m_list->MoveWindow(rest);
}

BOOL MainFrame::OnEraseBkgnd(CDC* dc) {
  CRect client;
  GetClientRect(client);
  dc->FillSolidRect(client, GetSysColor(COLOR_BTNFACE));
  return TRUE;
}

void MainFrame::OnGetMinMaxInfo(MINMAXINFO* info) {
  info->ptMinTrackSize = CPoint(m_metrics.Width(kLeastWidth), m_metrics.Height(kLeastHeight));
}

// --- Keys and focus ---

// Keys work as in a dialog: Tab, Enter, Escape, and letters that follow an "&". Other windows have
// their own.
BOOL MainFrame::PreTranslateMessage(MSG* message) {
  if (message->hwnd != m_hWnd && !::IsChild(m_hWnd, message->hwnd)) return FALSE;
  return CFrameWnd::PreTranslateMessage(message) || PreTranslateInput(message);
}

// What a dialog does with this message, by which keys move the focus: to a control, or to the next
// (0) or previous one.
LRESULT MainFrame::OnNextControl(WPARAM control, LPARAM isControl) {
  ::SetFocus(LOWORD(isControl) != 0 ? reinterpret_cast<HWND>(control)
                                    : ::GetNextDlgTabItem(m_hWnd, ::GetFocus(), control != 0));
  return 0;
}

void MainFrame::OnSetFocus(CWnd* before) {
  CFrameWnd::OnSetFocus(before);
  if (::GetFocus() == m_hWnd) m_base.SetFocus();
}

// Enter presses the button that has the focus, and compares otherwise.
void MainFrame::OnEnter() {
  CWnd* const focus = GetFocus();
  const bool isButton =
      focus != nullptr && (focus->SendMessage(WM_GETDLGCODE) & DLGC_UNDEFPUSHBUTTON) != 0;
  if (isButton)
    focus->SendMessage(BM_CLICK);
  else
    Compare();
}

// Escape takes back what is being typed, and else closes the window.
void MainFrame::OnEscape() {
  const bool isInFolders = m_base.HasFocus() || m_revised.HasFocus();
  if (m_filterBar.HasTextFocus() && !m_filterBar.Filter().text.IsEmpty())
    OnClearFilter();
  else if (isInFolders && m_list != nullptr && !TypedPair().IsSame(m_compared))
    ShowPair(m_compared);
  else
    PostMessage(WM_CLOSE);
}
