// The lines of message maps. A line names a message, command or notification; the handler is a
// member of the class, whose parameters the compiler checks.
#pragma once

#include "afxwnd_.h"
#include "afxthrd_.h"

#include <bit>

// The message of 16-bit Windows that stands for all WM_CTLCOLOR... messages in message maps.
#ifndef WM_CTLCOLOR
#define WM_CTLCOLOR 0x0019
#endif

// How the handlers of window messages are called: name, result, parameters.
#define _AFX_WINDOW_SIGNATURES(S)                  \
  S(Void, void, ())                                \
  S(AskBool, BOOL, ())                             \
  S(AskUint, UINT, ())                             \
  S(AskCursor, HCURSOR, ())                        \
  S(Bool, void, (BOOL))                            \
  S(BoolBool, BOOL, (BOOL))                        \
  S(Create, int, (LPCREATESTRUCT))                 \
  S(NcCreate, BOOL, (LPCREATESTRUCT))              \
  S(Move, void, (int, int))                        \
  S(Size, void, (UINT, int, int))                  \
  S(Sizing, void, (UINT, LPRECT))                  \
  S(MinMaxInfo, void, (MINMAXINFO*))               \
  S(WindowPos, void, (WINDOWPOS*))                 \
  S(Show, void, (BOOL, UINT))                      \
  S(Style, void, (int, LPSTYLESTRUCT))             \
  S(Activate, void, (UINT, CWnd*, BOOL))           \
  S(ActivateApp, void, (BOOL, DWORD))              \
  S(WindowInWParam, void, (CWnd*))                 \
  S(WindowInLParam, void, (CWnd*))                 \
  S(MouseActivate, int, (CWnd*, UINT, UINT))       \
  S(SetCursor, BOOL, (CWnd*, UINT, UINT))          \
  S(EraseBkgnd, BOOL, (CDC*))                      \
  S(CtlColor, HBRUSH, (CDC*, CWnd*, UINT))         \
  S(NcCalcSize, void, (BOOL, NCCALCSIZE_PARAMS*))  \
  S(NcHitTest, UINT, (CPoint))                     \
  S(Mouse, void, (UINT, CPoint))                   \
  S(MouseWheel, BOOL, (UINT, short, CPoint))       \
  S(Key, void, (UINT, UINT, UINT))                 \
  S(HelpInfo, BOOL, (HELPINFO*))                   \
  S(ContextMenu, void, (CWnd*, CPoint))            \
  S(DropFiles, void, (HDROP))                      \
  S(Menu, void, (CMenu*))                          \
  S(MenuPopup, void, (CMenu*, UINT, BOOL))         \
  S(MenuSelect, void, (UINT, UINT, HMENU))         \
  S(MenuChar, LRESULT, (UINT, UINT, CMenu*))       \
  S(UintLParam, void, (UINT, LPARAM))              \
  S(DrawItem, void, (int, LPDRAWITEMSTRUCT))       \
  S(MeasureItem, void, (int, LPMEASUREITEMSTRUCT)) \
  S(DeleteItem, void, (int, LPDELETEITEMSTRUCT))   \
  S(CompareItem, int, (int, LPCOMPAREITEMSTRUCT))  \
  S(KeyToItem, int, (UINT, CListBox*, UINT))       \
  S(Scroll, void, (UINT, UINT, CScrollBar*))       \
  S(Timer, void, (UINT_PTR))                       \
  S(EnterIdle, void, (UINT, CWnd*))                \
  S(SettingChange, void, (UINT, LPCTSTR))          \
  S(WinIniChange, void, (LPCTSTR))                 \
  S(CopyData, BOOL, (CWnd*, COPYDATASTRUCT*))      \
  S(Message, LRESULT, (WPARAM, LPARAM))

