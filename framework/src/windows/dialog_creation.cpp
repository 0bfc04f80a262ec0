// CDialog: from a template to a window, modal and modeless.

#include <afxwin.h>

#include "controls/common_classes.h"
#include "windows/handler_exceptions.h"
#include "windows/wnd_access.h"

// What the system calls for messages that the framework's window procedure leaves to it.
struct _AfxDialogAccess {
  static INT_PTR CALLBACK Procedure(HWND hWnd, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message != WM_INITDIALOG) return FALSE;
    CDialog* const dialog = DYNAMIC_DOWNCAST(CDialog, CWnd::FromHandlePermanent(hWnd));
    try {
      return dialog == nullptr || dialog->OnInitDialog();
    } catch (...) {
      // No exception can go through the system's dialog manager.
      return ResultOfException({hWnd, message, wParam, lParam, 0, {}});
    }
  }
};

namespace {

// A template in a resource, found through the chain of modules.
struct Template {
  explicit Template(LPCTSTR name) : module(AfxFindResourceHandle(name, RT_DIALOG)) {
    const HRSRC resource = FindResource(module, name, RT_DIALOG);
    if (resource != nullptr)
      contents = static_cast<LPCDLGTEMPLATE>(LockResource(LoadResource(module, resource)));
  }
  HINSTANCE module;
  LPCDLGTEMPLATE contents = nullptr;
};

// The window that PreModal has disabled is enabled again, even if nobody calls PostModal any more.
class DisabledByPreModal {
 public:
  explicit DisabledByPreModal(HWND window) : m_window(window) {}
  ~DisabledByPreModal() {
    if (m_window != nullptr && IsWindow(m_window)) EnableWindow(m_window, TRUE);
  }
  DisabledByPreModal(const DisabledByPreModal&) = delete;
  DisabledByPreModal& operator=(const DisabledByPreModal&) = delete;

 private:
  HWND m_window;
};

// The owner of a modal dialog gets no input while this lives.
class DisabledOwner {
 public:
  explicit DisabledOwner(HWND owner)
      : m_owner(owner != nullptr && IsWindowEnabled(owner) ? owner : nullptr) {
    if (m_owner != nullptr) EnableWindow(m_owner, FALSE);
  }
  ~DisabledOwner() { Enable(); }
  DisabledOwner(const DisabledOwner&) = delete;
  DisabledOwner& operator=(const DisabledOwner&) = delete;

  void Enable() {
    if (m_owner != nullptr) EnableWindow(m_owner, TRUE);
    m_owner = nullptr;
  }

 private:
  HWND m_owner;
};

// Whether a template says where the dialog is to stand: a position that is not the corner's was
// meant.
bool hasPlace(LPCDLGTEMPLATE contents) {
  // An extended template begins with the version 1 and the word 0xFFFF.
  struct [[gnu::packed]] Extended {
    WORD version, signature;
    DWORD helpId, exStyle, style;
    WORD items;
    short x, y, cx, cy;
  };
  const auto extended = reinterpret_cast<const Extended*>(contents);
  const bool isExtended = extended->version == 1 && extended->signature == 0xFFFF;
  const DWORD style = isExtended ? extended->style : contents->style;
  const short x = isExtended ? extended->x : contents->x;
  const short y = isExtended ? extended->y : contents->y;
  return (style & (DS_CENTER | DS_CENTERMOUSE | DS_ABSALIGN)) != 0 || x != 0 || y != 0;
}

}  // namespace

BOOL CDialog::Create(UINT nIDTemplate, CWnd* pParentWnd) {
  return Create(MAKEINTRESOURCE(nIDTemplate), pParentWnd);
}

BOOL CDialog::Create(LPCTSTR lpszTemplateName, CWnd* pParentWnd) {
  m_lpszTemplateName = lpszTemplateName;
  if (m_nIDHelp == 0 && IS_INTRESOURCE(lpszTemplateName))
    m_nIDHelp = static_cast<UINT>(reinterpret_cast<UINT_PTR>(lpszTemplateName));
  const Template resource(lpszTemplateName);
  return CreateDlgIndirect(resource.contents, pParentWnd, resource.module);
}

