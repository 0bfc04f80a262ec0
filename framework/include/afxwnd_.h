// CWnd: a window, and the way its messages take to the handlers.
#pragma once

#include "afxcmdt_.h"
#include "afxgeo_.h"

#include <shellapi.h>

// The system's header has a macro of this name, with other parameters than CWnd's member.
#undef GetNextWindow

class CBitmap;
class CDataExchange;
class CDC;
class CFont;
class CFrameWnd;
class CListBox;
class CRgn;
class CScrollBar;

struct CCreateContext;
struct _AfxModalLoop;

// Options of RunModalLoop.
#define MLF_NOIDLEMSG 0x0001   // no WM_ENTERIDLE to the parent
#define MLF_NOKICKIDLE 0x0002  // no WM_KICKIDLE to the window
#define MLF_SHOWONIDLE 0x0004  // show the window when the queue is empty for the first time

// Options of RepositionBars.
#define reposDefault 0
#define reposQuery 1
#define reposExtra 2

// Reflected messages are the parent's messages with this added to their numbers.
#define WM_REFLECT_BASE 0xBC00

// The object and its window are two things: the object is there before the window is created, may
// be attached to a window that exists, and may outlive it. All functions take the window to exist
// unless they say otherwise, pass their arguments to the system's function of the same name and
// return its result; the system's documentation says what they are.
class AFX_CORE_DATA CWnd : public CCmdTarget {
  DECLARE_DYNCREATE(CWnd)
 public:
  HWND m_hWnd;  // null while there is no window

  CWnd();
  // Destroys the window if there is one; then PostNcDestroy and other overridden functions are not
  // called any more.
  ~CWnd() override;

  // Window and object. Objects are found by the windows of the calling thread only.
  // GetSafeHwnd is for an object without a window; it is not for a null pointer.
  HWND GetSafeHwnd() const { return m_hWnd; }
  operator HWND() const { return m_hWnd; }
  BOOL operator==(const CWnd& wnd) const { return wnd.m_hWnd == m_hWnd; }
  BOOL operator!=(const CWnd& wnd) const { return wnd.m_hWnd != m_hWnd; }
  // The object that has the window, or a temporary one, which lives until the thread is idle. Null
  // for a null window.
  static CWnd* PASCAL FromHandle(HWND hWnd);
  static CWnd* PASCAL FromHandlePermanent(HWND hWnd);
  static void PASCAL DeleteTempMap();
  // Makes the window the object's, without subclassing it. FALSE for null.
  BOOL Attach(HWND hWndNew);
  // The object has no window any more; the window goes on as before. Null when it had none.
  HWND Detach();

  // Creation. FALSE when the window could not be created or its OnCreate refused.
  // lpszClassName: null for the framework's own class of child windows.
  virtual BOOL Create(LPCTSTR lpszClassName, LPCTSTR lpszWindowName, DWORD dwStyle,
                      const RECT& rect, CWnd* pParentWnd, UINT nID,
                      CCreateContext* pContext = nullptr);
  BOOL CreateEx(DWORD dwExStyle, LPCTSTR lpszClassName, LPCTSTR lpszWindowName, DWORD dwStyle,
                int x, int y, int nWidth, int nHeight, HWND hWndParent, HMENU nIDorHMenu,
                LPVOID lpParam = nullptr);
  BOOL CreateEx(DWORD dwExStyle, LPCTSTR lpszClassName, LPCTSTR lpszWindowName, DWORD dwStyle,
                const RECT& rect, CWnd* pParentWnd, UINT nID, LPVOID lpParam = nullptr);
  // May be called without a window; FALSE then.
  virtual BOOL DestroyWindow();

  // Subclassing: the window's messages come to the object, and what it does not handle goes to the
  // window's former procedure. FALSE: there is no such window.
  BOOL SubclassWindow(HWND hWnd);
  BOOL SubclassDlgItem(UINT nID, CWnd* pParent);
  // Puts the former procedure back and detaches the window.
  HWND UnsubclassWindow();

