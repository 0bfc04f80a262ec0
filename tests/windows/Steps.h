// Windows that a test drives: one step each time no message waits, so that everything a step has
// posted is done before the next one.
#pragma once

#include <afxpriv.h>

#include <gtest/gtest.h>

#include <functional>
#include <vector>

#include "support/Watchdog.h"
#include "windows/DialogTemplate.h"

// Ends temporary objects, as a program does when it is idle.
inline void DeleteTemporaryObjects() {
  CWnd::DeleteTempMap();
  CDC::DeleteTempMap();
  CGdiObject::DeleteTempMap();
  CMenu::DeleteTempMap();
}

// A test with windows.
class WindowTest : public testing::Test {
 protected:
  void TearDown() override { DeleteTemporaryObjects(); }

 private:
  watchdog::ExpectWindows m_windows;
};

// A modal dialog that takes its steps and then ends with kStepsDone, unless a step has ended it.
class StepDialog : public CDialog {
 public:
  static constexpr int kStepsDone = 4711;
  using Step = std::function<void()>;

  explicit StepDialog(const DialogTemplate& contents, CWnd* owner = nullptr)
      : m_contents(contents) {
    InitModalIndirect(m_contents, owner);
  }

  StepDialog& Then(Step step) {
    m_steps.push_back(std::move(step));
    return *this;
  }

  // As if the user had pressed a key.
  static void PostKey(WPARAM key) {
    const HWND focus = ::GetFocus();
    ::PostMessage(focus, WM_KEYDOWN, key, 1);
    ::PostMessage(focus, WM_KEYUP, key, static_cast<LPARAM>(0xC0000001));
  }
  void PostClick(int id) { ::PostMessage(::GetDlgItem(m_hWnd, id), BM_CLICK, 0, 0); }
  int FocusId() const { return ::GetDlgCtrlID(::GetFocus()); }

  using CDialog::EndDialog;

 protected:
  afx_msg LRESULT OnKickIdle(WPARAM, LPARAM) {
    if (m_next < m_steps.size())
      m_steps[m_next++]();
    else
      EndDialog(kStepsDone);
    return 1;
  }
  DECLARE_MESSAGE_MAP()

 private:
  DialogTemplate m_contents;
  std::vector<Step> m_steps;
  size_t m_next = 0;
};
