// A window for the controls of a test, which the test drives by messages.
#pragma once

#include <afxcmn.h>

#include <gtest/gtest.h>

#include <string>

#include "support/Watchdog.h"

constexpr UINT kControl = 1000;  // the id of a test's control

// Temporary objects, which live until their thread is idle, end with the test.
class ControlTest : public testing::Test {
 protected:
  void SetUp() override {
    m_parent.CreateEx(0, AfxRegisterWndClass(0), "Controls", WS_POPUP, 0, 0, 400, 300, nullptr,
                      nullptr);
    m_parent.ShowWindow(SW_SHOWNOACTIVATE);
  }
  void TearDown() override {
    m_parent.DestroyWindow();
    CWnd::DeleteTempMap();
    CGdiObject::DeleteTempMap();
    CDC::DeleteTempMap();
    CMenu::DeleteTempMap();
    CImageList::DeleteTempMap();
  }

  // Makes the window of a control, visible.
  template <class Control>
  bool Make(Control& control, DWORD style = 0, UINT id = kControl) {
    return control.Create(WS_CHILD | WS_VISIBLE | style, m_place, &m_parent, id);
  }

  CWnd m_parent;
  const CRect m_place{10, 10, 310, 210};

 private:
  watchdog::ExpectWindows m_windows;
};

// So that messages of GoogleTest show the text.
inline std::string text(const CString& string) {
  return std::string(string, static_cast<size_t>(string.GetLength()));
}
inline std::string text(const CWnd& window) {
  CString shown;
  window.GetWindowText(shown);
  return text(shown);
}

// Takes and dispatches what waits in the queue.
inline void pumpMessages() {
  MSG message;
  while (PeekMessage(&message, nullptr, 0, 0, PM_REMOVE)) {
    TranslateMessage(&message);
    DispatchMessage(&message);
  }
}