  // State, size and place.
  DWORD GetStyle() const;
  DWORD GetExStyle() const;
  // Both return FALSE when nothing changed. nFlags: not 0 for SetWindowPos with these flags too.
  BOOL ModifyStyle(DWORD dwRemove, DWORD dwAdd, UINT nFlags = 0);
  BOOL ModifyStyleEx(DWORD dwRemove, DWORD dwAdd, UINT nFlags = 0);
  BOOL IsWindowVisible() const;
  BOOL IsWindowEnabled() const;
  BOOL EnableWindow(BOOL bEnable = TRUE);
  BOOL IsIconic() const;
  BOOL IsZoomed() const;
  BOOL ShowWindow(int nCmdShow);
  void MoveWindow(int x, int y, int nWidth, int nHeight, BOOL bRepaint = TRUE);
  void MoveWindow(LPCRECT lpRect, BOOL bRepaint = TRUE);
  BOOL SetWindowPos(const CWnd* pWndInsertAfter, int x, int y, int cx, int cy, UINT nFlags);
  UINT ArrangeIconicWindows();
  void BringWindowToTop();
  void CloseWindow();
  BOOL OpenIcon();
  BOOL GetWindowPlacement(WINDOWPLACEMENT* lpwndpl) const;
  BOOL SetWindowPlacement(const WINDOWPLACEMENT* lpwndpl);
  void GetWindowRect(LPRECT lpRect) const;
  void GetClientRect(LPRECT lpRect) const;
  int SetWindowRgn(HRGN hRgn, BOOL bRedraw);
  int GetWindowRgn(HRGN hRgn) const;
  // In the middle of another window: pAlternateOwner, else the owner, for a child its parent. It
  // stays within the work area of the monitor.
  void CenterWindow(CWnd* pAlternateOwner = nullptr);
  enum AdjustType { adjustBorder = 0, adjustOutside = 1 };
  virtual void CalcWindowRect(LPRECT lpClientRect, UINT nAdjustType = adjustBorder);
  // Asks the children from nIDFirst to nIDLast to take their places at the edges, and gives what
  // is left to the child nIDLeftOver.
  void RepositionBars(UINT nIDFirst, UINT nIDLast, UINT nIDLeftOver, UINT nFlag = reposDefault,
                      LPRECT lpRectParam = nullptr, LPCRECT lpRectClient = nullptr,
                      BOOL bStretch = TRUE);
  static const CWnd wndTop, wndBottom, wndTopMost, wndNoTopMost;  // for SetWindowPos

  // Coordinates.
  void ClientToScreen(LPPOINT lpPoint) const;
  void ClientToScreen(LPRECT lpRect) const;
  void ScreenToClient(LPPOINT lpPoint) const;
  void ScreenToClient(LPRECT lpRect) const;
  // pwndTo: null for the screen.
  void MapWindowPoints(CWnd* pwndTo, LPPOINT lpPoint, UINT nCount) const;
  void MapWindowPoints(CWnd* pwndTo, LPRECT lpRect) const;

  // Text, font, icon.
  void SetWindowText(LPCTSTR lpszString);
  int GetWindowText(LPTSTR lpszStringBuf, int nMaxCount) const;
  void GetWindowText(CString& rString) const;
  int GetWindowTextLength() const;
  void SetFont(CFont* pFont, BOOL bRedraw = TRUE);
  CFont* GetFont() const;
  HICON SetIcon(HICON hIcon, BOOL bBigIcon);
  HICON GetIcon(BOOL bBigIcon) const;