// Those of messages that the parent has reflected to the control.
#define _AFX_REFLECT_SIGNATURES(S)                   \
  S(CtlColorReflect, HBRUSH, (CDC*, UINT))           \
  S(DrawItemReflect, void, (LPDRAWITEMSTRUCT))       \
  S(MeasureItemReflect, void, (LPMEASUREITEMSTRUCT)) \
  S(DeleteItemReflect, void, (LPDELETEITEMSTRUCT))   \
  S(CompareItemReflect, int, (LPCOMPAREITEMSTRUCT))  \
  S(KeyToItemReflect, int, (UINT, UINT))             \
  S(ScrollReflect, void, (UINT, UINT))

// Those of commands and notifications, which any command target may handle.
#define _AFX_COMMAND_SIGNATURES(S)               \
  S(Command, void, ())                           \
  S(CommandEx, BOOL, (UINT))                     \
  S(CommandRange, void, (UINT))                  \
  S(UpdateUI, void, (CCmdUI*))                   \
  S(Notify, void, (NMHDR*, LRESULT*))            \
  S(NotifyRange, void, (UINT, NMHDR*, LRESULT*)) \
  S(NotifyEx, BOOL, (UINT, NMHDR*, LRESULT*))    \
  S(ControlReflectEx, BOOL, ())                  \
  S(NotifyReflectEx, BOOL, (NMHDR*, LRESULT*))

#define _AFX_SIGNATURE(name, result, parameters) _AfxSig##name,
enum _AfxSig : UINT_PTR {
  _AfxSigEnd = 0,
  _AFX_WINDOW_SIGNATURES(_AFX_SIGNATURE) _AFX_REFLECT_SIGNATURES(_AFX_SIGNATURE)
      _AFX_COMMAND_SIGNATURES(_AFX_SIGNATURE) _AfxSigThread,
  _AfxSigLast  // greater values are places of registered messages' numbers
};
#undef _AFX_SIGNATURE

template <_AfxSig sig>
struct _AfxHandler;

#define _AFX_SIGNATURE(name, result, parameters) \
  template <>                                    \
  struct _AfxHandler<_AfxSig##name> {            \
    typedef result(CWnd::*Type) parameters;      \
  };
_AFX_WINDOW_SIGNATURES(_AFX_SIGNATURE)
_AFX_REFLECT_SIGNATURES(_AFX_SIGNATURE)
#undef _AFX_SIGNATURE

#define _AFX_SIGNATURE(name, result, parameters)  \
  template <>                                     \
  struct _AfxHandler<_AfxSig##name> {             \
    typedef result(CCmdTarget::*Type) parameters; \
  };
_AFX_COMMAND_SIGNATURES(_AFX_SIGNATURE)
#undef _AFX_SIGNATURE

template <>
struct _AfxHandler<_AfxSigThread> {
  typedef void (CWinThread::*Type)(WPARAM, LPARAM);
};

// A handler as the entry keeps it; whoever calls it turns it back first.
template <_AfxSig sig>
inline AFX_PMSG _AfxKeep(typename _AfxHandler<sig>::Type pfn) {
  return std::bit_cast<AFX_PMSG>(pfn);
}
#define _AFX_HANDLER(sig, memberFxn) \
  _AfxKeep<_AfxSig##sig>(static_cast<_AfxHandler<_AfxSig##sig>::Type>(memberFxn))

