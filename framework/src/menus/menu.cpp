#include <afxwin.h>

#include "threads/handle_map.h"
#include "gdi/temporary_handles.h"
#include "threads/thread_object.h"
#include "menus/owner_drawn.h"

IMPLEMENT_DYNCREATE(CMenu, CObject)

namespace {

struct MenuMap : HandleMap<CMenu, HMENU> {
  MenuMap() : HandleMap([](CMenu& menu) { menu.m_hMenu = nullptr; }) {}
};

MenuMap& menuMap() {
  static ThreadObject<MenuMap> maps;
  return maps.Get();
}

bool hasItem(HMENU menu, const MEASUREITEMSTRUCT& item) {
  const int count = GetMenuItemCount(menu);
  for (int i = 0; i < count; ++i) {
    MENUITEMINFO info = {};
    info.cbSize = sizeof info;
    info.fMask = MIIM_FTYPE | MIIM_ID | MIIM_DATA;
    if (GetMenuItemInfo(menu, i, TRUE, &info) && (info.fType & MFT_OWNERDRAW) != 0 &&
        info.wID == item.itemID && info.dwItemData == item.itemData)
      return true;
  }
  return false;
}

}  // namespace

bool DrawMenuItem(DRAWITEMSTRUCT* item) {
  CMenu* const menu = CMenu::FromHandlePermanent(reinterpret_cast<HMENU>(item->hwndItem));
  if (menu == nullptr) return false;
  menu->DrawItem(item);
  return true;
}

// The question does not say which menu it is about.
bool MeasureMenuItem(MEASUREITEMSTRUCT* item) {
  CMenu* const menu =
      menuMap().FindPermanentIf([&](HMENU handle) { return hasItem(handle, *item); });
  if (menu == nullptr) return false;
  menu->MeasureItem(item);
  return true;
}

CMenu* PASCAL CMenu::FromHandle(HMENU hMenu) {
  if (hMenu == nullptr) return nullptr;
  CMenu* const menu = menuMap().FromHandle(hMenu, [] { return new CMenu; });
  menu->m_hMenu = hMenu;
  return menu;
}

CMenu* PASCAL CMenu::FromHandlePermanent(HMENU hMenu) { return menuMap().FindPermanent(hMenu); }

void DeleteTemporaryMenus(unsigned since) { menuMap().DeleteTemporary(since); }

void PASCAL CMenu::DeleteTempMap() { DeleteTemporaryMenus(0); }

BOOL CMenu::Attach(HMENU hMenu) {
  if (hMenu == nullptr) return FALSE;
  menuMap().SetPermanent(hMenu, this);
  m_hMenu = hMenu;
  return TRUE;
}

HMENU CMenu::Detach() {
  const HMENU menu = m_hMenu;
  if (menu != nullptr) menuMap().Remove(menu, this);
  m_hMenu = nullptr;
  return menu;
}

BOOL CMenu::LoadMenu(LPCTSTR lpszResourceName) {
  return Attach(::LoadMenu(AfxFindResourceHandle(lpszResourceName, RT_MENU), lpszResourceName));
}

BOOL CMenu::DestroyMenu() {
  const HMENU menu = Detach();
  return menu != nullptr && ::DestroyMenu(menu);
}

BOOL CMenu::TrackPopupMenu(UINT nFlags, int x, int y, CWnd* pWnd, LPCRECT lpRect) {
  return ::TrackPopupMenu(m_hMenu, nFlags, x, y, 0, *pWnd, lpRect);
}

BOOL CMenu::TrackPopupMenuEx(UINT fuFlags, int x, int y, CWnd* pWnd, LPTPMPARAMS lptpm) {
  return ::TrackPopupMenuEx(m_hMenu, fuFlags, x, y, *pWnd, lptpm);
}

int CMenu::GetMenuString(UINT nIDItem, CString& rString, UINT nFlags) const {
  const int length = GetMenuString(nIDItem, static_cast<LPTSTR>(nullptr), 0, nFlags);
  const LPTSTR buffer = rString.GetBuffer(length);
  rString.ReleaseBuffer(GetMenuString(nIDItem, buffer, length + 1, nFlags));
  return rString.GetLength();
}

void CMenu::DrawItem(LPDRAWITEMSTRUCT) {}
void CMenu::MeasureItem(LPMEASUREITEMSTRUCT) {}
