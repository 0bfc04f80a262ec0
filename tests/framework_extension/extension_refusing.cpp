// A library that refuses to be loaded before it has announced itself.

#include <afxwin.h>

class CRefusingThing : public CObject {
  DECLARE_DYNAMIC(CRefusingThing)
};
IMPLEMENT_DYNAMIC(CRefusingThing, CObject)

extern "C" BOOL WINAPI DllMain(HINSTANCE, DWORD, LPVOID) { return FALSE; }