#define _AFX_ON(message, code, id, lastId, sig, memberFxn)                                      \
  {message,      static_cast<UINT>(code),     static_cast<UINT>(id), static_cast<UINT>(lastId), \
   _AfxSig##sig, _AFX_HANDLER(sig, memberFxn)},
#define _AFX_ON_WM(message, sig, handler) _AFX_ON(message, 0, 0, 0, sig, &ThisClass::handler)

// Messages of the window. The handler has the name of the message: OnSize for ON_WM_SIZE.
#define ON_WM_CREATE() _AFX_ON_WM(WM_CREATE, Create, OnCreate)
#define ON_WM_NCCREATE() _AFX_ON_WM(WM_NCCREATE, NcCreate, OnNcCreate)
#define ON_WM_CLOSE() _AFX_ON_WM(WM_CLOSE, Void, OnClose)
#define ON_WM_DESTROY() _AFX_ON_WM(WM_DESTROY, Void, OnDestroy)
#define ON_WM_NCDESTROY() _AFX_ON_WM(WM_NCDESTROY, Void, OnNcDestroy)
#define ON_WM_QUERYENDSESSION() _AFX_ON_WM(WM_QUERYENDSESSION, AskBool, OnQueryEndSession)
#define ON_WM_ENDSESSION() _AFX_ON_WM(WM_ENDSESSION, Bool, OnEndSession)

#define ON_WM_MOVE() _AFX_ON_WM(WM_MOVE, Move, OnMove)
#define ON_WM_MOVING() _AFX_ON_WM(WM_MOVING, Sizing, OnMoving)
#define ON_WM_SIZE() _AFX_ON_WM(WM_SIZE, Size, OnSize)
#define ON_WM_SIZING() _AFX_ON_WM(WM_SIZING, Sizing, OnSizing)
#define ON_WM_ENTERSIZEMOVE() _AFX_ON_WM(WM_ENTERSIZEMOVE, Void, OnEnterSizeMove)
#define ON_WM_EXITSIZEMOVE() _AFX_ON_WM(WM_EXITSIZEMOVE, Void, OnExitSizeMove)
#define ON_WM_GETMINMAXINFO() _AFX_ON_WM(WM_GETMINMAXINFO, MinMaxInfo, OnGetMinMaxInfo)
#define ON_WM_WINDOWPOSCHANGING() _AFX_ON_WM(WM_WINDOWPOSCHANGING, WindowPos, OnWindowPosChanging)
#define ON_WM_WINDOWPOSCHANGED() _AFX_ON_WM(WM_WINDOWPOSCHANGED, WindowPos, OnWindowPosChanged)
#define ON_WM_SHOWWINDOW() _AFX_ON_WM(WM_SHOWWINDOW, Show, OnShowWindow)
#define ON_WM_ENABLE() _AFX_ON_WM(WM_ENABLE, Bool, OnEnable)
#define ON_WM_STYLECHANGING() _AFX_ON_WM(WM_STYLECHANGING, Style, OnStyleChanging)
#define ON_WM_STYLECHANGED() _AFX_ON_WM(WM_STYLECHANGED, Style, OnStyleChanged)
#define ON_WM_QUERYOPEN() _AFX_ON_WM(WM_QUERYOPEN, AskBool, OnQueryOpen)
#define ON_WM_QUERYDRAGICON() _AFX_ON_WM(WM_QUERYDRAGICON, AskCursor, OnQueryDragIcon)

#define ON_WM_ACTIVATE() _AFX_ON_WM(WM_ACTIVATE, Activate, OnActivate)
#define ON_WM_ACTIVATEAPP() _AFX_ON_WM(WM_ACTIVATEAPP, ActivateApp, OnActivateApp)
#define ON_WM_SETFOCUS() _AFX_ON_WM(WM_SETFOCUS, WindowInWParam, OnSetFocus)
#define ON_WM_KILLFOCUS() _AFX_ON_WM(WM_KILLFOCUS, WindowInWParam, OnKillFocus)
#define ON_WM_CHILDACTIVATE() _AFX_ON_WM(WM_CHILDACTIVATE, Void, OnChildActivate)
#define ON_WM_CANCELMODE() _AFX_ON_WM(WM_CANCELMODE, Void, OnCancelMode)
#define ON_WM_MOUSEACTIVATE() _AFX_ON_WM(WM_MOUSEACTIVATE, MouseActivate, OnMouseActivate)
#define ON_WM_CAPTURECHANGED() _AFX_ON_WM(WM_CAPTURECHANGED, WindowInLParam, OnCaptureChanged)

#define ON_WM_PAINT() _AFX_ON_WM(WM_PAINT, Void, OnPaint)
#define ON_WM_ERASEBKGND() _AFX_ON_WM(WM_ERASEBKGND, EraseBkgnd, OnEraseBkgnd)
// All messages from WM_CTLCOLORMSGBOX to WM_CTLCOLORSTATIC.
#define ON_WM_CTLCOLOR() _AFX_ON_WM(WM_CTLCOLOR, CtlColor, OnCtlColor)
#define ON_WM_SYSCOLORCHANGE() _AFX_ON_WM(WM_SYSCOLORCHANGE, Void, OnSysColorChange)

#define ON_WM_NCCALCSIZE() _AFX_ON_WM(WM_NCCALCSIZE, NcCalcSize, OnNcCalcSize)
#define ON_WM_NCHITTEST() _AFX_ON_WM(WM_NCHITTEST, NcHitTest, OnNcHitTest)
#define ON_WM_NCPAINT() _AFX_ON_WM(WM_NCPAINT, Void, OnNcPaint)
#define ON_WM_NCACTIVATE() _AFX_ON_WM(WM_NCACTIVATE, BoolBool, OnNcActivate)
#define ON_WM_NCMOUSEMOVE() _AFX_ON_WM(WM_NCMOUSEMOVE, Mouse, OnNcMouseMove)
#define ON_WM_NCLBUTTONDOWN() _AFX_ON_WM(WM_NCLBUTTONDOWN, Mouse, OnNcLButtonDown)
#define ON_WM_NCLBUTTONUP() _AFX_ON_WM(WM_NCLBUTTONUP, Mouse, OnNcLButtonUp)
#define ON_WM_NCLBUTTONDBLCLK() _AFX_ON_WM(WM_NCLBUTTONDBLCLK, Mouse, OnNcLButtonDblClk)
#define ON_WM_NCRBUTTONDOWN() _AFX_ON_WM(WM_NCRBUTTONDOWN, Mouse, OnNcRButtonDown)
#define ON_WM_NCRBUTTONUP() _AFX_ON_WM(WM_NCRBUTTONUP, Mouse, OnNcRButtonUp)
#define ON_WM_NCRBUTTONDBLCLK() _AFX_ON_WM(WM_NCRBUTTONDBLCLK, Mouse, OnNcRButtonDblClk)

#define ON_WM_KEYDOWN() _AFX_ON_WM(WM_KEYDOWN, Key, OnKeyDown)
#define ON_WM_KEYUP() _AFX_ON_WM(WM_KEYUP, Key, OnKeyUp)
#define ON_WM_CHAR() _AFX_ON_WM(WM_CHAR, Key, OnChar)
#define ON_WM_DEADCHAR() _AFX_ON_WM(WM_DEADCHAR, Key, OnDeadChar)
#define ON_WM_SYSKEYDOWN() _AFX_ON_WM(WM_SYSKEYDOWN, Key, OnSysKeyDown)
#define ON_WM_SYSKEYUP() _AFX_ON_WM(WM_SYSKEYUP, Key, OnSysKeyUp)
#define ON_WM_SYSCHAR() _AFX_ON_WM(WM_SYSCHAR, Key, OnSysChar)
#define ON_WM_SYSDEADCHAR() _AFX_ON_WM(WM_SYSDEADCHAR, Key, OnSysDeadChar)
#define ON_WM_HELPINFO() _AFX_ON_WM(WM_HELP, HelpInfo, OnHelpInfo)
#define ON_WM_GETDLGCODE() _AFX_ON_WM(WM_GETDLGCODE, AskUint, OnGetDlgCode)

#define ON_WM_MOUSEMOVE() _AFX_ON_WM(WM_MOUSEMOVE, Mouse, OnMouseMove)
#define ON_WM_MOUSEWHEEL() _AFX_ON_WM(WM_MOUSEWHEEL, MouseWheel, OnMouseWheel)
#define ON_WM_MOUSEHOVER() _AFX_ON_WM(WM_MOUSEHOVER, Mouse, OnMouseHover)
#define ON_WM_MOUSELEAVE() _AFX_ON_WM(WM_MOUSELEAVE, Void, OnMouseLeave)
#define ON_WM_LBUTTONDOWN() _AFX_ON_WM(WM_LBUTTONDOWN, Mouse, OnLButtonDown)
#define ON_WM_LBUTTONUP() _AFX_ON_WM(WM_LBUTTONUP, Mouse, OnLButtonUp)
#define ON_WM_LBUTTONDBLCLK() _AFX_ON_WM(WM_LBUTTONDBLCLK, Mouse, OnLButtonDblClk)
#define ON_WM_MBUTTONDOWN() _AFX_ON_WM(WM_MBUTTONDOWN, Mouse, OnMButtonDown)
#define ON_WM_MBUTTONUP() _AFX_ON_WM(WM_MBUTTONUP, Mouse, OnMButtonUp)
#define ON_WM_MBUTTONDBLCLK() _AFX_ON_WM(WM_MBUTTONDBLCLK, Mouse, OnMButtonDblClk)
#define ON_WM_RBUTTONDOWN() _AFX_ON_WM(WM_RBUTTONDOWN, Mouse, OnRButtonDown)
#define ON_WM_RBUTTONUP() _AFX_ON_WM(WM_RBUTTONUP, Mouse, OnRButtonUp)
#define ON_WM_RBUTTONDBLCLK() _AFX_ON_WM(WM_RBUTTONDBLCLK, Mouse, OnRButtonDblClk)
#define ON_WM_SETCURSOR() _AFX_ON_WM(WM_SETCURSOR, SetCursor, OnSetCursor)
#define ON_WM_CONTEXTMENU() _AFX_ON_WM(WM_CONTEXTMENU, ContextMenu, OnContextMenu)
#define ON_WM_DROPFILES() _AFX_ON_WM(WM_DROPFILES, DropFiles, OnDropFiles)

#define ON_WM_INITMENU() _AFX_ON_WM(WM_INITMENU, Menu, OnInitMenu)
#define ON_WM_INITMENUPOPUP() _AFX_ON_WM(WM_INITMENUPOPUP, MenuPopup, OnInitMenuPopup)
#define ON_WM_MENUSELECT() _AFX_ON_WM(WM_MENUSELECT, MenuSelect, OnMenuSelect)
#define ON_WM_MENUCHAR() _AFX_ON_WM(WM_MENUCHAR, MenuChar, OnMenuChar)
#define ON_WM_ENTERMENULOOP() _AFX_ON_WM(WM_ENTERMENULOOP, Bool, OnEnterMenuLoop)
#define ON_WM_EXITMENULOOP() _AFX_ON_WM(WM_EXITMENULOOP, Bool, OnExitMenuLoop)
#define ON_WM_SYSCOMMAND() _AFX_ON_WM(WM_SYSCOMMAND, UintLParam, OnSysCommand)

#define ON_WM_DRAWITEM() _AFX_ON_WM(WM_DRAWITEM, DrawItem, OnDrawItem)
#define ON_WM_MEASUREITEM() _AFX_ON_WM(WM_MEASUREITEM, MeasureItem, OnMeasureItem)
#define ON_WM_DELETEITEM() _AFX_ON_WM(WM_DELETEITEM, DeleteItem, OnDeleteItem)
#define ON_WM_COMPAREITEM() _AFX_ON_WM(WM_COMPAREITEM, CompareItem, OnCompareItem)
#define ON_WM_VKEYTOITEM() _AFX_ON_WM(WM_VKEYTOITEM, KeyToItem, OnVKeyToItem)
#define ON_WM_CHARTOITEM() _AFX_ON_WM(WM_CHARTOITEM, KeyToItem, OnCharToItem)
#define ON_WM_HSCROLL() _AFX_ON_WM(WM_HSCROLL, Scroll, OnHScroll)
#define ON_WM_VSCROLL() _AFX_ON_WM(WM_VSCROLL, Scroll, OnVScroll)
#define ON_WM_PARENTNOTIFY() _AFX_ON_WM(WM_PARENTNOTIFY, UintLParam, OnParentNotify)

#define ON_WM_TIMER() _AFX_ON_WM(WM_TIMER, Timer, OnTimer)
#define ON_WM_ENTERIDLE() _AFX_ON_WM(WM_ENTERIDLE, EnterIdle, OnEnterIdle)
#define ON_WM_SETTINGCHANGE() _AFX_ON_WM(WM_SETTINGCHANGE, SettingChange, OnSettingChange)
#define ON_WM_WININICHANGE() _AFX_ON_WM(WM_WININICHANGE, WinIniChange, OnWinIniChange)
#define ON_WM_TIMECHANGE() _AFX_ON_WM(WM_TIMECHANGE, Void, OnTimeChange)
#define ON_WM_COPYDATA() _AFX_ON_WM(WM_COPYDATA, CopyData, OnCopyData)

// Messages that the parent has reflected: the handler is named as the message.
#define ON_WM_CTLCOLOR_REFLECT() \
  _AFX_ON_WM(WM_REFLECT_BASE + WM_CTLCOLOR, CtlColorReflect, CtlColor)
#define ON_WM_DRAWITEM_REFLECT() \
  _AFX_ON_WM(WM_REFLECT_BASE + WM_DRAWITEM, DrawItemReflect, DrawItem)
#define ON_WM_MEASUREITEM_REFLECT() \
  _AFX_ON_WM(WM_REFLECT_BASE + WM_MEASUREITEM, MeasureItemReflect, MeasureItem)
#define ON_WM_DELETEITEM_REFLECT() \
  _AFX_ON_WM(WM_REFLECT_BASE + WM_DELETEITEM, DeleteItemReflect, DeleteItem)
#define ON_WM_COMPAREITEM_REFLECT() \
  _AFX_ON_WM(WM_REFLECT_BASE + WM_COMPAREITEM, CompareItemReflect, CompareItem)
#define ON_WM_VKEYTOITEM_REFLECT() \
  _AFX_ON_WM(WM_REFLECT_BASE + WM_VKEYTOITEM, KeyToItemReflect, VKeyToItem)
#define ON_WM_CHARTOITEM_REFLECT() \
  _AFX_ON_WM(WM_REFLECT_BASE + WM_CHARTOITEM, KeyToItemReflect, CharToItem)
#define ON_WM_HSCROLL_REFLECT() _AFX_ON_WM(WM_REFLECT_BASE + WM_HSCROLL, ScrollReflect, HScroll)
#define ON_WM_VSCROLL_REFLECT() _AFX_ON_WM(WM_REFLECT_BASE + WM_VSCROLL, ScrollReflect, VScroll)
#define ON_WM_PARENTNOTIFY_REFLECT() \
  _AFX_ON_WM(WM_REFLECT_BASE + WM_PARENTNOTIFY, UintLParam, ParentNotify)

// Any message: LRESULT handler(WPARAM, LPARAM).
#define ON_MESSAGE(message, memberFxn) _AFX_ON(message, 0, 0, 0, Message, memberFxn)
// The same for a message from RegisterWindowMessage, whose number is in the variable.
#define ON_REGISTERED_MESSAGE(nMessageVariable, memberFxn)                  \
  {0xC000,                                                                  \
   0,                                                                       \
   0,                                                                       \
   0,                                                                       \
   reinterpret_cast<UINT_PTR>(static_cast<const UINT*>(&nMessageVariable)), \
   _AFX_HANDLER(Message, memberFxn)},
// A message to the thread: void handler(WPARAM, LPARAM), of a class derived from CWinThread.
#define ON_THREAD_MESSAGE(message, memberFxn) _AFX_ON(message, 0, 0, 0, Thread, memberFxn)
#define ON_REGISTERED_THREAD_MESSAGE(nMessageVariable, memberFxn)           \
  {0xC000,                                                                  \
   0,                                                                       \
   0,                                                                       \
   0,                                                                       \
   reinterpret_cast<UINT_PTR>(static_cast<const UINT*>(&nMessageVariable)), \
   _AFX_HANDLER(Thread, memberFxn)},

// Commands of menus, keys and buttons: void handler(), for a range void handler(UINT id). The EX
// handlers are BOOL handler(UINT id), FALSE to let others handle the command too.
#define ON_COMMAND(id, memberFxn) _AFX_ON(WM_COMMAND, CN_COMMAND, id, id, Command, memberFxn)
#define ON_COMMAND_RANGE(id, idLast, memberFxn) \
  _AFX_ON(WM_COMMAND, CN_COMMAND, id, idLast, CommandRange, memberFxn)
#define ON_COMMAND_EX(id, memberFxn) _AFX_ON(WM_COMMAND, CN_COMMAND, id, id, CommandEx, memberFxn)
#define ON_COMMAND_EX_RANGE(id, idLast, memberFxn) \
  _AFX_ON(WM_COMMAND, CN_COMMAND, id, idLast, CommandEx, memberFxn)
// How the command stands: void handler(CCmdUI*).
#define ON_UPDATE_COMMAND_UI(id, memberFxn) \
  _AFX_ON(WM_COMMAND, CN_UPDATE_COMMAND_UI, id, id, UpdateUI, memberFxn)
#define ON_UPDATE_COMMAND_UI_RANGE(id, idLast, memberFxn) \
  _AFX_ON(WM_COMMAND, CN_UPDATE_COMMAND_UI, id, idLast, UpdateUI, memberFxn)

// Notifications of controls by WM_COMMAND: void handler(), for a range void handler(UINT id).
#define ON_CONTROL(wNotifyCode, id, memberFxn) \
  _AFX_ON(WM_COMMAND, wNotifyCode, id, id, Command, memberFxn)
#define ON_CONTROL_RANGE(wNotifyCode, id, idLast, memberFxn) \
  _AFX_ON(WM_COMMAND, wNotifyCode, id, idLast, CommandRange, memberFxn)
// The control's own handler, before the parent is asked. The EX handler is BOOL handler(), FALSE to
// let the parent handle it too.
#define ON_CONTROL_REFLECT(wNotifyCode, memberFxn) \
  _AFX_ON(WM_REFLECT_BASE + WM_COMMAND, wNotifyCode, 0, 0, Command, memberFxn)
#define ON_CONTROL_REFLECT_EX(wNotifyCode, memberFxn) \
  _AFX_ON(WM_REFLECT_BASE + WM_COMMAND, wNotifyCode, 0, 0, ControlReflectEx, memberFxn)

// By WM_NOTIFY: void handler(NMHDR*, LRESULT*), for a range and EX with a UINT id before. EX
// handlers return BOOL, FALSE to let others handle it too.
#define ON_NOTIFY(wNotifyCode, id, memberFxn) \
  _AFX_ON(WM_NOTIFY, LOWORD(wNotifyCode), id, id, Notify, memberFxn)
#define ON_NOTIFY_RANGE(wNotifyCode, id, idLast, memberFxn) \
  _AFX_ON(WM_NOTIFY, LOWORD(wNotifyCode), id, idLast, NotifyRange, memberFxn)
#define ON_NOTIFY_EX(wNotifyCode, id, memberFxn) \
  _AFX_ON(WM_NOTIFY, LOWORD(wNotifyCode), id, id, NotifyEx, memberFxn)
#define ON_NOTIFY_EX_RANGE(wNotifyCode, id, idLast, memberFxn) \
  _AFX_ON(WM_NOTIFY, LOWORD(wNotifyCode), id, idLast, NotifyEx, memberFxn)
// The control's own. The EX handler is BOOL handler(NMHDR*, LRESULT*).
#define ON_NOTIFY_REFLECT(wNotifyCode, memberFxn) \
  _AFX_ON(WM_REFLECT_BASE + WM_NOTIFY, LOWORD(wNotifyCode), 0, 0, Notify, memberFxn)
#define ON_NOTIFY_REFLECT_EX(wNotifyCode, memberFxn) \
  _AFX_ON(WM_REFLECT_BASE + WM_NOTIFY, LOWORD(wNotifyCode), 0, 0, NotifyReflectEx, memberFxn)

// The notifications of the standard controls, by name.
#define ON_STN_CLICKED(id, memberFxn) ON_CONTROL(STN_CLICKED, id, memberFxn)
#define ON_STN_DBLCLK(id, memberFxn) ON_CONTROL(STN_DBLCLK, id, memberFxn)
#define ON_STN_ENABLE(id, memberFxn) ON_CONTROL(STN_ENABLE, id, memberFxn)
#define ON_STN_DISABLE(id, memberFxn) ON_CONTROL(STN_DISABLE, id, memberFxn)

#define ON_BN_CLICKED(id, memberFxn) ON_CONTROL(BN_CLICKED, id, memberFxn)
#define ON_BN_DOUBLECLICKED(id, memberFxn) ON_CONTROL(BN_DOUBLECLICKED, id, memberFxn)
#define ON_BN_SETFOCUS(id, memberFxn) ON_CONTROL(BN_SETFOCUS, id, memberFxn)
#define ON_BN_KILLFOCUS(id, memberFxn) ON_CONTROL(BN_KILLFOCUS, id, memberFxn)

#define ON_EN_CHANGE(id, memberFxn) ON_CONTROL(EN_CHANGE, id, memberFxn)
#define ON_EN_UPDATE(id, memberFxn) ON_CONTROL(EN_UPDATE, id, memberFxn)
#define ON_EN_SETFOCUS(id, memberFxn) ON_CONTROL(EN_SETFOCUS, id, memberFxn)
#define ON_EN_KILLFOCUS(id, memberFxn) ON_CONTROL(EN_KILLFOCUS, id, memberFxn)
#define ON_EN_ERRSPACE(id, memberFxn) ON_CONTROL(EN_ERRSPACE, id, memberFxn)
#define ON_EN_MAXTEXT(id, memberFxn) ON_CONTROL(EN_MAXTEXT, id, memberFxn)
#define ON_EN_HSCROLL(id, memberFxn) ON_CONTROL(EN_HSCROLL, id, memberFxn)
#define ON_EN_VSCROLL(id, memberFxn) ON_CONTROL(EN_VSCROLL, id, memberFxn)

#define ON_LBN_SELCHANGE(id, memberFxn) ON_CONTROL(LBN_SELCHANGE, id, memberFxn)
#define ON_LBN_DBLCLK(id, memberFxn) ON_CONTROL(LBN_DBLCLK, id, memberFxn)
#define ON_LBN_SELCANCEL(id, memberFxn) ON_CONTROL(LBN_SELCANCEL, id, memberFxn)
#define ON_LBN_SETFOCUS(id, memberFxn) ON_CONTROL(LBN_SETFOCUS, id, memberFxn)
#define ON_LBN_KILLFOCUS(id, memberFxn) ON_CONTROL(LBN_KILLFOCUS, id, memberFxn)
#define ON_LBN_ERRSPACE(id, memberFxn) ON_CONTROL(LBN_ERRSPACE, id, memberFxn)

#define ON_CBN_SELCHANGE(id, memberFxn) ON_CONTROL(CBN_SELCHANGE, id, memberFxn)
#define ON_CBN_DBLCLK(id, memberFxn) ON_CONTROL(CBN_DBLCLK, id, memberFxn)
#define ON_CBN_SETFOCUS(id, memberFxn) ON_CONTROL(CBN_SETFOCUS, id, memberFxn)
#define ON_CBN_KILLFOCUS(id, memberFxn) ON_CONTROL(CBN_KILLFOCUS, id, memberFxn)
#define ON_CBN_EDITCHANGE(id, memberFxn) ON_CONTROL(CBN_EDITCHANGE, id, memberFxn)
#define ON_CBN_EDITUPDATE(id, memberFxn) ON_CONTROL(CBN_EDITUPDATE, id, memberFxn)
#define ON_CBN_DROPDOWN(id, memberFxn) ON_CONTROL(CBN_DROPDOWN, id, memberFxn)
#define ON_CBN_CLOSEUP(id, memberFxn) ON_CONTROL(CBN_CLOSEUP, id, memberFxn)
#define ON_CBN_SELENDOK(id, memberFxn) ON_CONTROL(CBN_SELENDOK, id, memberFxn)
#define ON_CBN_SELENDCANCEL(id, memberFxn) ON_CONTROL(CBN_SELENDCANCEL, id, memberFxn)
#define ON_CBN_ERRSPACE(id, memberFxn) ON_CONTROL(CBN_ERRSPACE, id, memberFxn)
