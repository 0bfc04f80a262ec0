// CWnd: from a message to its handler.

#include <afxwin.h>

#include "windows/message_map.h"
#include "windows/thread_state.h"

namespace {

// All messages about the colours of controls have one line in message maps.
UINT messageInMaps(UINT message) {
  if (message >= WM_CTLCOLORMSGBOX && message <= WM_CTLCOLORSTATIC) return WM_CTLCOLOR;
  if (message >= WM_REFLECT_BASE + WM_CTLCOLORMSGBOX &&
      message <= WM_REFLECT_BASE + WM_CTLCOLORSTATIC)
    return WM_REFLECT_BASE + WM_CTLCOLOR;
  return message;
}

}  // namespace

// Some controls send notifications in packed records, which may stand at any address.
[[gnu::no_sanitize("alignment")]] BOOL CWnd::OnWndMsg(UINT message, WPARAM wParam, LPARAM lParam,
                                                      LRESULT* pResult) {
  switch (message) {
    case WM_COMMAND:
      *pResult = 0;
      return OnCommand(wParam, lParam);
    case WM_NOTIFY:
      *pResult = 0;
      return reinterpret_cast<const NMHDR*>(lParam)->hwndFrom != nullptr &&
             OnNotify(wParam, lParam, pResult);
  }
  const AFX_MSGMAP_ENTRY* const entry = FindMessageEntry(GetMessageMap(), messageInMaps(message));
  if (entry == nullptr) return FALSE;
  return CallHandler(*this, *entry, {m_hWnd, message, wParam, lParam, 0, {0, 0}}, pResult);
}

namespace {

// Asks the update handlers of a command, without an item, whether it is enabled.
class CommandQuestion : public CCmdUI {
 public:
  explicit CommandQuestion(UINT nID) { m_nID = nID; }
  void Enable(BOOL bOn) override {
    enabled = bOn;
    m_bEnableChanged = TRUE;
  }
  void SetCheck(int) override {}
  void SetRadio(BOOL) override {}
  void SetText(LPCTSTR) override {}

  BOOL enabled = TRUE;
};

// A control's notifications are kept from a dialog that is filling it: they are not the user's.
bool isFilling(HWND dialog) { return State().exchanging == dialog; }

}  // namespace

BOOL CWnd::OnCommand(WPARAM wParam, LPARAM lParam) {
  const UINT nID = LOWORD(wParam);
  const int nCode = HIWORD(wParam);
  const HWND control = reinterpret_cast<HWND>(lParam);
  if (control != nullptr) {
    if (isFilling(m_hWnd)) return TRUE;
    if (ReflectLastMsg(control)) return TRUE;
    return nID != 0 && OnCmdMsg(nID, nCode, nullptr, nullptr);
  }
  if (nID == 0) return FALSE;
  // From a menu or a key: not while its update handler disables it.
  CommandQuestion question(nID);
  OnCmdMsg(nID, static_cast<int>(CN_UPDATE_COMMAND_UI), &question, nullptr);
  return !question.enabled || OnCmdMsg(nID, CN_COMMAND, nullptr, nullptr);
}

[[gnu::no_sanitize("alignment")]] BOOL CWnd::OnNotify(WPARAM, LPARAM lParam, LRESULT* pResult) {
  if (isFilling(m_hWnd)) return TRUE;
  NMHDR* const header = reinterpret_cast<NMHDR*>(lParam);
  if (ReflectLastMsg(header->hwndFrom, pResult)) return TRUE;
  AFX_NOTIFY notify = {pResult, header};
  return OnCmdMsg(static_cast<UINT>(header->idFrom), MAKELONG(LOWORD(header->code), WM_NOTIFY),
                  &notify, nullptr);
}

BOOL CWnd::OnCmdMsg(UINT nID, int nCode, void* pExtra, AFX_CMDHANDLERINFO* pHandlerInfo) {
  return CCmdTarget::OnCmdMsg(nID, nCode, pExtra, pHandlerInfo);
}
