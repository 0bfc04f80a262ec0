#include <afxwin.h>

#include "modules/module_lock.h"

static constinit AFX_MODULE_STATE processState = {};

AFX_MODULE_STATE* AFXAPI AfxGetModuleState() { return &processState; }

AFX_MODULE_STATE* AFXAPI AfxGetStaticModuleState() { return &processState; }

// Made on first use, because static constructors come here in no known order, and never deleted,
// because libraries leave at the very end.
CRITICAL_SECTION* ModuleLock::Section() {
  struct Section : CRITICAL_SECTION {
    Section() { InitializeCriticalSection(this); }
  };
  static Section section;
  return &section;
}

HINSTANCE AFXAPI AfxGetInstanceHandle() {
  HINSTANCE instance = AfxGetModuleState()->m_hCurrentInstanceHandle;
  return instance != nullptr ? instance : GetModuleHandle(nullptr);
}

HINSTANCE AFXAPI AfxGetResourceHandle() {
  HINSTANCE resources = AfxGetModuleState()->m_hCurrentResourceHandle;
  return resources != nullptr ? resources : AfxGetInstanceHandle();
}

void AFXAPI AfxSetResourceHandle(HINSTANCE hInstResource) {
  AfxGetModuleState()->m_hCurrentResourceHandle = hInstResource;
}
