// CWnd: parents, owners and descendants.

#include <afxwin.h>

namespace {

bool isChild(HWND window) { return (GetWindowLong(window, GWL_STYLE) & WS_CHILD) != 0; }

// The last window in a chain.
template <class Next>
HWND lastOf(HWND window, Next next) {
  for (HWND further = next(window); further != nullptr; further = next(further)) window = further;
  return window;
}

HWND descendant(HWND parent, int nID, bool onlyPermanent) {
  if (const HWND child = GetDlgItem(parent, nID)) {
    // The item may have a child with its own id.
    if (GetTopWindow(child) != nullptr)
      if (const HWND deeper = descendant(child, nID, onlyPermanent)) return deeper;
    if (!onlyPermanent || CWnd::FromHandlePermanent(child) != nullptr) return child;
  }
  for (HWND child = GetTopWindow(parent); child != nullptr; child = GetWindow(child, GW_HWNDNEXT))
    if (const HWND deeper = descendant(child, nID, onlyPermanent)) return deeper;
  return nullptr;
}

void sendToDescendants(HWND parent, const MSG& message, bool deep, bool onlyPermanent) {
  HWND next;
  for (HWND child = GetTopWindow(parent); child != nullptr; child = next) {
    next = GetWindow(child, GW_HWNDNEXT);  // the child may be gone after the message
    if (!onlyPermanent || CWnd::FromHandlePermanent(child) != nullptr)
      SendMessage(child, message.message, message.wParam, message.lParam);
    if (deep && IsWindow(child)) sendToDescendants(child, message, deep, onlyPermanent);
  }
}

}  // namespace

CWnd* CWnd::GetTopLevelParent() const {
  return FromHandle(lastOf(m_hWnd, [](HWND w) { return ::GetParent(w); }));
}

CWnd* CWnd::GetTopLevelOwner() const {
  const HWND top = ::GetAncestor(m_hWnd, GA_ROOT);
  return FromHandle(lastOf(top, [](HWND w) { return ::GetWindow(w, GW_OWNER); }));
}

CWnd* CWnd::GetParentOwner() const {
  HWND window = m_hWnd;
  do window = ::GetParent(window);
  while (window != nullptr && isChild(window));
  return FromHandle(window);
}

CFrameWnd* CWnd::GetParentFrame() const {
  for (CWnd* window = GetParent(); window != nullptr; window = window->GetParent())
    if (CFrameWnd* const frame = DYNAMIC_DOWNCAST(CFrameWnd, window)) return frame;
  return nullptr;
}

CFrameWnd* CWnd::GetTopLevelFrame() const {
  CFrameWnd* frame = IsKindOf(RUNTIME_CLASS(CFrameWnd))
                         ? static_cast<CFrameWnd*>(const_cast<CWnd*>(this))
                         : GetParentFrame();
  for (CFrameWnd* outer = frame; outer != nullptr; outer = outer->GetParentFrame()) frame = outer;
  return frame;
}

CWnd* CWnd::GetDescendantWindow(int nID, BOOL bOnlyPerm) const {
  const HWND found = descendant(m_hWnd, nID, bOnlyPerm);
  return bOnlyPerm ? FromHandlePermanent(found) : FromHandle(found);
}

void CWnd::SendMessageToDescendants(UINT message, WPARAM wParam, LPARAM lParam, BOOL bDeep,
                                    BOOL bOnlyPerm) {
  sendToDescendants(m_hWnd, {nullptr, message, wParam, lParam, 0, {0, 0}}, bDeep, bOnlyPerm);
}

CWnd* PASCAL CWnd::GetSafeOwner(CWnd* pParent, HWND* pWndTop) {
  CWnd* const chosen = pParent != nullptr ? pParent : AfxGetMainWnd();
  HWND owner = chosen != nullptr ? chosen->m_hWnd : nullptr;
  while (owner != nullptr && isChild(owner)) owner = ::GetParent(owner);
  HWND top = nullptr;
  if (owner != nullptr) {
    top = lastOf(owner, [](HWND w) { return ::GetParent(w); });
    // Another box that is open already owns the next one.
    if (pParent == nullptr) owner = ::GetLastActivePopup(owner);
  }
  if (pWndTop != nullptr) {
    *pWndTop = nullptr;
    if (top != nullptr && top != owner && ::IsWindowEnabled(top)) {
      *pWndTop = top;
      ::EnableWindow(top, FALSE);
    }
  }
  return FromHandle(owner);
}
