#include <afxwin.h>

#include "modules/framework_module.h"

static HINSTANCE frameworkModule;

HINSTANCE FrameworkModule() { return frameworkModule; }

extern "C" BOOL WINAPI DllMain(HINSTANCE instance, DWORD reason, LPVOID) {
  if (reason == DLL_PROCESS_ATTACH) frameworkModule = instance;
  return TRUE;
}
