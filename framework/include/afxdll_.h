// Extension modules: libraries that add their classes and resources to the program that loads them.
#pragma once

#include "afxcmdt_.h"
#include "afxstat_.h"

// The record of an extension module: one static object in the module, all zero before
// AfxInitExtensionModule fills it in.
struct AFX_EXTENSION_MODULE {
  BOOL bInitialized;
  HMODULE hModule;
  HMODULE hResource;  // where resources are looked for; the module may set another than hModule
  CRuntimeClass* pFirstSharedClass;
  COleObjectFactory* pFirstSharedFactory;
};

// For the module's DllMain at process attach: fills in the record, with the classes that the
// module's static constructors have announced. A second call for the same record changes nothing.
// FALSE: hModule is null, and loading should fail.
AFX_CORE_DATA BOOL AFXAPI AfxInitExtensionModule(AFX_EXTENSION_MODULE& state, HMODULE hModule);

// At process detach: takes the module out of the chain, deletes its CDynLinkLibrary and empties the
// record. bAll: takes out all modules.
AFX_CORE_DATA void AFXAPI AfxTermExtensionModule(AFX_EXTENSION_MODULE& state, BOOL bAll = FALSE);

// A module in the chain in which the program looks for resources and classes. DllMain makes one
// with new, after AfxInitExtensionModule; it puts itself at the head of the chain, and the
// framework deletes it.
class AFX_CORE_DATA CDynLinkLibrary : public CCmdTarget {
  DECLARE_DYNAMIC(CDynLinkLibrary)
 public:
  // bSystem: a module that AfxTermExtensionModule leaves in the chain when it takes out all.
  explicit CDynLinkLibrary(AFX_EXTENSION_MODULE& state, BOOL bSystem = FALSE);
  ~CDynLinkLibrary() override;

  HMODULE m_hModule;
  HMODULE m_hResource;
  CRuntimeClass* m_classList;
  COleObjectFactory* m_factoryList;
  BOOL m_bSystem;
  CDynLinkLibrary* m_pNextDLL;
};
