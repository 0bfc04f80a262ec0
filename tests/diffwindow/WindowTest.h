// The difference window of two files, driven as its user does.
#pragma once

#include <afxwin.h>

#include <gtest/gtest.h>

#include <string>

#include "foldercmp/diff/DiffFrame.h"
#include "foldercmp/diff/diff_ids.h"
#include "settings/RegistryUtil.h"
#include "support/RegistrySubtree.h"
#include "support/TempFolder.h"
#include "support/Watchdog.h"

class DiffWindowTest : public testing::Test {
 protected:
  void SetUp() override { MRegistry::InitProductRegistry(m_key.c_str(), 1); }
  void TearDown() override {
    Close();
    MRegistry::FreeProductRegistry();
    CWnd::DeleteTempMap();
    CGdiObject::DeleteTempMap();
    CDC::DeleteTempMap();
    CMenu::DeleteTempMap();
  }

  // Writes both files and opens their window.
  void Open(const std::string& left, const std::string& right) {
    m_left = m_folder.Write("left.txt", left);
    m_right = m_folder.Write("right.txt", right);
    OpenFiles();
  }
  void OpenFiles() {
    m_frame = new DiffFrame({m_left.c_str(), m_right.c_str(), "Left title", "Right title"});
    m_app.m_pMainWnd = m_frame;
    ASSERT_TRUE(m_frame->Create());
    m_frame->Show();
    m_frame->LoadDocuments();
    Pump();
  }
  void Close() {
    if (m_frame != nullptr && ::IsWindow(m_window)) m_frame->SendMessage(WM_CLOSE);
    m_frame = nullptr;
    MSG quit;
    while (::PeekMessage(&quit, nullptr, 0, 0, PM_REMOVE)) {
    }
  }

  // Everything that waits, with the program's keys. False: the program is to end.
  bool Pump() {
    if (m_frame != nullptr) m_window = m_frame->m_hWnd;
    MSG message;
    while (::PeekMessage(&message, nullptr, 0, 0, PM_NOREMOVE)) {
      if (!m_app.PumpMessage()) return false;
    }
    return true;
  }
  enum Modifiers { kNone = 0, kShift = 1, kControl = 2, kAlt = 4 };
  // A key pressed in the window that has the focus.
  bool Press(UINT key, int modifiers = kNone) {
    Hold(modifiers);
    const bool isAlt = (modifiers & kAlt) != 0;
    ::PostMessage(::GetFocus(), isAlt ? WM_SYSKEYDOWN : WM_KEYDOWN, key, isAlt ? 0x20000001 : 1);
    const bool goesOn = Pump();
    Hold(kNone);
    return goesOn;
  }
  // A click in a window, at a place of it, held and moved to another one if that is given.
  void Click(int id, CPoint point, WPARAM flags = 0) { Drag(id, point, point, flags); }
  void Drag(int id, CPoint from, CPoint to, WPARAM flags = 0) {
    const HWND window = Child(id);
    ::PostMessage(window, WM_LBUTTONDOWN, MK_LBUTTON | flags, MAKELPARAM(from.x, from.y));
    if (from != to) ::PostMessage(window, WM_MOUSEMOVE, MK_LBUTTON, MAKELPARAM(to.x, to.y));
    ::PostMessage(window, WM_LBUTTONUP, 0, MAKELPARAM(to.x, to.y));
    Pump();
  }

  HWND Child(int id) const {
    for (const HWND parent : {m_frame->m_hWnd, m_frame->view().m_hWnd})
      if (const HWND found = ::GetDlgItem(parent, id)) return found;
    return nullptr;
  }
  // The place of a row in a pane.
  CPoint RowPlace(int row) const {
    const DiffStyle style;
    const int rows = row - state().place.first();
    return CPoint(100, style.titleHeight() + rows * style.rowHeight() + style.rowHeight() / 2);
  }
  std::string Status(int part) const {
    char text[256] = "";
    ::SendMessage(Child(AFX_IDW_STATUS_BAR), SB_GETTEXTA, part, reinterpret_cast<LPARAM>(text));
    return text;
  }
  const DiffViewState& state() const { return std::as_const(*m_frame).view().state(); }
  const DiffDocument& document() const { return *state().document; }

  // So many lines "line 1", "line 2", ...; the ones in changed get another text behind them.
  static std::string Lines(int count, const std::vector<int>& changed = {}) {
    std::string text;
    for (int line = 1; line <= count; ++line) {
      text += "line " + std::to_string(line);
      if (std::find(changed.begin(), changed.end(), line) != changed.end()) text += " changed";
      text += "\r\n";
    }
    return text;
  }

  RegistrySubtree m_key;
  TempFolder m_folder;
  std::string m_left;
  std::string m_right;
  class App : public CWinApp {
  } m_app;
  DiffFrame* m_frame = nullptr;
  HWND m_window = nullptr;

 private:
  // GetKeyState takes them for pressed.
  static void Hold(int modifiers) {
    BYTE keys[256] = {};
    if (modifiers & kShift) keys[VK_SHIFT] = 0x80;
    if (modifiers & kControl) keys[VK_CONTROL] = 0x80;
    if (modifiers & kAlt) keys[VK_MENU] = 0x80;
    ::SetKeyboardState(keys);
  }

  watchdog::ExpectWindows m_windows;
};
