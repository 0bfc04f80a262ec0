// The root of the framework's classes, and what a program can ask of a class at run time.
#pragma once

#include "afxver_.h"
#include "afxdbg_.h"

class CObject;

// Describes a class. One exists for every class with DECLARE_DYNAMIC, for as long as the module
// that defines the class is loaded.
struct AFX_CORE_DATA CRuntimeClass {
  LPCSTR m_lpszClassName;
  int m_nObjectSize;                            // bytes
  UINT m_wSchema;                               // 0xFFFF: the class is not serialized
  CObject*(PASCAL* m_pfnCreateObject)();        // null: the class cannot be created by name
  CRuntimeClass*(PASCAL* m_pfnGetBaseClass)();  // null for CObject alone
  CRuntimeClass* m_pNextClass;                  // the list of the module's classes

  // Makes an object with the class's default constructor, to be freed with delete. Null when the
  // class does not say DECLARE_DYNCREATE or memory is short.
  CObject* CreateObject();
  // True for the class itself, too.
  BOOL IsDerivedFrom(const CRuntimeClass* pBaseClass) const;

  // Looks among the classes of the program, then of its extension modules, latest first.
  // Null when there is no class of that name.
  static CRuntimeClass* PASCAL FromName(LPCSTR lpszClassName);
  static CObject* PASCAL CreateObject(LPCSTR lpszClassName);
};

class AFX_CORE_DATA CObject {
 public:
  virtual CRuntimeClass* GetRuntimeClass() const;
  virtual ~CObject() {}

  // Memory for objects. Throws CMemoryException when there is none.
  static void* operator new(size_t nSize);
  static void* operator new(size_t, void* p) noexcept { return p; }
  static void operator delete(void* p) noexcept;
  static void operator delete(void*, void*) noexcept {}

  // True when the object's class is the given one or derived from it.
  BOOL IsKindOf(const CRuntimeClass* pClass) const;
  // A derived class checks its members here with ASSERT.
  virtual void AssertValid() const;

  static CRuntimeClass classCObject;

 protected:
  CObject() {}

 private:
  CObject(const CObject&) = delete;
  void operator=(const CObject&) = delete;
};

// Adds a class to its module's list; made by the IMPLEMENT_ macros.
struct AFX_CORE_DATA AFX_CLASSINIT {
  AFX_CLASSINIT(CRuntimeClass* pNewClass);
};

// The object itself when it is of the class, null otherwise (and for a null object).
AFX_CORE_DATA CObject* AFXAPI AfxDynamicDownCast(CRuntimeClass* pClass, CObject* pObject);

#define RUNTIME_CLASS(class_name) (&class_name::class##class_name)

#define DYNAMIC_DOWNCAST(class_name, object) \
  (static_cast<class_name*>(AfxDynamicDownCast(RUNTIME_CLASS(class_name), object)))
#define STATIC_DOWNCAST(class_name, object) (static_cast<class_name*>(object))

// In the class: DECLARE_DYNAMIC for IsKindOf and FromName, DECLARE_DYNCREATE for CreateObject too.
// In its source: the IMPLEMENT_ macro of the same ending.
#define DECLARE_DYNAMIC(class_name)                \
 public:                                           \
  static AFX_DATA CRuntimeClass class##class_name; \
  virtual CRuntimeClass* GetRuntimeClass() const;  \
                                                   \
 protected:                                        \
  static CRuntimeClass* PASCAL _GetBaseClass();    \
                                                   \
 public:

#define DECLARE_DYNCREATE(class_name) \
  DECLARE_DYNAMIC(class_name)         \
  static CObject* PASCAL CreateObject();

// The base class is reached through a function: the address of a class in another library is not
// known before that library is loaded, and this record must be whole before any constructor runs.
#define IMPLEMENT_RUNTIMECLASS(class_name, base_class_name, wSchema, pfnNew)                   \
  CRuntimeClass* PASCAL class_name::_GetBaseClass() { return RUNTIME_CLASS(base_class_name); } \
  AFX_DATADEF CRuntimeClass class_name::class##class_name = {                                  \
      #class_name, sizeof(class class_name), wSchema, pfnNew, &class_name::_GetBaseClass, 0};  \
  CRuntimeClass* class_name::GetRuntimeClass() const { return RUNTIME_CLASS(class_name); }     \
  static const AFX_CLASSINIT _init_##class_name(RUNTIME_CLASS(class_name));

#define IMPLEMENT_DYNAMIC(class_name, base_class_name) \
  IMPLEMENT_RUNTIMECLASS(class_name, base_class_name, 0xFFFF, 0)

#define IMPLEMENT_DYNCREATE(class_name, base_class_name)                \
  CObject* PASCAL class_name::CreateObject() { return new class_name; } \
  IMPLEMENT_RUNTIMECLASS(class_name, base_class_name, 0xFFFF, &class_name::CreateObject)
