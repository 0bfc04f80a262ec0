// Between the framework and the code that every extension library is linked with: sets the module
// state's lists aside while the static constructors of a library run, so that what they announce
// can be told from what was there before. Loading may nest, hence the stack.
#pragma once

#include <afxstat_.h>

// Lives in the extension library, so that nothing is allocated while it is loaded.
struct _AfxSetAside {
  HMODULE hModule;
  CRuntimeClass* classList;
  COleObjectFactory* factoryList;
  _AfxSetAside* next;
};

// What is set aside now, innermost load first. To be asked for with the module lock held.
_AfxSetAside* SetAsideLists();

// Before the library's static constructors. AfxInitExtensionModule puts the lists back.
extern "C" AFX_CORE_DATA void AFXAPI _AfxRawAttach(HMODULE module, _AfxSetAside* lists);
// After its DllMain at detach. Puts the lists back when the library did not get so far.
extern "C" AFX_CORE_DATA void AFXAPI _AfxRawDetach(_AfxSetAside* lists);
