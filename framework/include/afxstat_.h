// The state of the program that the framework works for.
#pragma once

#include "afx.h"

class CDynLinkLibrary;
class COleObjectFactory;
class CWinApp;

// One exists in the process, shared by the program and its extension modules.
class AFX_CORE_DATA AFX_MODULE_STATE {
 public:
  CWinApp* m_pCurrentWinApp;           // null: a program without an application object
  HINSTANCE m_hCurrentInstanceHandle;  // null: the program file's own
  HINSTANCE m_hCurrentResourceHandle;  // null: the same as the instance
  LPCTSTR m_lpszCurrentAppName;        // null: no application object has said

  CRuntimeClass* m_classList;        // classes outside of extension modules, latest first
  COleObjectFactory* m_factoryList;  // class factories, likewise
  CDynLinkLibrary* m_libraryList;    // extension modules, latest first
};

AFX_CORE_DATA AFX_MODULE_STATE* AFXAPI AfxGetModuleState();
// The state of the calling module: extension modules share the program's.
AFX_CORE_DATA AFX_MODULE_STATE* AFXAPI AfxGetStaticModuleState();

// Stands at the beginning of functions that a library exports, where there are modules with states
// of their own; here all share one, and there is nothing to switch.
#define AFX_MANAGE_STATE(p) ((void)(p));
