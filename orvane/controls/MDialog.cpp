#include "controls/MDialog.h"

#include <algorithm>

#include "controls/DialogTemplate.h"
#include "diag/trace.h"

namespace {

CRect rectOf(int x, int y, int width, int height) { return CRect(x, y, x + width, y + height); }

// The work area of the screen that a window is on; null: the first screen.
CRect workAreaOf(HWND window) {
  MONITORINFO info = {};
  info.cbSize = sizeof info;
  GetMonitorInfo(MonitorFromWindow(window, MONITOR_DEFAULTTOPRIMARY), &info);
  return info.rcWork;
}

}  // namespace

MDialog::MDialog(CWnd* owner) { m_pParentWnd = owner; }

// The window goes while the controls' data still are there.
MDialog::~MDialog() {
  if (m_hWnd != nullptr) DestroyWindow();
}

void MDialog::SetDialog(int x, int y, int width, int height, const char* caption, int interactive,
                        int inDialogUnits) {
  m_place = rectOf(x, y, width, height);
  m_caption = caption;
  m_interactive = interactive;
  if (inDialogUnits != 0) m_units = MDialogUnits::OfDialog;
}

void MDialog::RemoveControls() {
  ASSERT(m_hWnd == nullptr);
  if (m_hWnd != nullptr) return;
  m_controls.clear();
  m_nextId = kFirstId;
}

DialogMetrics& MDialog::Metrics() const {
  if (m_metrics == nullptr) m_metrics = std::make_unique<DialogMetrics>();
  return *m_metrics;
}

CSize MDialog::GetTextSize(const char* text, MControlKind kind, int width) const {
  const int pixels = width > 0 ? std::max(1L, Metrics().ToPixels(CSize(width, 0), m_units).cx) : 0;
  return Metrics().FromPixels(Metrics().ControlSize(text, kind, pixels), m_units);
}

CSize MDialog::GetLargestSize() const {
  const CRect area = workAreaOf(OwnerWindow());
  CRect frame(0, 0, 0, 0);
  AdjustWindowRectEx(&frame, Style(), FALSE, WS_EX_DLGMODALFRAME);
  // Upwards once more would not fit.
  const CSize largest = Metrics().FromPixels(area.Size() - frame.Size(), m_units);
  return largest - CSize(1, 1);
}

UINT MDialog::NextId(UINT wanted, UINT count) {
  if (wanted != 0) return wanted;
  m_nextId += count;
  return m_nextId - count;
}

template <class Data>
Data& MDialog::Keep(std::unique_ptr<Data> data) {
  Data& kept = *data;
  m_controls.push_back(std::move(data));
  return kept;
}

MControlData& MDialog::SetTextBox(int x, int y, int width, int height, const char* text,
                                  DWORD alignment, UINT id) {
  const MControlData::Window window = {MControlData::StaticClass,
                                       alignment | SS_NOPREFIX | SS_EDITCONTROL | WS_GROUP,
                                       rectOf(x, y, width, height), NextId(id), text};
  return Keep(std::make_unique<MControlData>(window));
}

MControlData& MDialog::SetIconBox(int x, int y, int width, int height, HICON icon, UINT id) {
  const MControlData::Window window = {MControlData::StaticClass,
                                       SS_ICON | SS_CENTERIMAGE | WS_GROUP,
                                       rectOf(x, y, width, height), NextId(id), ""};
  MControlData& data = Keep(std::make_unique<MControlData>(window));
  data.SetIcon(icon);
  return data;
}

MControlData& MDialog::SetCheckButton(int x, int y, int width, int height, const char* text,
                                      int value, DWORD style, UINT id) {
  const MControlData::Window window = {MControlData::ButtonClass,
                                       style | BS_MULTILINE | WS_TABSTOP | WS_GROUP,
                                       rectOf(x, y, width, height), NextId(id), text};
  MControlData& data = Keep(std::make_unique<MControlData>(window));
  data.SetVal(value);
  return data;
}

MRadioGroupData& MDialog::SetRadioGroup(int x, int y, int width, int height,
                                        const std::vector<CString>& texts, int value, UINT id) {
  ASSERT(!texts.empty());
  const std::vector<CString> atLeastOne = texts.empty() ? std::vector<CString>(1) : texts;
  return Keep(std::make_unique<MRadioGroupData>(rectOf(x, y, width, height), atLeastOne, value,
                                                NextId(id, static_cast<UINT>(atLeastOne.size()))));
}

MEditData& MDialog::SetEdit(int x, int y, int width, int height, const char* text, DWORD style,
                            UINT id) {
  const MControlData::Window window = {MControlData::EditClass, style | WS_TABSTOP | WS_GROUP,
                                       rectOf(x, y, width, height), NextId(id), text};
  return Keep(std::make_unique<MEditData>(window));
}

MListData& MDialog::SetList(int x, int y, int width, int height, const std::vector<CString>& items,
                            int value, UINT id) {
  const DWORD style = LBS_NOTIFY | LBS_NOINTEGRALHEIGHT | WS_VSCROLL | WS_TABSTOP | WS_GROUP;
  const MControlData::Window window = {MControlData::ListBoxClass, style,
                                       rectOf(x, y, width, height), NextId(id), ""};
  return Keep(std::make_unique<MListData>(window, items, value));
}

MPushButtonData& MDialog::AddButton(const CRect& place, const char* text, DWORD style, UINT id) {
  const MControlData::Window window = {MControlData::ButtonClass, style | WS_TABSTOP | WS_GROUP,
                                       place, id, text};
  return Keep(std::make_unique<MPushButtonData>(window));
}

