#include "foldercmp/diff/FindBar.h"

#include <cstring>
#include <utility>

#include "foldercmp/diff/diff_ids.h"

namespace {

// What keeps its meaning in the edit; other keys with Ctrl are the window's.
bool IsEditKey(WPARAM key) { return key < 0x100 && std::strchr("ACVXZ", static_cast<int>(key)); }

}  // namespace

BEGIN_MESSAGE_MAP(FindBar, CDialog)
ON_BN_CLICKED(IDC_DIFF_FIND_PREVIOUS, &FindBar::OnPrevious)
END_MESSAGE_MAP()

FindBar::FindBar(std::function<void(bool forward)> onFind, std::function<void()> onClose)
    : CDialog(IDD_DIFF_FIND), m_onFind(std::move(onFind)), m_onClose(std::move(onClose)) {}

BOOL FindBar::Create(CWnd* parent, bool matchCase, bool bothSides) {
  if (!CDialog::Create(IDD_DIFF_FIND, parent)) return FALSE;
  CheckDlgButton(IDC_DIFF_MATCH_CASE, matchCase);
  CheckDlgButton(IDC_DIFF_BOTH_SIDES, bothSides);
  return TRUE;
}

// The edit is made here as one of Unicode: documents have characters that the system's code page
// lacks.
BOOL FindBar::OnInitDialog() {
  CDialog::OnInitDialog();
  CRect bar, place;
  GetWindowRect(bar);
  m_height = bar.Height();
  GetDlgItem(IDC_DIFF_FIND_RESULT)->GetWindowRect(place);
  m_leastWidth = place.left - bar.left;
  GetDlgItem(IDC_DIFF_FIND_PLACE)->GetWindowRect(place);
  ScreenToClient(place);
  m_text = ::CreateWindowExW(
      WS_EX_CLIENTEDGE, L"EDIT", L"", WS_CHILD | WS_VISIBLE | WS_TABSTOP | ES_AUTOHSCROLL,
      place.left, place.top, place.Width(), place.Height(), m_hWnd,
      reinterpret_cast<HMENU>(static_cast<UINT_PTR>(IDC_DIFF_FIND_TEXT)), nullptr, nullptr);
  ::SendMessageW(m_text, WM_SETFONT, reinterpret_cast<WPARAM>(HFONT(*GetFont())), FALSE);
  // Behind its label in the order of Tab.
  ::SetWindowPos(m_text, *GetDlgItem(IDC_DIFF_FIND_LABEL), 0, 0, 0, 0,
                 SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
  return TRUE;
}

std::string FindBar::text() const {
  std::wstring wide(static_cast<size_t>(::GetWindowTextLengthW(m_text)) + 1, 0);
  wide.resize(
      static_cast<size_t>(::GetWindowTextW(m_text, wide.data(), static_cast<int>(wide.size()))));
  const int units = static_cast<int>(wide.size());
  std::string text(static_cast<size_t>(WideCharToMultiByte(CP_UTF8, 0, wide.data(), units, nullptr,
                                                           0, nullptr, nullptr)),
                   0);
  WideCharToMultiByte(CP_UTF8, 0, wide.data(), units, text.data(), static_cast<int>(text.size()),
                      nullptr, nullptr);
  return text;
}

bool FindBar::matchCase() const { return IsDlgButtonChecked(IDC_DIFF_MATCH_CASE) != 0; }

bool FindBar::bothSides() const { return IsDlgButtonChecked(IDC_DIFF_BOTH_SIDES) != 0; }

void FindBar::ShowResult(const CString& result) { SetDlgItemText(IDC_DIFF_FIND_RESULT, result); }

void FindBar::Edit() {
  ::SetFocus(m_text);
  ::SendMessageW(m_text, EM_SETSEL, 0, -1);
}

bool FindBar::HasFocus() const {
  const HWND focus = ::GetFocus();
  return focus != nullptr && ::IsChild(m_hWnd, focus);
}

BOOL FindBar::PreTranslateMessage(MSG* message) {
  if (message->message == WM_KEYDOWN) {
    const bool isFunction = message->wParam >= VK_F1 && message->wParam <= VK_F24;
    const bool isCommand = ::GetKeyState(VK_CONTROL) < 0 && !IsEditKey(message->wParam) &&
                           message->wParam >= '0' && message->wParam <= 'Z';
    if (isFunction || isCommand) return FALSE;
  }
  return CDialog::PreTranslateMessage(message);
}

void FindBar::OnOK() { m_onFind(::GetKeyState(VK_SHIFT) >= 0); }

void FindBar::OnCancel() { m_onClose(); }

void FindBar::OnPrevious() { m_onFind(false); }
