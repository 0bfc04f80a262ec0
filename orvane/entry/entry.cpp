// The library's entry: registers it as an extension module of the host's framework.
#include <afxwin.h>
#include <afxext.h>

#include <cstdlib>
#include <ctime>

namespace {

AFX_EXTENSION_MODULE extensionModule = {};

BOOL Attach(HINSTANCE instance) {
  if (!AfxInitExtensionModule(extensionModule, instance)) return FALSE;
  // Puts the library's resources and classes into the host's search chain. The framework owns it.
  new CDynLinkLibrary(extensionModule);
  return TRUE;
}

}  // namespace

extern "C" BOOL WINAPI DllMain(HINSTANCE instance, DWORD reason, LPVOID) {
  // On every notification, by design: the random numbers of temporary names start anew whenever a
  // thread starts or ends.
  srand(static_cast<unsigned>(time(nullptr)));

  switch (reason) {
    case DLL_PROCESS_ATTACH:
      return Attach(instance);
    case DLL_PROCESS_DETACH:
      AfxTermExtensionModule(extensionModule, FALSE);
      return TRUE;
    default:
      return TRUE;
  }
}
