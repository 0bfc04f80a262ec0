// CDialog: what it does with its messages.

#include <afxwin.h>

#include "windows/wnd_access.h"

IMPLEMENT_DYNAMIC(CDialog, CWnd)

BEGIN_MESSAGE_MAP(CDialog, CWnd)
ON_COMMAND(IDOK, &CDialog::OnOK)
ON_COMMAND(IDCANCEL, &CDialog::OnCancel)
ON_MESSAGE(WM_INITDIALOG, &CDialog::HandleInitDialog)
ON_MESSAGE(WM_SETFONT, &CDialog::HandleSetFont)
END_MESSAGE_MAP()

CDialog::CDialog()
    : m_nIDHelp(0),
      m_lpszTemplateName(nullptr),
      m_lpDialogTemplate(nullptr),
      m_lpDialogInit(nullptr),
      m_pParentWnd(nullptr),
      m_hWndTop(nullptr) {}

CDialog::CDialog(LPCTSTR lpszTemplateName, CWnd* pParentWnd) : CDialog() {
  m_lpszTemplateName = lpszTemplateName;
  m_pParentWnd = pParentWnd;
  if (IS_INTRESOURCE(lpszTemplateName))
    m_nIDHelp = static_cast<UINT>(reinterpret_cast<UINT_PTR>(lpszTemplateName));
}

CDialog::CDialog(UINT nIDTemplate, CWnd* pParentWnd)
    : CDialog(MAKEINTRESOURCE(nIDTemplate), pParentWnd) {}

CDialog::~CDialog() {
  if (m_hWnd != nullptr) DestroyWindow();
}

// The dialog procedure of the system, which has called the framework's already, answers
// WM_INITDIALOG with a call of the program's dialog procedure, which calls OnInitDialog.
LRESULT CDialog::HandleInitDialog(WPARAM, LPARAM) {
  PreInitDialog();
  return Default();
}

LRESULT CDialog::HandleSetFont(WPARAM wParam, LPARAM) {
  OnSetFont(CFont::FromHandle(reinterpret_cast<HFONT>(wParam)));
  return Default();
}

void CDialog::PreInitDialog() {}
void CDialog::OnSetFont(CFont*) {}

BOOL CDialog::OnInitDialog() {
  // Failing to show the values, the dialog has no meaning.
  if (!UpdateData(FALSE)) EndDialog(-1);
  return TRUE;
}

void CDialog::OnOK() {
  if (UpdateData(TRUE)) EndDialog(IDOK);
}

void CDialog::OnCancel() { EndDialog(IDCANCEL); }

// A modeless dialog is only hidden, as its class has not said how it is destroyed.
void CDialog::EndDialog(int nResult) {
  if ((m_nFlags & (WF_MODALLOOP | WF_CONTINUEMODAL)) != 0)
    EndModalLoop(nResult);
  else
    ShowWindow(SW_HIDE);
}

BOOL CDialog::PreTranslateMessage(MSG* pMsg) {
  return CWnd::PreTranslateMessage(pMsg) || PreTranslateInput(pMsg);
}

// Commands go on to the owner and to the thread's object; notifications of controls, whose ids are
// not those of commands, do not.
BOOL CDialog::OnCmdMsg(UINT nID, int nCode, void* pExtra, AFX_CMDHANDLERINFO* pHandlerInfo) {
  if (CWnd::OnCmdMsg(nID, nCode, pExtra, pHandlerInfo)) return TRUE;
  constexpr UINT kFirstCommand = 0x8000, kLastCommand = 0xEFFF;
  const bool command = nCode == CN_COMMAND || static_cast<UINT>(nCode) == CN_UPDATE_COMMAND_UI;
  if (!command || nID < kFirstCommand || nID > kLastCommand) return FALSE;
  CWnd* const owner = GetParent();
  if (owner != nullptr && owner->OnCmdMsg(nID, nCode, pExtra, pHandlerInfo)) return TRUE;
  CWinThread* const thread = AfxGetThread();
  return thread != nullptr && thread->OnCmdMsg(nID, nCode, pExtra, pHandlerInfo);
}

void CDialog::NextDlgCtrl() const { ::SendMessage(m_hWnd, WM_NEXTDLGCTL, 0, 0); }
void CDialog::PrevDlgCtrl() const { ::SendMessage(m_hWnd, WM_NEXTDLGCTL, 1, 0); }
void CDialog::GotoDlgCtrl(CWnd* pWndCtrl) {
  SendMessage(WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(pWndCtrl->m_hWnd), TRUE);
}
void CDialog::SetDefID(UINT nID) { SendMessage(DM_SETDEFID, nID); }
DWORD CDialog::GetDefID() const {
  return static_cast<DWORD>(::SendMessage(m_hWnd, DM_GETDEFID, 0, 0));
}
void CDialog::MapDialogRect(LPRECT lpRect) const { ::MapDialogRect(m_hWnd, lpRect); }
