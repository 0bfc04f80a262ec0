#include "foldercmp/FolderBox.h"

#include <shlobj.h>
#include <shlwapi.h>

#include <algorithm>

#include "foldercmp/FolderPath.h"
#include "foldercmp/HostTexts.h"

namespace {

constexpr int kMostTyped = MAX_PATH - 1;
constexpr RECT kNoPlace = {0, 0, 0, 0};
constexpr int kShownFolders = 12;

// What the tree of folders allocates belongs to the shell's allocator.
struct ShellList {
  explicit ShellList(LPITEMIDLIST list) : list(list) {}
  ~ShellList() { CoTaskMemFree(list); }
  ShellList(const ShellList&) = delete;
  ShellList& operator=(const ShellList&) = delete;
  const LPITEMIDLIST list;
};

// The tree opens at the folder that stands in the box.
int CALLBACK onBrowse(HWND tree, UINT message, LPARAM, LPARAM folder) {
  if (message == BFFM_INITIALIZED && *reinterpret_cast<const char*>(folder) != 0)
    SendMessage(tree, BFFM_SETSELECTIONA, TRUE, folder);
  return 0;
}

CString text(const CWnd& window) {
  CString content;
  window.GetWindowText(content);
  return content;
}

}  // namespace

BOOL FolderBox::Create(CWnd& parent, UINT labelId, UINT labelText, UINT browseText) {
  constexpr DWORD kShown = WS_CHILD | WS_VISIBLE;
  constexpr DWORD kEditStyle = CBS_DROPDOWN | CBS_AUTOHSCROLL | WS_VSCROLL | WS_TABSTOP | WS_GROUP;
  if (!m_label.Create(MString::Loaded(labelText), kShown | SS_LEFT | SS_CENTERIMAGE, kNoPlace,
                      &parent, labelId) ||
      !m_edit.Create(kShown | kEditStyle, kNoPlace, &parent, labelId + 1) ||
      !m_browse.Create(MString::Loaded(browseText), kShown | BS_PUSHBUTTON | WS_TABSTOP | WS_GROUP,
                       kNoPlace, &parent, labelId + 2))
    return FALSE;
  m_edit.LimitText(kMostTyped);
  COMBOBOXINFO info = {};
  info.cbSize = sizeof info;
  if (m_edit.GetComboBoxInfo(&info)) SHAutoComplete(info.hwndItem, SHACF_FILESYS_DIRS);
  return TRUE;
}

void FolderBox::SetFont(CFont& font) {
  for (CWnd* const window :
       {static_cast<CWnd*>(&m_label), static_cast<CWnd*>(&m_edit), static_cast<CWnd*>(&m_browse)})
    window->SetFont(&font);
}

int FolderBox::LabelWidth(const PanelMetrics& metrics) const {
  return metrics.TextWidth(text(m_label)) + metrics.Width(4);
}

int FolderBox::ButtonWidth(const PanelMetrics& metrics) const {
  return metrics.TextWidth(text(m_browse)) + metrics.Width(10);
}

int FolderBox::Height() const {
  CRect place;
  m_edit.GetWindowRect(place);
  return place.Height();
}

void FolderBox::Place(const CRect& line, int labelWidth, int buttonWidth, int gap) {
  const int editLeft = line.left + labelWidth;
  const int editWidth = std::max<int>(0, line.right - buttonWidth - gap - editLeft);
  m_label.MoveWindow(line.left, line.top, labelWidth, line.Height());
  // The height of a box is that of its list.
  m_edit.MoveWindow(editLeft, line.top, editWidth,
                    line.Height() + kShownFolders * m_edit.GetItemHeight(0));
  m_browse.MoveWindow(line.right - buttonWidth, line.top, buttonWidth, line.Height());
  // A box that is resized selects its whole text.
  if (!HasFocus()) m_edit.SetEditSel(-1, 0);
}

CRect FolderBox::PlaceIn(const CWnd& parent) const {
  CRect place, button;
  m_label.GetWindowRect(place);
  m_browse.GetWindowRect(button);
  place.UnionRect(place, button);
  parent.ScreenToClient(place);
  return place;
}

CString FolderBox::Folder() const { return AbsoluteFolder(text(m_edit)); }

void FolderBox::SetFolder(const char* folder) {
  m_edit.SetWindowText(folder);
  m_edit.SetEditSel(-1, 0);
}

void FolderBox::SetRemembered(const std::vector<CString>& folders) {
  const CString typed = text(m_edit);
  m_edit.ResetContent();
  for (const CString& folder : folders) m_edit.AddString(folder);
  SetFolder(typed);
}

void FolderBox::SetFocus() { m_edit.SetFocus(); }

bool FolderBox::HasFocus() const {
  const HWND focus = ::GetFocus();
  return focus == m_edit.m_hWnd || ::IsChild(m_edit.m_hWnd, focus);
}

void FolderBox::Browse(CWnd& owner, UINT title) {
  const CString before = Folder(), heading = MString::Loaded(title);
  char path[MAX_PATH] = "";
  BROWSEINFOA browse = {};
  browse.hwndOwner = owner;
  browse.pszDisplayName = path;
  browse.lpszTitle = heading;
  browse.ulFlags = BIF_RETURNONLYFSDIRS | BIF_NEWDIALOGSTYLE;
  browse.lpfn = onBrowse;
  browse.lParam = reinterpret_cast<LPARAM>(static_cast<LPCTSTR>(before));
  const ShellList chosen(SHBrowseForFolderA(&browse));
  if (chosen.list != nullptr && SHGetPathFromIDListA(chosen.list, path)) SetFolder(path);
}
