#include "controls/MPopupMenu.h"

namespace {

// The entries of from, submenus included, behind those of to.
BOOL copyEntries(HMENU to, HMENU from) {
  const int count = GetMenuItemCount(from);
  for (int i = 0; i < count; ++i) {
    MENUITEMINFO info = {};
    info.cbSize = sizeof info;
    info.fMask = MIIM_FTYPE | MIIM_STATE | MIIM_ID | MIIM_SUBMENU;
    if (!GetMenuItemInfo(from, i, TRUE, &info)) return FALSE;
    CString text;
    if (CMenu::FromHandle(from)->GetMenuString(i, text, MF_BYPOSITION) > 0) {
      info.fMask |= MIIM_STRING;
      info.dwTypeData = text.GetBuffer(0);
    }
    if (info.hSubMenu != nullptr) {
      const HMENU copy = CreatePopupMenu();
      if (copy == nullptr) return FALSE;
      if (!copyEntries(copy, info.hSubMenu)) {
        DestroyMenu(copy);
        return FALSE;
      }
      info.hSubMenu = copy;
    }
    if (!InsertMenuItem(to, GetMenuItemCount(to), TRUE, &info)) {
      if (info.hSubMenu != nullptr) DestroyMenu(info.hSubMenu);
      return FALSE;
    }
  }
  return TRUE;
}

}  // namespace

int MPopupMenu::AppendItem(UINT command, const char* text, int enabled) {
  return AppendMenu(MF_STRING | (enabled ? MF_ENABLED : MF_GRAYED), command, text);
}

int MPopupMenu::AppendSeparator() {
  const int last = GetCount() - 1;
  if (last < 0 || (GetMenuState(last, MF_BYPOSITION) & MF_SEPARATOR) != 0) return 1;
  return AppendMenu(MF_SEPARATOR);
}

int MPopupMenu::AppendCopy(const CMenu& submenu, const char* text) {
  return AppendCopy(*this, submenu, text);
}

int MPopupMenu::AppendCopy(CMenu& menu, const CMenu& submenu, const char* text) {
  const HMENU copy = ::CreatePopupMenu();
  if (copy == nullptr) return 0;
  if (copyEntries(copy, submenu) &&
      menu.AppendMenu(MF_POPUP, reinterpret_cast<UINT_PTR>(copy), text))
    return 1;
  ::DestroyMenu(copy);
  return 0;
}

CString MPopupMenu::GetText(int position) const {
  CString text;
  GetMenuString(static_cast<UINT>(position), text, MF_BYPOSITION);
  return text;
}

UINT MPopupMenu::GetCommand(int position) const {
  const UINT command = GetMenuItemID(position);
  return command == static_cast<UINT>(-1) ? 0 : command;
}

int MPopupMenu::FindCommand(UINT command) const {
  for (int i = 0; i < GetCount(); ++i)
    if (GetMenuItemID(i) == command) return i;
  return -1;
}

void MPopupMenu::RadioCheck(int position) {
  const int last = GetCount() - 1;
  for (int i = 0; i <= last; ++i) CheckMenuItem(static_cast<UINT>(i), MF_BYPOSITION | MF_UNCHECKED);
  if (position >= 0 && position <= last)
    CheckMenuRadioItem(0, static_cast<UINT>(last), static_cast<UINT>(position), MF_BYPOSITION);
}

void MPopupMenu::RemoveAll() {
  while (GetCount() > 0) DeleteMenu(0, MF_BYPOSITION);
}

UINT MPopupMenu::Choose(CPoint place, CWnd* window) {
  return static_cast<UINT>(TrackPopupMenu(
      TPM_LEFTALIGN | TPM_RIGHTBUTTON | TPM_RETURNCMD | TPM_NONOTIFY, place.x, place.y, window));
}
