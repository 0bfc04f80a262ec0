// Finding resources through the chain of modules.

#include <afxwin.h>

#include <vector>

#include "modules/framework_module.h"
#include "modules/module_lock.h"

namespace {

// The extension modules with resources, latest first: a copy, since searching them may wait for the
// system's lock for loading.
std::vector<HINSTANCE> extensionModules() {
  std::vector<HINSTANCE> modules;
  ModuleLock lock;
  for (CDynLinkLibrary* library = AfxGetModuleState()->m_libraryList; library != nullptr;
       library = library->m_pNextDLL)
    if (library->m_hResource != nullptr) modules.push_back(library->m_hResource);
  return modules;
}

// Calls has(module) for each module in the order of searching until one says it has it.
template <class Has>
HINSTANCE findModule(Has has) {
  if (HINSTANCE current = AfxGetResourceHandle(); has(current)) return current;
  for (HINSTANCE module : extensionModules())
    if (has(module)) return module;
  if (HINSTANCE framework = FrameworkModule(); has(framework)) return framework;
  return nullptr;
}

}  // namespace

HINSTANCE AFXAPI AfxFindResourceHandle(LPCTSTR lpszName, LPCTSTR lpszType) {
  HINSTANCE found =
      findModule([&](HINSTANCE m) { return FindResource(m, lpszName, lpszType) != nullptr; });
  return found != nullptr ? found : AfxGetResourceHandle();
}

// Asks each module for the string itself: sixteen strings share one resource, and a module that has
// that resource need not have the string.
int AFXAPI AfxLoadString(UINT nIDS, LPTSTR lpszBuf, UINT nMaxBuf) {
  if (nMaxBuf == 0) return 0;
  int length = 0;
  findModule([&](HINSTANCE m) {
    length = LoadString(m, nIDS, lpszBuf, static_cast<int>(nMaxBuf));
    return length > 0;
  });
  if (length <= 0) lpszBuf[0] = '\0';
  return length;
}
