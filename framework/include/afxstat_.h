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

// The state for the calling thread: the process's unless AFX_MANAGE_STATE says otherwise.
AFX_CORE_DATA AFX_MODULE_STATE* AFXAPI AfxGetModuleState();
// The state of the calling module; extension modules share the program's.
AFX_CORE_DATA AFX_MODULE_STATE* AFXAPI AfxGetStaticModuleState();
// Makes a state the calling thread's (null: the process's) and returns the one before.
AFX_CORE_DATA AFX_MODULE_STATE* AFXAPI AfxSetModuleState(AFX_MODULE_STATE* pNewState) noexcept;

// Sets the thread's state until the end of the block.
class AFX_MAINTAIN_STATE2 {
 public:
  explicit AFX_MAINTAIN_STATE2(AFX_MODULE_STATE* pModuleState) noexcept
      : m_pPrevModuleState(AfxSetModuleState(pModuleState)) {}
  ~AFX_MAINTAIN_STATE2() { AfxSetModuleState(m_pPrevModuleState); }
  AFX_MAINTAIN_STATE2(const AFX_MAINTAIN_STATE2&) = delete;
  void operator=(const AFX_MAINTAIN_STATE2&) = delete;

 private:
  AFX_MODULE_STATE* m_pPrevModuleState;
};

#define AFX_MANAGE_STATE(p) AFX_MAINTAIN_STATE2 _ctlState(p);
