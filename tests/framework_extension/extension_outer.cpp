// A library that loads another one while its own static constructors run.

#include <afxwin.h>

class COuterFirst : public CObject {
  DECLARE_DYNAMIC(COuterFirst)
};
IMPLEMENT_DYNAMIC(COuterFirst, CObject)

static struct Loader {
  Loader() : library(LoadLibrary("extension_inner.dll")) {}
  ~Loader() { FreeLibrary(library); }
  HMODULE library;
} loader;

class COuterLast : public CObject {
  DECLARE_DYNAMIC(COuterLast)
};
IMPLEMENT_DYNAMIC(COuterLast, CObject)
