#include <afxwin.h>

#include "modules/module_lock.h"
#include "modules/raw_attach.h"

IMPLEMENT_DYNAMIC(CDynLinkLibrary, CCmdTarget)

namespace {

_AfxSetAside* setAside = nullptr;  // innermost load first

AFX_MODULE_STATE& state() { return *AfxGetModuleState(); }

void restore(_AfxSetAside* lists) {
  state().m_classList = lists->classList;
  state().m_factoryList = lists->factoryList;
  setAside = lists->next;
  *lists = {};
}

}  // namespace

_AfxSetAside* SetAsideLists() { return setAside; }

extern "C" void AFXAPI _AfxRawAttach(HMODULE module, _AfxSetAside* lists) {
  ModuleLock lock;
  *lists = {module, state().m_classList, state().m_factoryList, setAside};
  setAside = lists;
  state().m_classList = nullptr;
  state().m_factoryList = nullptr;
}

extern "C" void AFXAPI _AfxRawDetach(_AfxSetAside* lists) {
  ModuleLock lock;
  if (setAside == lists) restore(lists);
}

BOOL AFXAPI AfxInitExtensionModule(AFX_EXTENSION_MODULE& state, HMODULE hModule) {
  if (state.bInitialized) return TRUE;
  if (hModule == nullptr) return FALSE;
  ModuleLock lock;
  state.hModule = hModule;
  if (state.hResource == nullptr) state.hResource = hModule;
  if (setAside != nullptr && setAside->hModule == hModule) {
    state.pFirstSharedClass = ::state().m_classList;
    state.pFirstSharedFactory = ::state().m_factoryList;
    restore(setAside);
  }
  state.bInitialized = TRUE;
  return TRUE;
}

void AFXAPI AfxTermExtensionModule(AFX_EXTENSION_MODULE& state, BOOL bAll) {
  if (!state.bInitialized) return;
  CDynLinkLibrary* removed = nullptr;
  {
    ModuleLock lock;
    for (CDynLinkLibrary** link = &::state().m_libraryList; *link != nullptr;) {
      CDynLinkLibrary* library = *link;
      if (library->m_hModule == state.hModule || (bAll && !library->m_bSystem)) {
        *link = library->m_pNextDLL;
        library->m_pNextDLL = removed;
        removed = library;
      } else {
        link = &library->m_pNextDLL;
      }
    }
  }
  while (removed != nullptr) {
    CDynLinkLibrary* library = removed;
    removed = library->m_pNextDLL;
    delete library;
  }
  state = {};
}

CDynLinkLibrary::CDynLinkLibrary(AFX_EXTENSION_MODULE& state, BOOL bSystem)
    : m_hModule(state.hModule),
      m_hResource(state.hResource),
      m_classList(state.pFirstSharedClass),
      m_factoryList(state.pFirstSharedFactory),
      m_bSystem(bSystem) {
  ModuleLock lock;
  m_pNextDLL = ::state().m_libraryList;
  ::state().m_libraryList = this;
}

// Deleted by somebody else than the framework, it must not stay in the chain.
CDynLinkLibrary::~CDynLinkLibrary() {
  ModuleLock lock;
  for (CDynLinkLibrary** link = &::state().m_libraryList; *link != nullptr;
       link = &(*link)->m_pNextDLL)
    if (*link == this) {
      *link = m_pNextDLL;
      return;
    }
}
