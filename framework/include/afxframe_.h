// CFrameWnd: a program's main window, with a menu and keys for its commands.
#pragma once

#include "afxwnd_.h"

struct CCreateContext;

// Made with new: it deletes itself when its window is gone.
class AFX_CORE_DATA CFrameWnd : public CWnd {
  DECLARE_DYNCREATE(CFrameWnd)
 public:
  CFrameWnd();
  ~CFrameWnd() override;

  static const CRect rectDefault;  // the system chooses place and size

  // lpszClassName: null for the framework's class of frame windows. lpszMenuName: a menu resource.
  BOOL Create(LPCTSTR lpszClassName, LPCTSTR lpszWindowName, DWORD dwStyle = WS_OVERLAPPEDWINDOW,
              const RECT& rect = rectDefault, CWnd* pParentWnd = nullptr,
              LPCTSTR lpszMenuName = nullptr, DWORD dwExStyle = 0,
              CCreateContext* pContext = nullptr);
  // With icon, menu, accelerators and title (the string up to the first line end) that have the id.
  virtual BOOL LoadFrame(UINT nIDResource, DWORD dwDefaultStyle = WS_OVERLAPPEDWINDOW,
                         CWnd* pParentWnd = nullptr, CCreateContext* pContext = nullptr);
  // A frame has one table; FALSE when there is one already or the resource is missing.
  BOOL LoadAccelTable(LPCTSTR lpszResourceName);

  CString GetTitle() const { return m_strTitle; }
  void SetTitle(LPCTSTR lpszTitle) { m_strTitle = lpszTitle; }

  // Lays out the bars at the edges and the pane AFX_IDW_PANE_FIRST in what they leave.
  virtual void RecalcLayout(BOOL bNotify = TRUE);
  virtual void ActivateFrame(int nCmdShow = -1);

  // The text of the bar AFX_IDW_STATUS_BAR. Commands have their texts in the string table.
  void SetMessageText(LPCTSTR lpszText);
  void SetMessageText(UINT nID);
  virtual CWnd* GetMessageBar();
  virtual void GetMessageString(UINT nID, CString& rMessage) const;

  BOOL PreTranslateMessage(MSG* pMsg) override;
  BOOL OnCmdMsg(UINT nID, int nCode, void* pExtra, AFX_CMDHANDLERINFO* pHandlerInfo) override;

  BOOL m_bAutoMenuEnable;  // items without update handler and command handler are greyed; TRUE

 protected:
  // Creates what fills the frame. FALSE: the frame is not created.
  virtual BOOL OnCreateClient(LPCREATESTRUCT lpcs, CCreateContext* pContext);
  BOOL PreCreateWindow(CREATESTRUCT& cs) override;
  void PostNcDestroy() override;

  afx_msg int OnCreate(LPCREATESTRUCT lpCreateStruct);
  afx_msg void OnClose();
  afx_msg void OnSize(UINT nType, int cx, int cy);
  afx_msg void OnActivate(UINT nState, CWnd* pWndOther, BOOL bMinimized);
  afx_msg void OnSetFocus(CWnd* pOldWnd);
  afx_msg BOOL OnEraseBkgnd(CDC* pDC);
  afx_msg void OnInitMenuPopup(CMenu* pMenu, UINT nIndex, BOOL bSysMenu);
  afx_msg void OnMenuSelect(UINT nItemID, UINT nFlags, HMENU hSysMenu);
  afx_msg LRESULT OnSetMessageString(WPARAM wParam, LPARAM lParam);
  DECLARE_MESSAGE_MAP()

  HACCEL m_hAccelTable;
  CString m_strTitle;
  UINT m_nIDTracking;      // the command whose text is shown
  HWND m_hWndFocusBefore;  // what had the focus when another window was activated
};
