// Window messages: what each kind of handler gets, out of the message's parameters.

#include <type_traits>

#include "windows/message_map.h"

namespace {

int lowOf(LPARAM lParam) { return static_cast<short>(LOWORD(lParam)); }
int highOf(LPARAM lParam) { return static_cast<short>(HIWORD(lParam)); }

CWnd* windowOf(WPARAM wParam) { return CWnd::FromHandle(reinterpret_cast<HWND>(wParam)); }
CWnd* windowOf(LPARAM lParam) { return CWnd::FromHandle(reinterpret_cast<HWND>(lParam)); }

// A control that has no object of its class gets a temporary CWnd, of which only members that work
// on the window may be called.
template <class Control>
Control* controlOf(LPARAM lParam) {
  return reinterpret_cast<Control*>(windowOf(lParam));
}

CDC* dcOf(WPARAM wParam) { return CDC::FromHandle(reinterpret_cast<HDC>(wParam)); }
CMenu* menuOf(WPARAM wParam) { return CMenu::FromHandle(reinterpret_cast<HMENU>(wParam)); }

template <class Structure>
Structure* at(LPARAM lParam) {
  return reinterpret_cast<Structure*>(lParam);
}

// Calls the handler of an entry; its result is the message's, 0 for a handler without one.
template <_AfxSig sig, class... Arguments>
LRESULT call(CWnd& window, const AFX_MSGMAP_ENTRY& entry, Arguments... arguments) {
  const auto handler = HandlerOf<sig>(entry);
  if constexpr (std::is_void_v<decltype((window.*handler)(arguments...))>) {
    (window.*handler)(arguments...);
    return 0;
  } else {
    return (LRESULT)(window.*handler)(arguments...);
  }
}

}  // namespace

#define CALL(name, ...) call<_AfxSig##name>(window, entry __VA_OPT__(, ) __VA_ARGS__)