MPushButtonData& MDialog::SetOkButton(int x, int y, int width, int height, const char* text) {
  return AddButton(rectOf(x, y, width, height), text, BS_DEFPUSHBUTTON, IDOK);
}

MPushButtonData& MDialog::SetCancelButton(int x, int y, int width, int height, const char* text) {
  return AddButton(rectOf(x, y, width, height), text, BS_PUSHBUTTON, IDCANCEL);
}

MPushButtonData& MDialog::SetPushButton(int x, int y, int width, int height, const char* text,
                                        UINT id) {
  return AddButton(rectOf(x, y, width, height), text, BS_PUSHBUTTON, NextId(id));
}

DWORD MDialog::Style() const {
  return WS_POPUP | WS_CAPTION | DS_MODALFRAME | (m_interactive != 0 ? WS_SYSMENU : 0);
}

HWND MDialog::OwnerWindow() const {
  if (m_hWnd != nullptr) return ::GetWindow(m_hWnd, GW_OWNER);
  const CWnd* const owner = m_pParentWnd != nullptr ? m_pParentWnd : AfxGetMainWnd();
  return owner != nullptr ? owner->m_hWnd : nullptr;
}

DialogTemplate MDialog::Template() const {
  DialogTemplate contents(Style(), DialogMetrics::kFace, DialogMetrics::kPointSize);
  for (const auto& control : m_controls) {
    for (const MControlData::Window& window : control->Windows()) contents.Add(window);
  }
  return contents;
}

int MDialog::DoModal() {
  ASSERT(m_hWnd == nullptr);
  if (m_hWnd != nullptr || AssertVerifyTrace::BlockGui()) return -1;
  const DialogTemplate contents = Template();
  InitModalIndirect(contents.Get(), m_pParentWnd);
  m_modal = true;  // until PostNcDestroy, in which a derived class may delete the dialog
  return CDialog::DoModal();
}

BOOL MDialog::Create(CWnd* owner) {
  ASSERT(m_hWnd == nullptr);
  if (m_hWnd != nullptr || AssertVerifyTrace::BlockGui()) return FALSE;
  m_modal = false;
  return CreateIndirect(Template().Get(), owner != nullptr ? owner : m_pParentWnd);
}

BOOL MDialog::OnInitDialog() {
  SetWindowText(m_caption);
  Place();
  for (const auto& control : m_controls) {
    for (const MControlData::Window& window : control->Windows()) {
      ::SetDlgItemText(m_hWnd, window.id, window.text);
    }
    control->Attach(m_hWnd);
    control->Enable(control->IsEnabled());
  }
  return CDialog::OnInitDialog();
}

void MDialog::Place() {
  for (const auto& control : m_controls) {
    for (const MControlData::Window& window : control->Windows()) {
      const CSize corner = Metrics().ToPixels(CSize(window.place.TopLeft()), m_units);
      const CSize size = Metrics().ToPixels(window.place.Size(), m_units);
      ::SetWindowPos(::GetDlgItem(m_hWnd, window.id), nullptr, corner.cx, corner.cy, size.cx,
                     size.cy, SWP_NOZORDER | SWP_NOACTIVATE);
    }
  }
  const CSize client = Metrics().ToPixels(m_place.Size(), m_units);
  CRect frame(0, 0, client.cx, client.cy);
  AdjustWindowRectEx(&frame, GetStyle(), FALSE, GetExStyle());
  SetWindowPos(nullptr, 0, 0, frame.Width(), frame.Height(),
               SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
  if (m_place.left == kCentred && m_place.top == kCentred) return CenterWindow();
  const CSize corner = Metrics().ToPixels(CSize(m_place.TopLeft()), m_units);
  POINT place = {corner.cx, corner.cy};
  const HWND owner = OwnerWindow();
  if (owner != nullptr) ::ClientToScreen(owner, &place);
  // Where it does not fit, its caption is what must be seen.
  const CRect area = workAreaOf(owner);
  place.x = std::max(area.left, std::min(place.x, area.right - frame.Width()));
  place.y = std::max(area.top, std::min(place.y, area.bottom - frame.Height()));
  SetWindowPos(nullptr, place.x, place.y, 0, 0, SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
}

void MDialog::DoDataExchange(CDataExchange* exchange) {
  for (const auto& control : m_controls) {
    if (exchange->m_bSaveAndValidate) {
      control->FromWindow();
    } else {
      control->ToWindow();
    }
  }
}

BOOL MDialog::OnCommand(WPARAM wParam, LPARAM lParam) {
  const UINT id = LOWORD(wParam);
  if (HIWORD(wParam) == BN_CLICKED && lParam != 0 && id != IDOK && id != IDCANCEL) {
    for (const auto& control : m_controls) {
      auto* const button = dynamic_cast<MPushButtonData*>(control.get());
      if (button == nullptr || button->GetId() != id) continue;
      OnPushButton(*button);
      return TRUE;
    }
  }
  return CDialog::OnCommand(wParam, lParam);
}

void MDialog::OnPushButton(MPushButtonData& button) { Finish(static_cast<int>(button.GetId())); }

void MDialog::OnOK() {
  // Enter sends the command even when there is no such button.
  if (GetDlgItem(IDOK) != nullptr && UpdateData(TRUE)) Finish(IDOK);
}

void MDialog::OnCancel() { Finish(IDCANCEL); }

void MDialog::Finish(int result) {
  if (m_modal) {
    EndDialog(result);
  } else {
    DestroyWindow();
  }
}

void MDialog::PostNcDestroy() {
  for (const auto& control : m_controls) control->Attach(nullptr);
  m_modal = false;
  m_lpDialogTemplate = nullptr;
  CDialog::PostNcDestroy();
}
