// A user for modal windows that the library opens itself: takes one step after another while a
// dialog or message box of the thread is shown and no message waits.
#pragma once

#include <afxwin.h>

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

#include "support/Watchdog.h"

// As a program's main loop does when no message waits.
inline void DeleteTemporaryObjects() {
  CWnd::DeleteTempMap();
  CDC::DeleteTempMap();
  CGdiObject::DeleteTempMap();
}

class Driver {
 public:
  using Step = std::function<void(HWND window)>;

  // Steps that are left over when the driver ends are a failure; a window that stays after the last
  // step is closed, and is one too.
  explicit Driver(std::vector<Step> steps) : m_steps(std::move(steps)) {
    s_driver = this;
    m_timer = ::SetTimer(nullptr, 0, kMilliseconds, OnTimer);
  }
  ~Driver() {
    ::KillTimer(nullptr, m_timer);
    s_driver = nullptr;
    EXPECT_EQ(m_next, m_steps.size()) << "steps taken, and wanted";
    DeleteTemporaryObjects();
  }
  Driver(const Driver&) = delete;
  Driver& operator=(const Driver&) = delete;

  static Step Press(WPARAM key) {
    return [key](HWND) {
      ::PostMessage(::GetFocus(), WM_KEYDOWN, key, 1);
      ::PostMessage(::GetFocus(), WM_KEYUP, key, static_cast<LPARAM>(0xC0000001));
    };
  }
  // A letter with the Alt key held down.
  static Step Accelerator(char letter) {
    return [letter](HWND) { ::PostMessage(::GetFocus(), WM_SYSCHAR, letter, 1 | (1 << 29)); };
  }
  static Step Click(int id) {
    return [id](HWND window) { ::PostMessage(::GetDlgItem(window, id), BM_CLICK, 0, 0); };
  }
  static Step Close() {
    return [](HWND window) { ::PostMessage(window, WM_SYSCOMMAND, SC_CLOSE, 0); };
  }
  // Waits for a window with a control whose text has a part: one without owner does not keep the
  // user from the window before it.
  static Step UntilShown(const char* part) {
    return [part](HWND window) {
      for (HWND child = ::GetWindow(window, GW_CHILD); child != nullptr;
           child = ::GetWindow(child, GW_HWNDNEXT))
        if (TextOf(child).find(part) != std::string::npos) return;
      if (++s_driver->m_ticks < kTicksToEnd)
        --s_driver->m_next;
      else
        ADD_FAILURE() << "not shown: " << part;
    };
  }

  static std::string TextOf(HWND window) {
    char text[4096] = "";
    ::GetWindowText(window, text, sizeof text);
    return text;
  }

  // The visible dialog of this thread that can be used: one that opens another is disabled before
  // the other one is shown. Null: there is none.
  static HWND Shown() {
    HWND found = nullptr;
    ::EnumThreadWindows(::GetCurrentThreadId(), FindDialog, reinterpret_cast<LPARAM>(&found));
    return found;
  }

 private:
  static constexpr UINT kMilliseconds = 10;
  static constexpr int kTicksToEnd = 200;

  static BOOL CALLBACK FindDialog(HWND window, LPARAM found) {
    char name[16] = "";
    ::GetClassName(window, name, sizeof name);
    if (!::IsWindowVisible(window) || !::IsWindowEnabled(window) || strcmp(name, "#32770") != 0)
      return TRUE;
    *reinterpret_cast<HWND*>(found) = window;
    return FALSE;
  }

  static void CALLBACK OnTimer(HWND, UINT, UINT_PTR, DWORD) {
    const HWND window = Shown();
    if (window == nullptr || s_driver == nullptr) return;
    Driver& driver = *s_driver;
    if (driver.m_next < driver.m_steps.size()) {
      driver.m_steps[driver.m_next++](window);
    } else if (++driver.m_ticks == kTicksToEnd) {
      ADD_FAILURE() << "still open: " << TextOf(window);
      ::EndDialog(window, -99);
      ::PostMessage(window, WM_COMMAND, IDCANCEL, 0);
    }
  }

  static inline Driver* s_driver = nullptr;

  watchdog::ExpectWindows m_windows;
  std::vector<Step> m_steps;
  size_t m_next = 0;
  int m_ticks = 0;
  UINT_PTR m_timer;
};

// The text that a control shows, and whether it has room for it.
inline bool ShowsWholeText(HWND control, UINT format) {
  const std::string text = Driver::TextOf(control);
  CClientDC dc(CWnd::FromHandle(control));
  CFont* const old = dc.SelectObject(
      CFont::FromHandle(reinterpret_cast<HFONT>(::SendMessage(control, WM_GETFONT, 0, 0))));
  CRect room, wanted;
  ::GetClientRect(control, room);
  wanted = CRect(0, 0, room.Width(), 0);
  dc.DrawText(text.c_str(), -1, &wanted, DT_CALCRECT | DT_EXPANDTABS | format);
  dc.SelectObject(old);
  return wanted.Width() <= room.Width() && wanted.Height() <= room.Height();
}
