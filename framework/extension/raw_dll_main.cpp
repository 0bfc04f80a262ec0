// Linked into every extension library. The runtime calls DllEntryPoint at process attach before it
// runs the library's static constructors, and at process detach after the library's DllMain.

#include <afxwin.h>

#include "modules/raw_attach.h"

static constinit _AfxSetAside listsOfProgram = {};

extern "C" BOOL WINAPI DllEntryPoint(HINSTANCE instance, DWORD reason, LPVOID) {
  if (reason == DLL_PROCESS_ATTACH) _AfxRawAttach(instance, &listsOfProgram);
  if (reason == DLL_PROCESS_DETACH) _AfxRawDetach(&listsOfProgram);
  return TRUE;
}
