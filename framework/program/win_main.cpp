// Linked into every program that has an object of a class derived from CWinApp and no main of its
// own.

#include <afxwin.h>

extern "C" int WINAPI WinMain(HINSTANCE hInstance, HINSTANCE hPrevInstance, LPSTR lpCmdLine,
                              int nCmdShow) {
  return AfxWinMain(hInstance, hPrevInstance, lpCmdLine, nCmdShow);
}
