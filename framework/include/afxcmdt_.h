// CCmdTarget: the root of everything that handles messages and commands, and CCmdUI, through which
// update handlers say how a command stands.
#pragma once

#include "afx.h"

class CCmdTarget;
class CCmdUI;
class CMenu;
class CWnd;

#define afx_msg  // marks a handler that a message map names

typedef void (CCmdTarget::*AFX_PMSG)();

// A line of a message map; the macros of afxmsg_.h make them.
struct AFX_MSGMAP_ENTRY {
  UINT nMessage;  // the message; for a command or a notification the message that carries it
  UINT nCode;     // the notification code; CN_ codes for commands
  UINT nID;       // the first id
  UINT nLastID;   // the last id
  UINT_PTR nSig;  // how the handler is called; for a registered message the place of its number
  AFX_PMSG pfn;
};

struct AFX_MSGMAP {
  const AFX_MSGMAP*(PASCAL* pfnGetBaseMap)();  // null for CCmdTarget alone
  const AFX_MSGMAP_ENTRY* lpEntries;           // ends with an entry whose nSig is 0
};

// In the class; its source has BEGIN_MESSAGE_MAP to END_MESSAGE_MAP.
#define DECLARE_MESSAGE_MAP()                          \
 protected:                                            \
  static const AFX_MSGMAP* PASCAL GetThisMessageMap(); \
  const AFX_MSGMAP* GetMessageMap() const override;

// The lines between name the handlers as &theClass::OnSize. ThisClass stands for theClass.
#define BEGIN_MESSAGE_MAP(theClass, baseClass)                                      \
  const AFX_MSGMAP* theClass::GetMessageMap() const { return GetThisMessageMap(); } \
  const AFX_MSGMAP* PASCAL theClass::GetThisMessageMap() {                          \
    typedef theClass ThisClass [[maybe_unused]];                                    \
    typedef baseClass TheBaseClass;                                                 \
    static const AFX_MSGMAP_ENTRY _messageEntries[] = {
#define END_MESSAGE_MAP()                                                                   \
  { 0, 0, 0, 0, 0, nullptr }                                                                \
  }                                                                                         \
  ;                                                                                         \
  static const AFX_MSGMAP messageMap = {&TheBaseClass::GetThisMessageMap, _messageEntries}; \
  return &messageMap;                                                                       \
  }

// Codes that stand for a command itself and for the question how it stands.
#define CN_COMMAND 0
#define CN_UPDATE_COMMAND_UI (static_cast<UINT>(-1))

// Who handles a command; OnCmdMsg fills it in, instead of calling the handler.
struct AFX_CMDHANDLERINFO {
  CCmdTarget* pTarget;
  AFX_PMSG pmf;
};

// A notification on its way through OnCmdMsg.
struct AFX_NOTIFY {
  LRESULT* pResult;
  NMHDR* pNMHDR;
};

class AFX_CORE_DATA CCmdTarget : public CObject {
  DECLARE_DYNAMIC(CCmdTarget)
 public:
  // Looks for a handler of the command or notification in the object's message map and calls it.
  // Classes override it to pass on what they do not handle. TRUE: handled.
  // nID: the command's or control's id (0 for reflected ones).
  // nCode: CN_COMMAND or CN_UPDATE_COMMAND_UI for commands; for notifications of controls the code,
  // with the message that brought it in the high word when that is not WM_COMMAND.
  // pExtra: the CCmdUI for CN_UPDATE_COMMAND_UI, the AFX_NOTIFY for WM_NOTIFY.
  // pHandlerInfo: not null only asks who would handle it.
  virtual BOOL OnCmdMsg(UINT nID, int nCode, void* pExtra, AFX_CMDHANDLERINFO* pHandlerInfo);

  // The hourglass, between Begin and End, which nest. RestoreWaitCursor brings it back after a
  // message box or dialog has shown another.
  void BeginWaitCursor();
  void EndWaitCursor();
  void RestoreWaitCursor();

 protected:
  CCmdTarget() {}

  static const AFX_MSGMAP* PASCAL GetThisMessageMap();
  virtual const AFX_MSGMAP* GetMessageMap() const;

  friend class CWnd;
  friend class CWinThread;
};

// The menu item of a command, if it has one. Passed to the update handlers of the command, which
// describe the item's state.
class AFX_CORE_DATA CCmdUI {
 public:
  CCmdUI();
  virtual ~CCmdUI() {}

  virtual void Enable(BOOL bOn = TRUE);
  // 0: unchecked, 1: checked, 2: indeterminate.
  virtual void SetCheck(int nCheck = 1);
  // As SetCheck, with the bullet of a radio group in a menu.
  virtual void SetRadio(BOOL bOn = TRUE);
  virtual void SetText(LPCTSTR lpszText);

  // Asks the target's update handlers. bDisableIfNoHandler: an item that no update handler has
  // enabled or disabled is disabled when nobody handles its command. TRUE: an update handler was
  // called.
  BOOL DoUpdate(CCmdTarget* pTarget, BOOL bDisableIfNoHandler);
  // For a handler: another target is to be asked.
  void ContinueRouting() { m_bContinueRouting = TRUE; }

  UINT m_nID;         // the command
  UINT m_nIndex;      // the item's position in the menu
  CMenu* m_pMenu;     // null: there is no item, the command alone is asked about
  CMenu* m_pSubMenu;  // the popup menu that the item opens, if any
  CMenu* m_pParentMenu;
  BOOL m_bEnableChanged;
  BOOL m_bContinueRouting;
  UINT m_nIndexMax;  // the count of the menu's items
};

// The hourglass while the object lives.
class AFX_CORE_DATA CWaitCursor {
 public:
  CWaitCursor();
  ~CWaitCursor();
  CWaitCursor(const CWaitCursor&) = delete;
  void operator=(const CWaitCursor&) = delete;

  void Restore();
};