  // Painting.
  CDC* BeginPaint(LPPAINTSTRUCT lpPaint);
  void EndPaint(LPPAINTSTRUCT lpPaint);
  CDC* GetDC();
  CDC* GetWindowDC();
  CDC* GetDCEx(CRgn* prgnClip, DWORD flags);
  int ReleaseDC(CDC* pDC);
  void Print(CDC* pDC, DWORD dwFlags) const;
  void PrintClient(CDC* pDC, DWORD dwFlags) const;
  void UpdateWindow();
  void SetRedraw(BOOL bRedraw = TRUE);
  BOOL GetUpdateRect(LPRECT lpRect, BOOL bErase = FALSE);
  int GetUpdateRgn(CRgn* pRgn, BOOL bErase = FALSE);
  void Invalidate(BOOL bErase = TRUE);
  void InvalidateRect(LPCRECT lpRect, BOOL bErase = TRUE);
  void InvalidateRgn(CRgn* pRgn, BOOL bErase = TRUE);
  void ValidateRect(LPCRECT lpRect);
  void ValidateRgn(CRgn* pRgn);
  BOOL RedrawWindow(LPCRECT lpRectUpdate = nullptr, CRgn* prgnUpdate = nullptr,
                    UINT flags = RDW_INVALIDATE | RDW_UPDATENOW | RDW_ERASE);
  BOOL LockWindowUpdate();
  static void PASCAL UnlockWindowUpdate();
  void ShowOwnedPopups(BOOL bShow = TRUE);
  BOOL EnableScrollBar(int nSBFlags, UINT nArrowFlags = ESB_ENABLE_BOTH);

  // Timers.
  UINT_PTR SetTimer(UINT_PTR nIDEvent, UINT nElapse, TIMERPROC lpfnTimer = nullptr);
  BOOL KillTimer(UINT_PTR nIDEvent);

  // Input and activation.
  CWnd* SetFocus();
  static CWnd* PASCAL GetFocus();
  CWnd* SetCapture();
  static CWnd* PASCAL GetCapture();
  CWnd* SetActiveWindow();
  static CWnd* PASCAL GetActiveWindow();
  BOOL SetForegroundWindow();
  static CWnd* PASCAL GetForegroundWindow();
  static CWnd* PASCAL GetDesktopWindow();
  BOOL FlashWindow(BOOL bInvert);
  void DragAcceptFiles(BOOL bAccept = TRUE);
  void CreateCaret(CBitmap* pBitmap);
  void CreateSolidCaret(int nWidth, int nHeight);
  void CreateGrayCaret(int nWidth, int nHeight);
  void ShowCaret();
  void HideCaret();
  static CPoint PASCAL GetCaretPos();
  static void PASCAL SetCaretPos(POINT point);

  // Menus, for windows that are no children.
  CMenu* GetMenu() const;
  BOOL SetMenu(CMenu* pMenu);
  void DrawMenuBar();
  CMenu* GetSystemMenu(BOOL bRevert) const;
  BOOL HiliteMenuItem(CMenu* pMenu, UINT nIDHiliteItem, UINT nHilite);

  // Items of a dialog, or any children with ids.
  int GetDlgCtrlID() const;
  int SetDlgCtrlID(int nID);
  CWnd* GetDlgItem(int nID) const;
  void GetDlgItem(int nID, HWND* phWnd) const;
  void CheckDlgButton(int nIDButton, UINT nCheck);
  void CheckRadioButton(int nIDFirstButton, int nIDLastButton, int nIDCheckButton);
  int GetCheckedRadioButton(int nIDFirstButton, int nIDLastButton) const;
  UINT IsDlgButtonChecked(int nIDButton) const;
  UINT GetDlgItemInt(int nID, BOOL* lpTrans = nullptr, BOOL bSigned = TRUE) const;
  void SetDlgItemInt(int nID, UINT nValue, BOOL bSigned = TRUE);
  int GetDlgItemText(int nID, LPTSTR lpStr, int nMaxCount) const;
  int GetDlgItemText(int nID, CString& rString) const;
  void SetDlgItemText(int nID, LPCTSTR lpszString);
  LRESULT SendDlgItemMessage(int nID, UINT message, WPARAM wParam = 0, LPARAM lParam = 0);
  CWnd* GetNextDlgGroupItem(CWnd* pWndCtl, BOOL bPrevious = FALSE) const;
  CWnd* GetNextDlgTabItem(CWnd* pWndCtl, BOOL bPrevious = FALSE) const;
  int DlgDirList(LPTSTR lpPathSpec, int nIDListBox, int nIDStaticPath, UINT nFileType);
  BOOL DlgDirSelect(LPTSTR lpString, int nSize, int nIDListBox);

