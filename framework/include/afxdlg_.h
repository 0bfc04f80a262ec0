// CDialog: a dialog box from a template, which is a resource or lies in memory.
#pragma once

#include "afxwnd_.h"

class AFX_CORE_DATA CDialog : public CWnd {
  DECLARE_DYNAMIC(CDialog)
 public:
  // For a modal dialog from a resource, to be shown with DoModal. The template is looked for in the
  // program and its extension modules. pParentWnd: the owner; null for the main window.
  explicit CDialog(LPCTSTR lpszTemplateName, CWnd* pParentWnd = nullptr);
  explicit CDialog(UINT nIDTemplate, CWnd* pParentWnd = nullptr);
  // Destroys the window if there is one.
  ~CDialog() override;

  // A modeless dialog. FALSE: no such template, or the window could not be created.
  BOOL Create(LPCTSTR lpszTemplateName, CWnd* pParentWnd = nullptr);
  BOOL Create(UINT nIDTemplate, CWnd* pParentWnd = nullptr);
  // The template is only read during the call.
  BOOL CreateIndirect(LPCDLGTEMPLATE lpDialogTemplate, CWnd* pParentWnd = nullptr,
                      void* lpDialogInit = nullptr);

  // For a modal dialog from a template in memory: call before DoModal, and keep the template until
  // that returns. TRUE always.
  BOOL InitModalIndirect(LPCDLGTEMPLATE lpDialogTemplate, CWnd* pParentWnd = nullptr,
                         void* lpDialogInit = nullptr);

  // Shows the dialog and returns when it ends, with the value given to EndDialog: IDOK and IDCANCEL
  // by the buttons with these ids. -1: no such template, or the window could not be created.
  // What an override throws outside of a message, PreTranslateMessage for one, comes out of here;
  // the window is destroyed.
  virtual int DoModal();
  // Ends DoModal, from a handler; the window is destroyed after the handler has returned.
  void EndDialog(int nResult);

  // Moves the focus between controls, as the Tab key does.
  void NextDlgCtrl() const;
  void PrevDlgCtrl() const;
  void GotoDlgCtrl(CWnd* pWndCtrl);

  // The default push button.
  void SetDefID(UINT nID);
  DWORD GetDefID() const;
  void MapDialogRect(LPRECT lpRect) const;  // from dialog units to pixels
  void SetHelpID(UINT nIDR) { m_nIDHelp = nIDR; }

  // The controls exist, the dialog is not shown yet. TRUE: the focus goes to the first control;
  // FALSE: it stays where OnInitDialog has put it.
  virtual BOOL OnInitDialog();
  virtual void OnSetFont(CFont* pFont);

  BOOL PreTranslateMessage(MSG* pMsg) override;
  BOOL OnCmdMsg(UINT nID, int nCode, void* pExtra, AFX_CMDHANDLERINFO* pHandlerInfo) override;
  BOOL CheckAutoCenter() override;

 protected:
  CDialog();  // for modeless dialogs, and modal ones from memory

  // OnOK takes the values from the controls and ends the dialog when they are valid; OnCancel ends
  // it. A modeless dialog overrides both and destroys its window.
  virtual void OnOK();
  virtual void OnCancel();
  virtual void PreInitDialog();

  // Around a modal run: PreModal returns the window to own the dialog, PostModal ends what it
  // began.
  HWND PreModal();
  void PostModal();

  BOOL CreateDlgIndirect(LPCDLGTEMPLATE lpDialogTemplate, CWnd* pParentWnd, HINSTANCE hInst);

  afx_msg LRESULT HandleInitDialog(WPARAM wParam, LPARAM lParam);
  afx_msg LRESULT HandleSetFont(WPARAM wParam, LPARAM lParam);
  DECLARE_MESSAGE_MAP()

  UINT m_nIDHelp;
  LPCTSTR m_lpszTemplateName;         // name or MAKEINTRESOURCE
  LPCDLGTEMPLATE m_lpDialogTemplate;  // of InitModalIndirect
  void* m_lpDialogInit;
  CWnd* m_pParentWnd;
  HWND m_hWndTop;  // the main window, while disabled together with the owner

 private:
  friend struct _AfxDialogAccess;
};
