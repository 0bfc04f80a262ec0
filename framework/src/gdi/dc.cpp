#include <afxwin.h>

#include <stdlib.h>

#include "threads/handle_map.h"
#include "gdi/temporary_handles.h"
#include "threads/thread_object.h"

IMPLEMENT_DYNCREATE(CDC, CObject)

namespace {

struct DcMap : HandleMap<CDC, HDC> {
  DcMap() : HandleMap([](CDC& dc) { dc.m_hDC = dc.m_hAttribDC = nullptr; }) {}
};

DcMap& dcMap() {
  static ThreadObject<DcMap> maps;
  return maps.Get();
}

// A size has no sign, but an axis of the mapping mode may.
CSize extentOf(const CRect& rect) { return CSize(abs(rect.Width()), abs(rect.Height())); }

constexpr int kHundredthsPerInch = 2540;

// Modes whose units are lengths, not pixels and nothing that the program has scaled.
bool isPhysical(int mapMode) { return mapMode > MM_TEXT && mapMode < MM_ISOTROPIC; }

}  // namespace

CDC* PASCAL CDC::FromHandle(HDC hDC) {
  if (hDC == nullptr) return nullptr;
  if (CDC* permanent = dcMap().FindPermanent(hDC)) return permanent;
  CDC* const dc = dcMap().FromHandle(hDC, [] { return new CDC; });
  dc->m_hDC = dc->m_hAttribDC = hDC;
  return dc;
}

void DeleteTemporaryDCs(unsigned since) { dcMap().DeleteTemporary(since); }

void PASCAL CDC::DeleteTempMap() { DeleteTemporaryDCs(0); }

CDC::~CDC() {
  if (m_hDC != nullptr) ::DeleteDC(Detach());
}

BOOL CDC::Attach(HDC hDC) {
  if (hDC == nullptr) return FALSE;
  dcMap().SetPermanent(hDC, this);
  m_hDC = hDC;
  SetAttribDC(hDC);
  return TRUE;
}

HDC CDC::Detach() {
  const HDC dc = m_hDC;
  if (dc != nullptr) dcMap().Remove(dc, this);
  ReleaseAttribDC();
  m_hDC = nullptr;
  return dc;
}

BOOL CDC::DeleteDC() { return m_hDC != nullptr && ::DeleteDC(Detach()); }

int CDC::SaveDC() { return ForBoth(::SaveDC); }

BOOL CDC::RestoreDC(int nSavedDC) { return ForBoth(::RestoreDC, nSavedDC); }

BOOL CDC::ResetDC(const DEVMODE* lpDevMode) {
  return ForBoth([=](HDC dc) { return static_cast<BOOL>(::ResetDC(dc, lpDevMode) != nullptr); });
}

CGdiObject* CDC::Select(HGDIOBJ hObject) {
  return CGdiObject::FromHandle(ForBoth(::SelectObject, hObject));
}

CSize CDC::ScaleViewportExt(int xNum, int xDenom, int yNum, int yDenom) {
  CSize before(0, 0);
  ForBoth(::ScaleViewportExtEx, xNum, xDenom, yNum, yDenom, &before);
  return before;
}

CSize CDC::ScaleWindowExt(int xNum, int xDenom, int yNum, int yDenom) {
  CSize before(0, 0);
  ForBoth(::ScaleWindowExtEx, xNum, xDenom, yNum, yDenom, &before);
  return before;
}

void CDC::DPtoLP(LPSIZE lpSize) const {
  CRect rect(CPoint(0, 0), *lpSize);
  DPtoLP(&rect);
  *lpSize = extentOf(rect);
}

void CDC::LPtoDP(LPSIZE lpSize) const {
  CRect rect(CPoint(0, 0), *lpSize);
  LPtoDP(&rect);
  *lpSize = extentOf(rect);
}

void CDC::DPtoHIMETRIC(LPSIZE lpSize) const {
  if (isPhysical(GetMapMode())) {
    const int before = ::SetMapMode(m_hAttribDC, MM_HIMETRIC);
    DPtoLP(lpSize);
    ::SetMapMode(m_hAttribDC, before);
  } else {
    lpSize->cx = MulDiv(lpSize->cx, kHundredthsPerInch, GetDeviceCaps(LOGPIXELSX));
    lpSize->cy = MulDiv(lpSize->cy, kHundredthsPerInch, GetDeviceCaps(LOGPIXELSY));
  }
}

void CDC::HIMETRICtoDP(LPSIZE lpSize) const {
  if (isPhysical(GetMapMode())) {
    const int before = ::SetMapMode(m_hAttribDC, MM_HIMETRIC);
    LPtoDP(lpSize);
    ::SetMapMode(m_hAttribDC, before);
  } else {
    lpSize->cx = MulDiv(lpSize->cx, GetDeviceCaps(LOGPIXELSX), kHundredthsPerInch);
    lpSize->cy = MulDiv(lpSize->cy, GetDeviceCaps(LOGPIXELSY), kHundredthsPerInch);
  }
}

void CDC::LPtoHIMETRIC(LPSIZE lpSize) const {
  LPtoDP(lpSize);
  DPtoHIMETRIC(lpSize);
}

void CDC::HIMETRICtoLP(LPSIZE lpSize) const {
  HIMETRICtoDP(lpSize);
  DPtoLP(lpSize);
}

int CDC::GetTextFace(CString& rString) const {
  const int size = ::GetTextFace(m_hAttribDC, 0, nullptr);
  const LPTSTR buffer = rString.GetBuffer(size);
  buffer[0] = '\0';
  const int length = GetTextFace(size, buffer);
  rString.ReleaseBuffer();
  return length;
}

BOOL CDC::SelectClipPath(int nMode) {
  if (!::SelectClipPath(m_hDC, nMode)) return FALSE;
  if (m_hAttribDC == nullptr || m_hAttribDC == m_hDC) return TRUE;
  CRgn clip;
  return clip.CreateRectRgn(0, 0, 0, 0) && ::GetClipRgn(m_hDC, clip) >= 0 &&
         ::SelectClipRgn(m_hAttribDC, clip) != ERROR;
}
