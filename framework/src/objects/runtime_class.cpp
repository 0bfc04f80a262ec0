#include <afxwin.h>

#include <stdlib.h>
#include <string.h>

#include "modules/module_lock.h"
#include "modules/raw_attach.h"

constinit CRuntimeClass CObject::classCObject = {"CObject", sizeof(CObject), 0xFFFF,
                                                 nullptr,   nullptr,         nullptr};
static const AFX_CLASSINIT initCObject(RUNTIME_CLASS(CObject));

CRuntimeClass* CObject::GetRuntimeClass() const { return RUNTIME_CLASS(CObject); }

void* CObject::operator new(size_t nSize) {
  void* p = malloc(nSize);
  if (p == nullptr) AfxThrowMemoryException();
  return p;
}

void CObject::operator delete(void* p) noexcept { free(p); }

BOOL CObject::IsKindOf(const CRuntimeClass* pClass) const {
  return GetRuntimeClass()->IsDerivedFrom(pClass);
}

void CObject::AssertValid() const {}

CObject* AFXAPI AfxDynamicDownCast(CRuntimeClass* pClass, CObject* pObject) {
  return pObject != nullptr && pObject->IsKindOf(pClass) ? pObject : nullptr;
}

AFX_CLASSINIT::AFX_CLASSINIT(CRuntimeClass* pNewClass) {
  ModuleLock lock;
  AFX_MODULE_STATE* state = AfxGetModuleState();
  pNewClass->m_pNextClass = state->m_classList;
  state->m_classList = pNewClass;
}

BOOL CRuntimeClass::IsDerivedFrom(const CRuntimeClass* pBaseClass) const {
  for (const CRuntimeClass* c = this; c != nullptr;
       c = c->m_pfnGetBaseClass != nullptr ? c->m_pfnGetBaseClass() : nullptr)
    if (c == pBaseClass) return TRUE;
  return FALSE;
}

CObject* CRuntimeClass::CreateObject() {
  if (m_pfnCreateObject == nullptr) return nullptr;
  try {
    return m_pfnCreateObject();
  } catch (CMemoryException* e) {
    e->Delete();
    return nullptr;
  }
}

static CRuntimeClass* findIn(CRuntimeClass* list, LPCSTR name) {
  while (list != nullptr && strcmp(list->m_lpszClassName, name) != 0) list = list->m_pNextClass;
  return list;
}

CRuntimeClass* PASCAL CRuntimeClass::FromName(LPCSTR lpszClassName) {
  if (lpszClassName == nullptr) return nullptr;
  ModuleLock lock;
  const AFX_MODULE_STATE* state = AfxGetModuleState();
  CRuntimeClass* found = findIn(state->m_classList, lpszClassName);
  for (_AfxSetAside* lists = SetAsideLists(); lists != nullptr && found == nullptr;
       lists = lists->next)
    found = findIn(lists->classList, lpszClassName);
  for (CDynLinkLibrary* library = state->m_libraryList; library != nullptr && found == nullptr;
       library = library->m_pNextDLL)
    found = findIn(library->m_classList, lpszClassName);
  return found;
}

CObject* PASCAL CRuntimeClass::CreateObject(LPCSTR lpszClassName) {
  CRuntimeClass* pClass = FromName(lpszClassName);
  return pClass == nullptr ? nullptr : pClass->CreateObject();
}
