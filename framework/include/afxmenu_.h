// Menus.
#pragma once

#include "afxgdi_.h"
#include "afxstr_.h"

class CWnd;

// Holds a handle. A menu that was created, loaded or attached is found again by FromHandle in its
// thread, and is destroyed with the object; a menu that a window shows, or that is another one's
// popup menu, must be detached before. The objects that FromHandle makes are temporary, as those of
// CGdiObject. The functions are the system's of the same names; items are named by id, or by
// position with MF_BYPOSITION.
class AFX_CORE_DATA CMenu : public CObject {
  DECLARE_DYNCREATE(CMenu)
 public:
  CMenu() : m_hMenu(nullptr) {}
  ~CMenu() override { DestroyMenu(); }

  HMENU m_hMenu;
  operator HMENU() const { return m_hMenu; }
  HMENU GetSafeHmenu() const { return m_hMenu; }
  BOOL operator==(const CMenu& menu) const { return m_hMenu == menu.m_hMenu; }
  BOOL operator!=(const CMenu& menu) const { return m_hMenu != menu.m_hMenu; }

  static CMenu* PASCAL FromHandle(HMENU hMenu);
  static CMenu* PASCAL FromHandlePermanent(HMENU hMenu);
  static void PASCAL DeleteTempMap();
  BOOL Attach(HMENU hMenu);
  HMENU Detach();

  // FALSE: the system did not make the menu, or no module has the resource.
  BOOL CreateMenu() { return Attach(::CreateMenu()); }
  BOOL CreatePopupMenu() { return Attach(::CreatePopupMenu()); }
  BOOL LoadMenu(LPCTSTR lpszResourceName);
  BOOL LoadMenu(UINT nIDResource) { return LoadMenu(MAKEINTRESOURCE(nIDResource)); }
  BOOL LoadMenuIndirect(const void* lpMenuTemplate) {
    return Attach(::LoadMenuIndirect(lpMenuTemplate));
  }
  BOOL DestroyMenu();

  // Shows a popup menu at a place of the screen until the user has chosen. Commands go to pWnd;
  // with TPM_RETURNCMD the result is the command, 0 for none. Clicks in lpRect keep the menu open.
  BOOL TrackPopupMenu(UINT nFlags, int x, int y, CWnd* pWnd, LPCRECT lpRect = nullptr);
  BOOL TrackPopupMenuEx(UINT fuFlags, int x, int y, CWnd* pWnd, LPTPMPARAMS lptpm);

  // nIDNewItem: the command, or a popup menu's handle with MF_POPUP.
  BOOL AppendMenu(UINT nFlags, UINT_PTR nIDNewItem = 0, LPCTSTR lpszNewItem = nullptr) {
    return ::AppendMenu(m_hMenu, nFlags, nIDNewItem, lpszNewItem);
  }
  BOOL AppendMenu(UINT nFlags, UINT_PTR nIDNewItem, const CBitmap* pBmp) {
    return AppendMenu(nFlags | MF_BITMAP, nIDNewItem, Picture(pBmp));
  }
  BOOL InsertMenu(UINT nPosition, UINT nFlags, UINT_PTR nIDNewItem = 0,
                  LPCTSTR lpszNewItem = nullptr) {
    return ::InsertMenu(m_hMenu, nPosition, nFlags, nIDNewItem, lpszNewItem);
  }
  BOOL InsertMenu(UINT nPosition, UINT nFlags, UINT_PTR nIDNewItem, const CBitmap* pBmp) {
    return InsertMenu(nPosition, nFlags | MF_BITMAP, nIDNewItem, Picture(pBmp));
  }
  BOOL ModifyMenu(UINT nPosition, UINT nFlags, UINT_PTR nIDNewItem = 0,
                  LPCTSTR lpszNewItem = nullptr) {
    return ::ModifyMenu(m_hMenu, nPosition, nFlags, nIDNewItem, lpszNewItem);
  }
  BOOL ModifyMenu(UINT nPosition, UINT nFlags, UINT_PTR nIDNewItem, const CBitmap* pBmp) {
    return ModifyMenu(nPosition, nFlags | MF_BITMAP, nIDNewItem, Picture(pBmp));
  }
  // DeleteMenu destroys the item's popup menu, RemoveMenu leaves it.
  BOOL DeleteMenu(UINT nPosition, UINT nFlags) { return ::DeleteMenu(m_hMenu, nPosition, nFlags); }
  BOOL RemoveMenu(UINT nPosition, UINT nFlags) { return ::RemoveMenu(m_hMenu, nPosition, nFlags); }

