#include "lists/MListCtrl.h"

#include "resources/resource.h"
#include "settings/MakerAddresses.h"

BEGIN_MESSAGE_MAP(MListCtrl, CListCtrlEx)
ON_WM_DESTROY()
ON_WM_KEYDOWN()
ON_WM_GETDLGCODE()
ON_WM_CONTEXTMENU()
ON_WM_WININICHANGE()
ON_NOTIFY_REFLECT(LVN_GETDISPINFOW, OnGetDispInfo)
ON_NOTIFY_REFLECT(LVN_ODFINDITEMW, OnFindRow)
ON_NOTIFY_REFLECT(LVN_COLUMNCLICK, OnColumnClick)
ON_NOTIFY_REFLECT(LVN_ITEMCHANGED, OnItemChanged)
ON_NOTIFY_REFLECT(LVN_ODSTATECHANGED, OnStatesChanged)
ON_NOTIFY_REFLECT(NM_DBLCLK, OnRowDoubleClick)
ON_NOTIFY_REFLECT(LVN_BEGINLABELEDITW, OnBeginLabelEdit)
ON_NOTIFY_REFLECT(LVN_ENDLABELEDITW, OnEndLabelEdit)
END_MESSAGE_MAP()

namespace {

constexpr DWORD kListStyle = LVS_REPORT | LVS_OWNERDATA | LVS_SHOWSELALWAYS;
// Of a list view that is replaced these are not taken over: a virtual list does not sort itself.
constexpr DWORD kStylesLeftOut = LVS_TYPEMASK | LVS_SORTASCENDING | LVS_SORTDESCENDING;
constexpr char kDefaultProduct[] = "Brackwell Reports";

}  // namespace

MListCtrl::MListCtrl() : m_productName(kDefaultProduct) {
  m_map.AddSlot(true);  // kDescriptionSlot
  m_productUrl = MakerAddress(IDS_PRODUCT_PAGE);
}

// The window goes while the list is still whole, because its end saves the layout.
MListCtrl::~MListCtrl() { DestroyWindow(); }

void MListCtrl::SetUrlAndProduct(const char* url, const char* product) {
  m_productUrl = url;
  m_productName = product;
}

void MListCtrl::OnHlReport(const HlReportCallbacks& callbacks, void* client) {
  m_hlReport = callbacks;
  m_hlReportClient = client;
}

// --- The window ---

BOOL MListCtrl::Create(DWORD style, const RECT& place, CWnd* parent, UINT id) {
  return CListCtrlEx::Create((style & ~kStylesLeftOut) | kListStyle, place, parent, id);
}

int MListCtrl::Subclass(CWnd* dialog, UINT id) {
  const HWND control = ::GetDlgItem(dialog->GetSafeHwnd(), static_cast<int>(id));
  return control != nullptr && Subclass(CWnd::FromHandle(control), dialog, id);
}

int MListCtrl::Subclass(CWnd* window, CWnd* parent, UINT id) {
  if (window == nullptr || parent == nullptr || !::IsWindow(*window)) return 0;
  const HWND old = *window;
  const DWORD style = window->GetStyle();
  if ((style & (LVS_OWNERDATA | LVS_TYPEMASK)) == (LVS_OWNERDATA | LVS_REPORT)) {
    ::SetWindowLong(old, GWL_ID, static_cast<LONG>(id));
    return SubclassWindow(old);
  }
  // A list view cannot become a virtual one.
  CRect place;
  window->GetWindowRect(place);
  parent->ScreenToClient(place);
  const HWND before = ::GetWindow(old, GW_HWNDPREV);
  const auto font = reinterpret_cast<HFONT>(::SendMessage(old, WM_GETFONT, 0, 0));
  const DWORD exStyle = window->GetExStyle();
  ::DestroyWindow(old);
  if (!Create(style, place, parent, id)) return 0;
  ModifyStyleEx(0, exStyle, SWP_FRAMECHANGED);
  ::SetWindowPos(m_hWnd, before != nullptr ? before : HWND_TOP, 0, 0, 0, 0,
                 SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
  if (font != nullptr) SendMessage(WM_SETFONT, reinterpret_cast<WPARAM>(font), FALSE);
  return 1;
}

void MListCtrl::InitWindow() {
  CListCtrlEx::InitWindow();
  if (m_onLabelEdit) ModifyStyle(0, LVS_EDITLABELS);
  for (int position = 0; position < GetVisibleColNum(); ++position) InsertHeader(position);
  m_rowCountStale = true;
  ShowArrow();
}

// Whoever sends the window a message finds it with the rows that the list has. Adding an item costs
// no message this way.
LRESULT MListCtrl::WindowProc(UINT message, WPARAM wParam, LPARAM lParam) {
  if (m_rowCountStale && message != LVM_SETITEMCOUNT && message != WM_NCDESTROY) SyncRowCount();
  if (message == kForSelectedMessage) {
    reinterpret_cast<const RemoteCall*>(lParam)->Run();
    return 0;
  }
  return CListCtrlEx::WindowProc(message, wParam, lParam);
}

void MListCtrl::SyncRowCount() {
  m_rowCountStale = false;
  SetItemCountEx(GetItemCount(), LVSICF_NOINVALIDATEALL | LVSICF_NOSCROLL);
}

void MListCtrl::OnDestroy() {
  SaveLayout();
  CListCtrlEx::OnDestroy();
}

void MListCtrl::OnWinIniChange(LPCTSTR section) {
  CListCtrlEx::OnWinIniChange(section);
  Invalidate();  // the user's date format may be another one
  if (m_onWinIniChange) m_onWinIniChange();
}