  // Scrolling.
  int GetScrollPos(int nBar) const;
  void GetScrollRange(int nBar, LPINT lpMinPos, LPINT lpMaxPos) const;
  int SetScrollPos(int nBar, int nPos, BOOL bRedraw = TRUE);
  void SetScrollRange(int nBar, int nMinPos, int nMaxPos, BOOL bRedraw = TRUE);
  BOOL SetScrollInfo(int nBar, LPSCROLLINFO lpScrollInfo, BOOL bRedraw = TRUE);
  BOOL GetScrollInfo(int nBar, LPSCROLLINFO lpScrollInfo, UINT nMask = SIF_ALL);
  int GetScrollLimit(int nBar);
  void ShowScrollBar(UINT nBar, BOOL bShow = TRUE);
  void ScrollWindow(int xAmount, int yAmount, LPCRECT lpRect = nullptr,
                    LPCRECT lpClipRect = nullptr);
  int ScrollWindowEx(int dx, int dy, LPCRECT lpRectScroll, LPCRECT lpRectClip, CRgn* prgnUpdate,
                     LPRECT lpRectUpdate, UINT flags);

  // Other windows. All return null when there is none.
  CWnd* ChildWindowFromPoint(POINT point) const;
  CWnd* ChildWindowFromPoint(POINT point, UINT nFlags) const;
  static CWnd* PASCAL FindWindow(LPCTSTR lpszClassName, LPCTSTR lpszWindowName);
  static CWnd* PASCAL WindowFromPoint(POINT point);
  CWnd* GetNextWindow(UINT nFlag = GW_HWNDNEXT) const;
  CWnd* GetTopWindow() const;
  CWnd* GetWindow(UINT nCmd) const;
  CWnd* GetLastActivePopup() const;
  BOOL IsChild(const CWnd* pWnd) const;
  CWnd* GetParent() const;
  CWnd* SetParent(CWnd* pWndNewParent);
  // The window that gets this one's notifications: the one set, else the parent.
  CWnd* GetOwner() const;
  void SetOwner(CWnd* pOwnerWnd);
  // The outermost in the chain of parents and owners; of parents alone.
  CWnd* GetTopLevelParent() const;
  CWnd* GetTopLevelOwner() const;
  // The nearest in the chain of parents that is not a child window.
  CWnd* GetParentOwner() const;
  CFrameWnd* GetParentFrame() const;
  CFrameWnd* GetTopLevelFrame() const;
  // The child with the id, at any depth. bOnlyPerm: only if it has a permanent object.
  CWnd* GetDescendantWindow(int nID, BOOL bOnlyPerm = FALSE) const;
  // What owns a dialog or message box: pParent, else the main window, but no child window. When
  // pWndTop is not null it receives the main window if that had to be disabled as well, else null.
  static CWnd* PASCAL GetSafeOwner(CWnd* pParent = nullptr, HWND* pWndTop = nullptr);

  // Messages.
  LRESULT SendMessage(UINT message, WPARAM wParam = 0, LPARAM lParam = 0);
  BOOL PostMessage(UINT message, WPARAM wParam = 0, LPARAM lParam = 0);
  BOOL SendNotifyMessage(UINT message, WPARAM wParam, LPARAM lParam);
  void SendMessageToDescendants(UINT message, WPARAM wParam = 0, LPARAM lParam = 0,
                                BOOL bDeep = TRUE, BOOL bOnlyPerm = FALSE);
  int MessageBox(LPCTSTR lpszText, LPCTSTR lpszCaption = nullptr, UINT nType = MB_OK);

