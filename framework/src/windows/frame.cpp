// CFrameWnd: creation, layout and closing.

#include <afxpriv.h>

#include "windows/thread_state.h"
#include "windows/window_class.h"

IMPLEMENT_DYNCREATE(CFrameWnd, CWnd)

const CRect CFrameWnd::rectDefault(CW_USEDEFAULT, CW_USEDEFAULT, 0, 0);

BEGIN_MESSAGE_MAP(CFrameWnd, CWnd)
ON_WM_CREATE()
ON_WM_CLOSE()
ON_WM_SIZE()
ON_WM_ACTIVATE()
ON_WM_SETFOCUS()
ON_WM_ERASEBKGND()
ON_WM_INITMENUPOPUP()
ON_WM_MENUSELECT()
ON_MESSAGE(WM_SETMESSAGESTRING, &CFrameWnd::OnSetMessageString)
END_MESSAGE_MAP()

CFrameWnd::CFrameWnd()
    : m_bAutoMenuEnable(TRUE),
      m_hAccelTable(nullptr),
      m_nIDTracking(0),
      m_hWndFocusBefore(nullptr) {
  State().frames.push_back(this);
}

CFrameWnd::~CFrameWnd() {
  auto& frames = State().frames;
  std::erase(frames, this);
  if (frames.empty()) std::vector<CFrameWnd*>().swap(frames);
}

BOOL CFrameWnd::Create(LPCTSTR lpszClassName, LPCTSTR lpszWindowName, DWORD dwStyle,
                       const RECT& rect, CWnd* pParentWnd, LPCTSTR lpszMenuName, DWORD dwExStyle,
                       CCreateContext* pContext) {
  HMENU menu = nullptr;
  if (lpszMenuName != nullptr) {
    menu = ::LoadMenu(AfxFindResourceHandle(lpszMenuName, RT_MENU), lpszMenuName);
    if (menu == nullptr) {
      PostNcDestroy();
      return FALSE;
    }
  }
  m_strTitle = lpszWindowName;
  const CRect place(rect);
  const bool byDefault = place.left == CW_USEDEFAULT;
  const HWND parent = pParentWnd != nullptr ? pParentWnd->m_hWnd : nullptr;
  if (CreateEx(dwExStyle, lpszClassName, lpszWindowName, dwStyle, place.left, place.top,
               byDefault ? CW_USEDEFAULT : place.Width(),
               byDefault ? CW_USEDEFAULT : place.Height(), parent, menu, pContext))
    return TRUE;
  if (menu != nullptr && ::IsMenu(menu)) ::DestroyMenu(menu);
  return FALSE;
}

BOOL CFrameWnd::LoadFrame(UINT nIDResource, DWORD dwDefaultStyle, CWnd* pParentWnd,
                          CCreateContext* pContext) {
  CString all, title;
  if (all.LoadString(nIDResource)) AfxExtractSubString(title, all, 0);
  const LPCTSTR name = MAKEINTRESOURCE(nIDResource);
  const bool hasMenu =
      ::FindResource(AfxFindResourceHandle(name, RT_MENU), name, RT_MENU) != nullptr;
  // A failed Create may have deleted the frame.
  if (!Create(FrameWindowClass(nIDResource), title, dwDefaultStyle, rectDefault, pParentWnd,
              hasMenu ? name : nullptr, 0, pContext))
    return FALSE;
  LoadAccelTable(name);
  return TRUE;
}

BOOL CFrameWnd::LoadAccelTable(LPCTSTR lpszResourceName) {
  if (m_hAccelTable != nullptr) return FALSE;
  const HINSTANCE module = AfxFindResourceHandle(lpszResourceName, RT_ACCELERATOR);
  m_hAccelTable = ::LoadAccelerators(module, lpszResourceName);
  return m_hAccelTable != nullptr;
}

BOOL CFrameWnd::PreCreateWindow(CREATESTRUCT& cs) {
  if (cs.lpszClass == nullptr) cs.lpszClass = FrameWindowClass(0);
  return cs.lpszClass != nullptr;
}

int CFrameWnd::OnCreate(LPCREATESTRUCT lpCreateStruct) {
  if (CWnd::OnCreate(lpCreateStruct) == -1) return -1;
  const auto context = static_cast<CCreateContext*>(lpCreateStruct->lpCreateParams);
  if (!OnCreateClient(lpCreateStruct, context)) return -1;
  PostMessage(WM_SETMESSAGESTRING, AFX_IDS_IDLEMESSAGE);
  RecalcLayout();
  return 0;
}

BOOL CFrameWnd::OnCreateClient(LPCREATESTRUCT, CCreateContext*) { return TRUE; }

void CFrameWnd::OnClose() { DestroyWindow(); }

void CFrameWnd::PostNcDestroy() { delete this; }

void CFrameWnd::OnSize(UINT nType, int cx, int cy) {
  CWnd::OnSize(nType, cx, cy);
  if (nType != SIZE_MINIMIZED) RecalcLayout();
}

void CFrameWnd::RecalcLayout(BOOL) { RepositionBars(0, 0xFFFF, AFX_IDW_PANE_FIRST); }

// The pane covers the frame.
BOOL CFrameWnd::OnEraseBkgnd(CDC* pDC) {
  return ::GetDlgItem(m_hWnd, AFX_IDW_PANE_FIRST) != nullptr || CWnd::OnEraseBkgnd(pDC);
}

void CFrameWnd::ActivateFrame(int nCmdShow) {
  if (nCmdShow == -1)
    nCmdShow = IsIconic() ? SW_RESTORE : IsWindowVisible() ? SW_SHOW : SW_SHOWNORMAL;
  BringWindowToTop();
  ShowWindow(nCmdShow);
}

// The focus comes back to where it was when another window was activated.
void CFrameWnd::OnActivate(UINT nState, CWnd* pWndOther, BOOL bMinimized) {
  if (nState == WA_INACTIVE) {
    const HWND focus = ::GetFocus();
    m_hWndFocusBefore = focus != nullptr && ::IsChild(m_hWnd, focus) ? focus : nullptr;
  }
  CWnd::OnActivate(nState, pWndOther, bMinimized);
}

void CFrameWnd::OnSetFocus(CWnd* pOldWnd) {
  HWND next = m_hWndFocusBefore;
  if (next == nullptr || !::IsChild(m_hWnd, next)) next = ::GetDlgItem(m_hWnd, AFX_IDW_PANE_FIRST);
  if (next != nullptr && ::IsWindowEnabled(next) && ::IsWindowVisible(next))
    ::SetFocus(next);
  else
    CWnd::OnSetFocus(pOldWnd);
}