  // The state before, -1: no such item.
  UINT CheckMenuItem(UINT nIDCheckItem, UINT nCheck) {
    return ::CheckMenuItem(m_hMenu, nIDCheckItem, nCheck);
  }
  UINT EnableMenuItem(UINT nIDEnableItem, UINT nEnable) {
    return ::EnableMenuItem(m_hMenu, nIDEnableItem, nEnable);
  }
  BOOL CheckMenuRadioItem(UINT nIDFirst, UINT nIDLast, UINT nIDItem, UINT nFlags) {
    return ::CheckMenuRadioItem(m_hMenu, nIDFirst, nIDLast, nIDItem, nFlags);
  }
  BOOL SetMenuItemBitmaps(UINT nPosition, UINT nFlags, const CBitmap* pBmpUnchecked,
                          const CBitmap* pBmpChecked) {
    return ::SetMenuItemBitmaps(m_hMenu, nPosition, nFlags, _AfxHandle(pBmpUnchecked),
                                _AfxHandle(pBmpChecked));
  }
  BOOL SetDefaultItem(UINT uItem, BOOL fByPos = FALSE) {
    return ::SetMenuDefaultItem(m_hMenu, uItem, fByPos);
  }
  UINT GetDefaultItem(UINT gmdiFlags, BOOL fByPos = FALSE) {
    return ::GetMenuDefaultItem(m_hMenu, fByPos, gmdiFlags);
  }

  // -1: the menu is none.
  UINT GetMenuItemCount() const { return ::GetMenuItemCount(m_hMenu); }
  // -1: there is no such item, or it opens a popup menu. A separator's is 0.
  UINT GetMenuItemID(int nPos) const { return ::GetMenuItemID(m_hMenu, nPos); }
  UINT GetMenuState(UINT nID, UINT nFlags) const { return ::GetMenuState(m_hMenu, nID, nFlags); }
  // The length; the buffer's size counts the null.
  int GetMenuString(UINT nIDItem, LPTSTR lpString, int nMaxCount, UINT nFlags) const {
    return ::GetMenuString(m_hMenu, nIDItem, lpString, nMaxCount, nFlags);
  }
  int GetMenuString(UINT nIDItem, CString& rString, UINT nFlags) const;
  // A temporary object unless the popup menu is one of the program's; null: there is none.
  CMenu* GetSubMenu(int nPos) const { return FromHandle(::GetSubMenu(m_hMenu, nPos)); }
  BOOL GetMenuItemInfo(UINT uItem, LPMENUITEMINFO lpMenuItemInfo, BOOL fByPos = FALSE) {
    return ::GetMenuItemInfo(m_hMenu, uItem, fByPos, lpMenuItemInfo);
  }
  BOOL SetMenuItemInfo(UINT uItem, LPMENUITEMINFO lpMenuItemInfo, BOOL fByPos = FALSE) {
    return ::SetMenuItemInfo(m_hMenu, uItem, fByPos, lpMenuItemInfo);
  }
  BOOL InsertMenuItem(UINT uItem, LPMENUITEMINFO lpMenuItemInfo, BOOL fByPos = FALSE) {
    return ::InsertMenuItem(m_hMenu, uItem, fByPos, lpMenuItemInfo);
  }
  BOOL GetMenuInfo(LPMENUINFO lpcmi) const { return ::GetMenuInfo(m_hMenu, lpcmi); }
  BOOL SetMenuInfo(LPCMENUINFO lpcmi) { return ::SetMenuInfo(m_hMenu, lpcmi); }
  BOOL SetMenuContextHelpId(DWORD dwContextHelpId) {
    return ::SetMenuContextHelpId(m_hMenu, dwContextHelpId);
  }
  DWORD GetMenuContextHelpId() const { return ::GetMenuContextHelpId(m_hMenu); }

  // For menus with items of the style MF_OWNERDRAW: the window that shows the menu passes the
  // questions on to the object of the menu that has the item.
  virtual void DrawItem(LPDRAWITEMSTRUCT lpDrawItemStruct);
  virtual void MeasureItem(LPMEASUREITEMSTRUCT lpMeasureItemStruct);

 private:
  static LPCTSTR Picture(const CBitmap* pBmp) {
    return reinterpret_cast<LPCTSTR>(_AfxHandle(pBmp));
  }
};

inline HMENU _AfxHandle(const CMenu* p) { return p != nullptr ? p->m_hMenu : nullptr; }
