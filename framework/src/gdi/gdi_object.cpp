#include <afxwin.h>

#include "threads/handle_map.h"
#include "gdi/temporary_handles.h"
#include "threads/thread_object.h"

IMPLEMENT_DYNCREATE(CGdiObject, CObject)
IMPLEMENT_DYNCREATE(CPen, CGdiObject)
IMPLEMENT_DYNCREATE(CBrush, CGdiObject)
IMPLEMENT_DYNCREATE(CFont, CGdiObject)
IMPLEMENT_DYNCREATE(CBitmap, CGdiObject)
IMPLEMENT_DYNCREATE(CPalette, CGdiObject)
IMPLEMENT_DYNCREATE(CRgn, CGdiObject)

namespace {

struct GdiMap : HandleMap<CGdiObject, HGDIOBJ> {
  GdiMap() : HandleMap([](CGdiObject& object) { object.m_hObject = nullptr; }) {}
};

GdiMap& gdiMap() {
  static ThreadObject<GdiMap> maps;
  return maps.Get();
}

// So that what a caller casts to the class of a pen or a font is one.
CGdiObject* makeFor(HGDIOBJ handle) {
  switch (GetObjectType(handle)) {
    case OBJ_PEN:
    case OBJ_EXTPEN:
      return new CPen;
    case OBJ_BRUSH:
      return new CBrush;
    case OBJ_FONT:
      return new CFont;
    case OBJ_BITMAP:
      return new CBitmap;
    case OBJ_PAL:
      return new CPalette;
    case OBJ_REGION:
      return new CRgn;
    default:
      return new CGdiObject;
  }
}

}  // namespace

CGdiObject* PASCAL CGdiObject::FromHandle(HGDIOBJ hObject) {
  if (hObject == nullptr) return nullptr;
  CGdiObject* const object = gdiMap().FromHandle(hObject, [&] { return makeFor(hObject); });
  object->m_hObject = hObject;
  return object;
}

void DeleteTemporaryGdiObjects(unsigned since) { gdiMap().DeleteTemporary(since); }

void PASCAL CGdiObject::DeleteTempMap() { DeleteTemporaryGdiObjects(0); }

BOOL CGdiObject::Attach(HGDIOBJ hObject) {
  if (hObject == nullptr) return FALSE;
  gdiMap().SetPermanent(hObject, this);
  m_hObject = hObject;
  return TRUE;
}

HGDIOBJ CGdiObject::Detach() {
  const HGDIOBJ handle = m_hObject;
  if (handle != nullptr) gdiMap().Remove(handle, this);
  m_hObject = nullptr;
  return handle;
}

BOOL CGdiObject::DeleteObject() {
  const HGDIOBJ handle = Detach();
  return handle != nullptr && ::DeleteObject(handle);
}
