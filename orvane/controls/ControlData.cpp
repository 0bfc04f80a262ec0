#include "controls/ControlData.h"

namespace {

LRESULT send(HWND window, UINT message, WPARAM wParam = 0, LPARAM lParam = 0) {
  return ::SendMessage(window, message, wParam, lParam);
}

CString textOf(HWND window) {
  CString text;
  const int length = ::GetWindowTextLength(window);
  ::GetWindowText(window, text.GetBuffer(length), length + 1);
  text.ReleaseBuffer();
  return text;
}

}  // namespace

HWND MControlData::Handle(size_t number) const {
  return m_dialog == nullptr ? nullptr : ::GetDlgItem(m_dialog, m_windows[number].id);
}

void MControlData::Attach(HWND dialog) { m_dialog = dialog; }

void MControlData::SetText(const char* text) {
  m_windows.front().text = text;
  if (IsOpen()) ::SetWindowText(Handle(), m_windows.front().text);
}

void MControlData::Enable(BOOL enabled) {
  m_enabled = enabled;
  for (size_t i = 0; IsOpen() && i < m_windows.size(); ++i) ::EnableWindow(Handle(i), enabled);
}

void MControlData::SetVal(int value) {
  m_value = value;
  if (IsOpen()) ToWindow();
}

void MControlData::SetIcon(HICON icon) {
  m_icon = icon;
  if (IsOpen()) send(Handle(), STM_SETICON, reinterpret_cast<WPARAM>(icon));
}

void MControlData::ToWindow() {
  const WORD systemClass = m_windows.front().systemClass;
  if (systemClass == ButtonClass) send(Handle(), BM_SETCHECK, m_value);
  if (systemClass == StaticClass && m_icon != nullptr) {
    send(Handle(), STM_SETICON, reinterpret_cast<WPARAM>(m_icon));
  }
}

void MControlData::FromWindow() {
  if (m_windows.front().systemClass == ButtonClass) {
    m_value = static_cast<int>(send(Handle(), BM_GETCHECK));
  }
}

MRadioGroupData::MRadioGroupData(const CRect& place, const std::vector<CString>& texts, int value,
                                 UINT id) {
  const int count = static_cast<int>(texts.size());
  for (int i = 0; i < count; ++i) {
    const CRect one(place.left, place.top + place.Height() * i / count, place.right,
                    place.top + place.Height() * (i + 1) / count);
    // The group begins with its first button, and Tab goes to the one that is chosen.
    const DWORD first = i == 0 ? WS_GROUP | WS_TABSTOP : 0;
    AddWindow({ButtonClass, BS_AUTORADIOBUTTON | first, one, id + i, texts[i]});
  }
  StoreValue(value);
}

void MRadioGroupData::ToWindow() {
  for (size_t i = 0; i < Windows().size(); ++i) {
    send(Handle(i), BM_SETCHECK, static_cast<int>(i) == GetVal() ? BST_CHECKED : BST_UNCHECKED);
  }
}

void MRadioGroupData::FromWindow() {
  StoreValue(-1);
  for (size_t i = 0; i < Windows().size(); ++i) {
    if (send(Handle(i), BM_GETCHECK) == BST_CHECKED) StoreValue(static_cast<int>(i));
  }
}

void MEditData::ToWindow() {
  if (m_limit > 0) send(Handle(), EM_SETLIMITTEXT, m_limit);
  if (textOf(Handle()) != GetText()) ::SetWindowText(Handle(), GetText());
}

void MEditData::FromWindow() { StoreText(textOf(Handle())); }

CString MListData::GetSelected() const {
  const size_t number = static_cast<size_t>(GetVal());
  return number < m_items.size() ? m_items[number] : CString();
}

void MListData::ToWindow() {
  send(Handle(), LB_RESETCONTENT);
  for (const CString& item : m_items) {
    send(Handle(), LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(static_cast<LPCSTR>(item)));
  }
  send(Handle(), LB_SETCURSEL, GetVal());
}

void MListData::FromWindow() { StoreValue(static_cast<int>(send(Handle(), LB_GETCURSEL))); }
