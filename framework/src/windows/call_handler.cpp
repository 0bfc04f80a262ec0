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

// What a handler without a result answers for it.
LRESULT answerWithout(UINT_PTR sig) {
  switch (sig) {
    case _AfxSigSizing:
    case _AfxSigDrawItem:
    case _AfxSigMeasureItem:
    case _AfxSigDeleteItem:
    case _AfxSigDrawItemReflect:
    case _AfxSigMeasureItemReflect:
    case _AfxSigDeleteItemReflect:
      return TRUE;  // the message has been handled
    default:
      return 0;
  }
}

// Handlers whose 0 means that somebody else is to have the message: the parent.
bool passesOnZero(UINT_PTR sig) {
  return sig == _AfxSigCtlColorReflect || sig == _AfxSigMouseWheel;
}

// Calls the handler of an entry; its result is the message's.
template <_AfxSig sig, class... Arguments>
LRESULT call(CWnd& window, const AFX_MSGMAP_ENTRY& entry, Arguments... arguments) {
  const auto handler = HandlerOf<sig>(entry);
  if constexpr (std::is_void_v<decltype((window.*handler)(arguments...))>) {
    (window.*handler)(arguments...);
    return answerWithout(sig);
  } else {
    return (LRESULT)(window.*handler)(arguments...);
  }
}

}  // namespace

#define CALL(name, ...)                                                       \
  case _AfxSig##name:                                                         \
    *pResult = call<_AfxSig##name>(window, entry __VA_OPT__(, ) __VA_ARGS__); \
    break

bool CallHandler(CWnd& window, const AFX_MSGMAP_ENTRY& entry, const MSG& message,
                 LRESULT* pResult) {
  const WPARAM w = message.wParam;
  const LPARAM l = message.lParam;
  const int id = static_cast<int>(w);
  const BOOL truth = static_cast<BOOL>(w);
  // An entry of a registered message keeps the place of its number instead of a signature.
  const UINT_PTR sig = entry.nSig < _AfxSigLast ? entry.nSig : _AfxSigMessage;
  switch (sig) {
    CALL(Void);
    CALL(AskBool);
    CALL(AskUint);
    CALL(AskCursor);
    CALL(Bool, truth);
    CALL(BoolBool, truth);
    CALL(Create, at<CREATESTRUCT>(l));
    CALL(NcCreate, at<CREATESTRUCT>(l));
    CALL(Move, lowOf(l), highOf(l));
    CALL(Size, w, LOWORD(l), HIWORD(l));
    CALL(Sizing, w, at<RECT>(l));
    CALL(MinMaxInfo, at<MINMAXINFO>(l));
    CALL(WindowPos, at<WINDOWPOS>(l));
    CALL(Show, truth, static_cast<UINT>(l));
    CALL(Style, id, at<STYLESTRUCT>(l));
    CALL(Activate, LOWORD(w), windowOf(l), HIWORD(w) != 0);
    CALL(ActivateApp, truth, static_cast<DWORD>(l));
    CALL(WindowInWParam, windowOf(w));
    CALL(WindowInLParam, windowOf(l));
    CALL(MouseActivate, windowOf(w), LOWORD(l), HIWORD(l));
    CALL(SetCursor, windowOf(w), LOWORD(l), HIWORD(l));
    CALL(EraseBkgnd, dcOf(w));
    CALL(CtlColor, dcOf(w), windowOf(l), message.message - WM_CTLCOLORMSGBOX);
    CALL(CtlColorReflect, dcOf(w), message.message - WM_REFLECT_BASE - WM_CTLCOLORMSGBOX);
    CALL(NcCalcSize, truth, at<NCCALCSIZE_PARAMS>(l));
    CALL(NcHitTest, CPoint(l));
    CALL(Mouse, w, CPoint(l));
    CALL(MouseWheel, LOWORD(w), static_cast<short>(HIWORD(w)), CPoint(l));
    CALL(Key, w, LOWORD(l), HIWORD(l));
    CALL(HelpInfo, at<HELPINFO>(l));
    CALL(ContextMenu, windowOf(w), CPoint(l));
    CALL(DropFiles, reinterpret_cast<HDROP>(w));
    CALL(Menu, menuOf(w));
    CALL(MenuPopup, menuOf(w), LOWORD(l), static_cast<BOOL>(HIWORD(l)));
    CALL(MenuSelect, LOWORD(w), HIWORD(w), reinterpret_cast<HMENU>(l));
    CALL(MenuChar, LOWORD(w), HIWORD(w), menuOf(static_cast<WPARAM>(l)));
    CALL(UintLParam, w, l);
    CALL(DrawItem, id, at<DRAWITEMSTRUCT>(l));
    CALL(MeasureItem, id, at<MEASUREITEMSTRUCT>(l));
    CALL(DeleteItem, id, at<DELETEITEMSTRUCT>(l));
    CALL(CompareItem, id, at<COMPAREITEMSTRUCT>(l));
    CALL(DrawItemReflect, at<DRAWITEMSTRUCT>(l));
    CALL(MeasureItemReflect, at<MEASUREITEMSTRUCT>(l));
    CALL(DeleteItemReflect, at<DELETEITEMSTRUCT>(l));
    CALL(CompareItemReflect, at<COMPAREITEMSTRUCT>(l));
    CALL(KeyToItem, LOWORD(w), controlOf<CListBox>(l), HIWORD(w));
    CALL(KeyToItemReflect, LOWORD(w), HIWORD(w));
    CALL(Scroll, LOWORD(w), HIWORD(w), controlOf<CScrollBar>(l));
    CALL(ScrollReflect, LOWORD(w), HIWORD(w));
    CALL(Timer, w);
    CALL(EnterIdle, w, windowOf(l));
    CALL(SettingChange, w, at<const char>(l));
    CALL(WinIniChange, at<const char>(l));
    CALL(CopyData, windowOf(w), at<COPYDATASTRUCT>(l));
    CALL(Message, w, l);
    default:
      return false;
  }
  return *pResult != 0 || !passesOnZero(sig);
}
