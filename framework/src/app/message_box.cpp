// Message boxes titled with the program's name.

#include <afxwin.h>

namespace {

UINT withIcon(UINT nType) {
  if ((nType & MB_ICONMASK) != 0) return nType;
  switch (nType & MB_TYPEMASK) {
    case MB_YESNO:
    case MB_YESNOCANCEL:
      return nType | MB_ICONQUESTION;
    default:
      return nType | MB_ICONEXCLAMATION;
  }
}

int show(LPCTSTR lpszPrompt, UINT nType) {
  HWND top = nullptr;
  CWnd* const owner = CWnd::GetSafeOwner(nullptr, &top);
  // Without an owner, the thread's windows are kept from input all the same.
  if (owner == nullptr) nType |= MB_TASKMODAL;
  const int answer = ::MessageBox(owner != nullptr ? owner->m_hWnd : nullptr, lpszPrompt,
                                  AfxGetAppName(), withIcon(nType));
  if (top != nullptr) ::EnableWindow(top, TRUE);
  return answer;
}

}  // namespace

int CWinApp::DoMessageBox(LPCTSTR lpszPrompt, UINT nType, UINT) { return show(lpszPrompt, nType); }

int AFXAPI AfxMessageBox(LPCTSTR lpszText, UINT nType, UINT nIDHelp) {
  if (CWinApp* const app = AfxGetApp()) return app->DoMessageBox(lpszText, nType, nIDHelp);
  return show(lpszText, nType);
}

int AFXAPI AfxMessageBox(UINT nIDPrompt, UINT nType, UINT nIDHelp) {
  CString text;
  text.LoadString(nIDPrompt);
  return AfxMessageBox(text, nType, nIDHelp == static_cast<UINT>(-1) ? nIDPrompt : nIDHelp);
}
