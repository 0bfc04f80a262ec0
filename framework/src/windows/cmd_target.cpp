// CCmdTarget: commands and notifications.

#include <afxwin.h>

#include "windows/message_map.h"

IMPLEMENT_DYNAMIC(CCmdTarget, CObject)

const AFX_MSGMAP* CCmdTarget::GetMessageMap() const { return GetThisMessageMap(); }

const AFX_MSGMAP* PASCAL CCmdTarget::GetThisMessageMap() {
  static const AFX_MSGMAP_ENTRY entries[] = {{0, 0, 0, 0, _AfxSigEnd, nullptr}};
  static const AFX_MSGMAP map = {nullptr, entries};
  return &map;
}

BOOL CCmdTarget::OnCmdMsg(UINT nID, int nCode, void* pExtra, AFX_CMDHANDLERINFO* pHandlerInfo) {
  UINT nMessage = HIWORD(nCode);
  UINT nCodeInMaps = LOWORD(nCode);
  if (static_cast<UINT>(nCode) == CN_UPDATE_COMMAND_UI) {
    nMessage = WM_COMMAND;
    nCodeInMaps = CN_UPDATE_COMMAND_UI;
  } else if (nMessage == 0) {
    nMessage = WM_COMMAND;
  }
  const AFX_MSGMAP_ENTRY* const entry =
      FindCommandEntry(GetMessageMap(), nMessage, nCodeInMaps, nID);
  if (entry == nullptr) return FALSE;
  if (pHandlerInfo != nullptr) {
    *pHandlerInfo = {this, entry->pfn};
    return TRUE;
  }
  return CallCommandHandler(*this, *entry, nID, pExtra);
}

bool CallCommandHandler(CCmdTarget& target, const AFX_MSGMAP_ENTRY& entry, UINT nID, void* pExtra) {
  const auto notify = static_cast<AFX_NOTIFY*>(pExtra);
  switch (entry.nSig) {
    case _AfxSigCommand:
      (target.*HandlerOf<_AfxSigCommand>(entry))();
      return true;
    case _AfxSigCommandEx:
      return (target.*HandlerOf<_AfxSigCommandEx>(entry))(nID);
    case _AfxSigCommandRange:
      (target.*HandlerOf<_AfxSigCommandRange>(entry))(nID);
      return true;
    case _AfxSigUpdateUI: {
      const auto ui = static_cast<CCmdUI*>(pExtra);
      ui->m_bContinueRouting = FALSE;
      (target.*HandlerOf<_AfxSigUpdateUI>(entry))(ui);
      const bool handled = !ui->m_bContinueRouting;
      ui->m_bContinueRouting = FALSE;
      return handled;
    }
    case _AfxSigNotify:
      (target.*HandlerOf<_AfxSigNotify>(entry))(notify->pNMHDR, notify->pResult);
      return true;
    case _AfxSigNotifyRange:
      (target.*HandlerOf<_AfxSigNotifyRange>(entry))(nID, notify->pNMHDR, notify->pResult);
      return true;
    case _AfxSigNotifyEx:
      return (target.*HandlerOf<_AfxSigNotifyEx>(entry))(nID, notify->pNMHDR, notify->pResult);
    case _AfxSigControlReflectEx:
      return (target.*HandlerOf<_AfxSigControlReflectEx>(entry))();
    case _AfxSigNotifyReflectEx:
      return (target.*HandlerOf<_AfxSigNotifyReflectEx>(entry))(notify->pNMHDR, notify->pResult);
    default:
      return false;
  }
}