  // The clipboard.
  BOOL OpenClipboard();
  BOOL ChangeClipboardChain(HWND hWndNext);
  HWND SetClipboardViewer();
  static CWnd* PASCAL GetClipboardOwner();
  static CWnd* PASCAL GetClipboardViewer();
  static CWnd* PASCAL GetOpenClipboardWindow();

  // Data of a dialog: from the controls when bSaveAndValidate, else to them. FALSE: a value was
  // not valid, and the user has been told.
  BOOL UpdateData(BOOL bSaveAndValidate = TRUE);

  // Takes messages for the thread until ContinueModal says FALSE; returns what EndModalLoop said,
  // -1 when the program ends or the window is destroyed. dwFlags: MLF_ options.
  int RunModalLoop(DWORD dwFlags = 0);
  // Asked after every message, and before waiting for one.
  virtual BOOL ContinueModal();
  virtual void EndModalLoop(int nResult);

  // Before a message is translated and dispatched: TRUE when it needs no more.
  virtual BOOL PreTranslateMessage(MSG* pMsg);
  BOOL PreTranslateInput(LPMSG lpMsg);
  BOOL IsDialogMessage(LPMSG lpMsg);
  // Calls PreTranslateMessage of the message's window and of its parents and owners, up to
  // hWndStop.
  static BOOL PASCAL WalkPreTranslateTree(HWND hWndStop, MSG* pMsg);

  // Whether the window may be moved to the middle of its owner before it is shown.
  virtual BOOL CheckAutoCenter();

  BOOL OnCmdMsg(UINT nID, int nCode, void* pExtra, AFX_CMDHANDLERINFO* pHandlerInfo) override;

 protected:
  // Every message comes to WindowProc, which looks for a handler with OnWndMsg and calls
  // DefWindowProc when there is none.
  virtual LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam);
  virtual BOOL OnWndMsg(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* pResult);
  virtual LRESULT DefWindowProc(UINT message, WPARAM wParam, LPARAM lParam);
  // The message that is being handled, once more to DefWindowProc.
  LRESULT Default();
  static const MSG* PASCAL GetCurrentMessage();
  // Commands and notifications that reach the window. TRUE: handled.
  virtual BOOL OnCommand(WPARAM wParam, LPARAM lParam);
  virtual BOOL OnNotify(WPARAM wParam, LPARAM lParam, LRESULT* pResult);

  // May change how the window is created.
  virtual BOOL PreCreateWindow(CREATESTRUCT& cs);
  // Before the window's procedure is replaced.
  virtual void PreSubclassWindow();
  // The last word: the window is gone, the object may delete itself.
  virtual void PostNcDestroy();
  virtual void DoDataExchange(CDataExchange* pDX);
  // Where the window's former procedure is kept.
  virtual WNDPROC* GetSuperWndProcAddr();

  // Reflection: a notification that the parent passes back to the control. TRUE: the control has
  // handled it and the parent is not to.
  virtual BOOL OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* pResult);
  BOOL ReflectChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* pResult);
  BOOL SendChildNotifyLastMsg(LRESULT* pResult = nullptr);
  static BOOL PASCAL ReflectLastMsg(HWND hWndChild, LRESULT* pResult = nullptr);

  // Handlers. Each does what the system does with the message, unless its comment says otherwise;
  // a derived class replaces one with its own and names it in its message map.
#include "afxwnd_handlers.inl"

  DECLARE_MESSAGE_MAP()

 protected:
  explicit CWnd(HWND hWnd);  // for the constants of SetWindowPos

  HWND m_hWndOwner;    // set by SetOwner
  UINT m_nFlags;       // WF_ flags
  WNDPROC m_pfnSuper;  // the procedure that was there before the framework's
  int m_nModalResult;  // of EndModalLoop

 private:
  _AfxModalLoop* m_pModalLoop;  // the innermost that runs for this window

  friend class CDialog;
  friend struct _AfxModalLoop;
  friend struct _AfxWndAccess;
};

// Here, before other headers call them.
#include "afxwnd_state.inl"
#include "afxwnd_items.inl"
#include "afxwnd_others.inl"
