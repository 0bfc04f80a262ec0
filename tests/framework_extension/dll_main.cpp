// What every extension library has: the record, and its announcing and leaving.

#include <afxwin.h>
#include <afxdllx.h>

static AFX_EXTENSION_MODULE extensionModule;

extern "C" BOOL WINAPI DllMain(HINSTANCE instance, DWORD reason, LPVOID) {
  if (reason == DLL_PROCESS_ATTACH) {
    if (!AfxInitExtensionModule(extensionModule, instance)) return FALSE;
    new CDynLinkLibrary(extensionModule);
  } else if (reason == DLL_PROCESS_DETACH) {
    AfxTermExtensionModule(extensionModule);
  }
  return TRUE;
}

extern "C" __declspec(dllexport) const AFX_EXTENSION_MODULE* Record() { return &extensionModule; }