BOOL CDialog::CreateIndirect(LPCDLGTEMPLATE lpDialogTemplate, CWnd* pParentWnd,
                             void* lpDialogInit) {
  m_lpDialogInit = lpDialogInit;
  return CreateDlgIndirect(lpDialogTemplate, pParentWnd, AfxGetResourceHandle());
}

BOOL CDialog::InitModalIndirect(LPCDLGTEMPLATE lpDialogTemplate, CWnd* pParentWnd,
                                void* lpDialogInit) {
  m_lpDialogTemplate = lpDialogTemplate;
  m_lpDialogInit = lpDialogInit;
  if (pParentWnd != nullptr) m_pParentWnd = pParentWnd;
  return TRUE;
}

BOOL CDialog::CreateDlgIndirect(LPCDLGTEMPLATE lpDialogTemplate, CWnd* pParentWnd,
                                HINSTANCE hInst) {
  if (lpDialogTemplate == nullptr) return FALSE;
  m_nFlags = hasPlace(lpDialogTemplate) ? m_nFlags | WF_PLACED : m_nFlags & ~WF_PLACED;
  RegisterCommonControls();
  CWnd* const owner = pParentWnd != nullptr ? pParentWnd : AfxGetMainWnd();
  HWND window = nullptr;
  if (HookCreation(*this))
    window = ::CreateDialogIndirectParam(hInst, lpDialogTemplate,
                                         owner != nullptr ? owner->m_hWnd : nullptr,
                                         &_AfxDialogAccess::Procedure, 0);
  if (!UnhookCreation()) PostNcDestroy();
  return window != nullptr;
}

HWND CDialog::PreModal() {
  CWnd* const owner = GetSafeOwner(m_pParentWnd, &m_hWndTop);
  return owner != nullptr ? owner->m_hWnd : nullptr;
}

void CDialog::PostModal() {
  if (m_hWndTop != nullptr && ::IsWindow(m_hWndTop)) ::EnableWindow(m_hWndTop, TRUE);
  m_hWndTop = nullptr;
}

int CDialog::DoModal() {
  LPCDLGTEMPLATE contents = m_lpDialogTemplate;
  HINSTANCE module = AfxGetResourceHandle();
  if (m_lpszTemplateName != nullptr) {
    const Template resource(m_lpszTemplateName);
    contents = resource.contents;
    module = resource.module;
  }
  if (contents == nullptr) return -1;

  _AfxModalLoop life(*this);  // a handler may delete the dialog
  const HWND owner = PreModal();
  const DisabledByPreModal top(m_hWndTop);
  DisabledOwner disabled(owner);
  m_nModalResult = -1;
  m_nFlags |= WF_CONTINUEMODAL;  // OnInitDialog may end the dialog already
  try {
    if (CreateDlgIndirect(contents, CWnd::FromHandle(owner), module) && life.hasWindow &&
        (m_nFlags & WF_CONTINUEMODAL) != 0)
      RunModalLoop(MLF_SHOWONIDLE | ((GetStyle() & DS_NOIDLEMSG) != 0 ? MLF_NOIDLEMSG : 0));
  } catch (...) {
    // An override has thrown outside of a message: the caller gets it, without the window.
    disabled.Enable();
    if (life.object != nullptr) DestroyWindow();
    if (life.object != nullptr) PostModal();
    throw;
  }

  // The owner comes back while the dialog is there, or the system would activate another program.
  disabled.Enable();
  if (life.object == nullptr) return -1;
  const int result = m_nModalResult;
  if (owner != nullptr && m_hWnd != nullptr && ::GetActiveWindow() == m_hWnd)
    ::SetActiveWindow(owner);
  DestroyWindow();
  if (life.object != nullptr) PostModal();
  return result;
}

BOOL CDialog::CheckAutoCenter() { return (m_nFlags & WF_PLACED) == 0; }
