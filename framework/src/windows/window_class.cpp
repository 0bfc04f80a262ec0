#include "windows/window_class.h"

#include <stdio.h>

#include "windows/thread_state.h"

namespace {

LPCTSTR registered(LPCTSTR name, HBRUSH background, HICON icon) {
  WNDCLASS windowClass = {};
  windowClass.style = CS_DBLCLKS | CS_HREDRAW | CS_VREDRAW;
  windowClass.lpfnWndProc = ::DefWindowProc;
  windowClass.hInstance = AfxGetInstanceHandle();
  windowClass.hIcon = icon;
  windowClass.hCursor = LoadCursor(nullptr, IDC_ARROW);
  windowClass.hbrBackground = background;
  windowClass.lpszClassName = name;
  return AfxRegisterClass(&windowClass) ? name : nullptr;
}

}  // namespace

BOOL AFXAPI AfxRegisterClass(WNDCLASS* lpWndClass) {
  WNDCLASS existing;
  if (GetClassInfo(lpWndClass->hInstance, lpWndClass->lpszClassName, &existing)) return TRUE;
  return RegisterClass(lpWndClass) != 0 || GetLastError() == ERROR_CLASS_ALREADY_EXISTS;
}

LPCTSTR AFXAPI AfxRegisterWndClass(UINT nClassStyle, HCURSOR hCursor, HBRUSH hbrBackground,
                                   HICON hIcon) {
  char(&name)[64] = State().className;
  snprintf(name, sizeof name, "Afx:%p:%x:%p:%p:%p", static_cast<void*>(AfxGetInstanceHandle()),
           nClassStyle, static_cast<void*>(hCursor), static_cast<void*>(hbrBackground),
           static_cast<void*>(hIcon));
  WNDCLASS windowClass = {};
  windowClass.style = nClassStyle;
  windowClass.lpfnWndProc = ::DefWindowProc;
  windowClass.hInstance = AfxGetInstanceHandle();
  windowClass.hIcon = hIcon;
  windowClass.hCursor = hCursor;
  windowClass.hbrBackground = hbrBackground;
  windowClass.lpszClassName = name;
  if (!AfxRegisterClass(&windowClass)) AfxThrowResourceException();
  return name;
}

LPCTSTR ChildWindowClass() { return registered("AfxWnd42", nullptr, nullptr); }

LPCTSTR FrameWindowClass(UINT nIDIcon) {
  const HBRUSH background = reinterpret_cast<HBRUSH>(static_cast<UINT_PTR>(COLOR_WINDOW + 1));
  if (nIDIcon != 0) {
    const LPCTSTR name = MAKEINTRESOURCE(nIDIcon);
    const HINSTANCE module = AfxFindResourceHandle(name, RT_GROUP_ICON);
    if (const HICON icon = LoadIcon(module, name))
      return AfxRegisterWndClass(CS_DBLCLKS | CS_HREDRAW | CS_VREDRAW,
                                 LoadCursor(nullptr, IDC_ARROW), background, icon);
  }
  return registered("AfxFrameOrView42", background, LoadIcon(nullptr, IDI_APPLICATION));
}