bool CallHandler(CWnd& window, const AFX_MSGMAP_ENTRY& entry, const MSG& message,
                 LRESULT* pResult) {
  const WPARAM w = message.wParam;
  const LPARAM l = message.lParam;
  const int id = static_cast<int>(w);
  LRESULT result = 0;
  // An entry of a registered message keeps the place of its number instead of a signature.
  switch (entry.nSig > _AfxSigLast ? _AfxSigMessage : static_cast<_AfxSig>(entry.nSig)) {
    case _AfxSigVoid:
      result = CALL(Void);
      break;
    case _AfxSigAskBool:
      result = CALL(AskBool);
      break;
    case _AfxSigAskUint:
      result = CALL(AskUint);
      break;
    case _AfxSigAskCursor:
      result = CALL(AskCursor);
      break;
    case _AfxSigBool:
      result = CALL(Bool, static_cast<BOOL>(w));
      break;
    case _AfxSigBoolBool:
      result = CALL(BoolBool, static_cast<BOOL>(w));
      break;
    case _AfxSigCreate:
      result = CALL(Create, at<CREATESTRUCT>(l));
      break;
    case _AfxSigNcCreate:
      result = CALL(NcCreate, at<CREATESTRUCT>(l));
      break;
    case _AfxSigMove:
      result = CALL(Move, lowOf(l), highOf(l));
      break;
    case _AfxSigSize:
      result = CALL(Size, w, LOWORD(l), HIWORD(l));
      break;
    case _AfxSigSizing:
      CALL(Sizing, w, at<RECT>(l));
      result = TRUE;
      break;
    case _AfxSigMinMaxInfo:
      result = CALL(MinMaxInfo, at<MINMAXINFO>(l));
      break;
    case _AfxSigWindowPos:
      result = CALL(WindowPos, at<WINDOWPOS>(l));
      break;
    case _AfxSigShow:
      result = CALL(Show, static_cast<BOOL>(w), static_cast<UINT>(l));
      break;
    case _AfxSigStyle:
      result = CALL(Style, static_cast<int>(w), at<STYLESTRUCT>(l));
      break;
    case _AfxSigActivate:
      result = CALL(Activate, LOWORD(w), windowOf(l), HIWORD(w) != 0);
      break;
    case _AfxSigActivateApp:
      result = CALL(ActivateApp, static_cast<BOOL>(w), static_cast<DWORD>(l));
      break;
    case _AfxSigWindowInWParam:
      result = CALL(WindowInWParam, windowOf(w));
      break;
    case _AfxSigWindowInLParam:
      result = CALL(WindowInLParam, windowOf(l));
      break;
    case _AfxSigMouseActivate:
      result = CALL(MouseActivate, windowOf(w), LOWORD(l), HIWORD(l));
      break;
    case _AfxSigSetCursor:
      result = CALL(SetCursor, windowOf(w), LOWORD(l), HIWORD(l));
      break;
    case _AfxSigEraseBkgnd:
      result = CALL(EraseBkgnd, dcOf(w));
      break;
    case _AfxSigCtlColor:
      result = CALL(CtlColor, dcOf(w), windowOf(l), message.message - WM_CTLCOLORMSGBOX);
      break;
    case _AfxSigCtlColorReflect:
      result =
          CALL(CtlColorReflect, dcOf(w), message.message - WM_REFLECT_BASE - WM_CTLCOLORMSGBOX);
      if (result == 0) return false;  // the parent is asked
      break;
    case _AfxSigNcCalcSize:
      result = CALL(NcCalcSize, static_cast<BOOL>(w), at<NCCALCSIZE_PARAMS>(l));
      break;
    case _AfxSigNcHitTest:
      result = CALL(NcHitTest, CPoint(l));
      break;
    case _AfxSigMouse:
      result = CALL(Mouse, w, CPoint(l));
      break;
    case _AfxSigMouseWheel:
      result = CALL(MouseWheel, LOWORD(w), static_cast<short>(HIWORD(w)), CPoint(l));
      if (result == 0) return false;  // the parent gets the message
      break;
    case _AfxSigKey:
      result = CALL(Key, w, LOWORD(l), HIWORD(l));
      break;
    case _AfxSigHelpInfo:
      result = CALL(HelpInfo, at<HELPINFO>(l));
      break;
    case _AfxSigContextMenu:
      result = CALL(ContextMenu, windowOf(w), CPoint(l));
      break;
    case _AfxSigDropFiles:
      result = CALL(DropFiles, reinterpret_cast<HDROP>(w));
      break;
    case _AfxSigMenu:
      result = CALL(Menu, menuOf(w));
      break;
    case _AfxSigMenuPopup:
      result = CALL(MenuPopup, menuOf(w), LOWORD(l), static_cast<BOOL>(HIWORD(l)));
      break;
    case _AfxSigMenuSelect:
      result = CALL(MenuSelect, LOWORD(w), HIWORD(w), reinterpret_cast<HMENU>(l));
      break;
    case _AfxSigMenuChar:
      result = CALL(MenuChar, LOWORD(w), HIWORD(w), menuOf(static_cast<WPARAM>(l)));
      break;
    case _AfxSigUintLParam:
      result = CALL(UintLParam, w, l);
      break;
    case _AfxSigDrawItem:
      CALL(DrawItem, id, at<DRAWITEMSTRUCT>(l));
      result = TRUE;
      break;
    case _AfxSigMeasureItem:
      CALL(MeasureItem, id, at<MEASUREITEMSTRUCT>(l));
      result = TRUE;
      break;
    case _AfxSigDeleteItem:
      CALL(DeleteItem, id, at<DELETEITEMSTRUCT>(l));
      result = TRUE;
      break;
    case _AfxSigCompareItem:
      result = CALL(CompareItem, id, at<COMPAREITEMSTRUCT>(l));
      break;
    case _AfxSigDrawItemReflect:
      CALL(DrawItemReflect, at<DRAWITEMSTRUCT>(l));
      result = TRUE;
      break;
    case _AfxSigMeasureItemReflect:
      CALL(MeasureItemReflect, at<MEASUREITEMSTRUCT>(l));
      result = TRUE;
      break;
    case _AfxSigDeleteItemReflect:
      CALL(DeleteItemReflect, at<DELETEITEMSTRUCT>(l));
      result = TRUE;
      break;
    case _AfxSigCompareItemReflect:
      result = CALL(CompareItemReflect, at<COMPAREITEMSTRUCT>(l));
      break;
    case _AfxSigKeyToItem:
      result = CALL(KeyToItem, LOWORD(w), controlOf<CListBox>(l), HIWORD(w));
      break;
    case _AfxSigKeyToItemReflect:
      result = CALL(KeyToItemReflect, LOWORD(w), HIWORD(w));
      break;
    case _AfxSigScroll:
      result = CALL(Scroll, LOWORD(w), HIWORD(w), controlOf<CScrollBar>(l));
      break;
    case _AfxSigScrollReflect:
      result = CALL(ScrollReflect, LOWORD(w), HIWORD(w));
      break;
    case _AfxSigTimer:
      result = CALL(Timer, w);
      break;
    case _AfxSigEnterIdle:
      result = CALL(EnterIdle, w, windowOf(l));
      break;
    case _AfxSigSettingChange:
      result = CALL(SettingChange, w, at<const char>(l));
      break;
    case _AfxSigWinIniChange:
      result = CALL(WinIniChange, at<const char>(l));
      break;
    case _AfxSigCopyData:
      result = CALL(CopyData, windowOf(w), at<COPYDATASTRUCT>(l));
      break;
    case _AfxSigMessage:
      result = CALL(Message, w, l);
      break;
    default:
      return false;
  }
  *pResult = result;
  return true;
}
