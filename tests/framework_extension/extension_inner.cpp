#include <afxwin.h>

class CInnerThing : public CObject {
  DECLARE_DYNCREATE(CInnerThing)
};
IMPLEMENT_DYNCREATE(CInnerThing, CObject)

// An exception whose class only this library knows.
class CInnerException : public CUserException {
  DECLARE_DYNAMIC(CInnerException)
};
IMPLEMENT_DYNAMIC(CInnerException, CUserException)

extern "C" __declspec(dllexport) void ThrowOutOfMemory() { AfxThrowMemoryException(); }

extern "C" __declspec(dllexport) void ThrowNoFile() {
  CFile file("a folder that is not there\\file", CFile::modeRead);
}

extern "C" __declspec(dllexport) void ThrowOwnException() { throw new CInnerException; }
