// The user in front of the screen: looks at the progress windows every few milliseconds, from a
// thread of its own, and does something when it has seen what it waits for.
#pragma once

#include <afxwin.h>
#include <commctrl.h>

#include <gtest/gtest.h>

#include <atomic>
#include <functional>
#include <string>
#include <thread>
#include <vector>

#include "support/Watchdog.h"

constexpr int kBarId = 1234;
constexpr WPARAM kTimerId = 55;

// What stands on the screen.
struct Seen {
  HWND window = nullptr;  // a progress window
  HWND hidden = nullptr;  // a progress window out of sight
  HWND prompt = nullptr;  // another dialog
  int percent = -1;
  std::string caption;
  DWORD sinceStart = 0;  // milliseconds

  HWND Stop() const { return GetDlgItem(window, IDCANCEL); }
};

class User {
 public:
  using Act = std::function<void(const Seen&)>;

  // act: called at every look with a visible dialog, on the user's thread.
  explicit User(Act act = [](const Seen&) {})
      : m_act(std::move(act)), m_thread([this] { Look(); }) {}
  ~User() {
    if (m_thread.joinable()) Leave();
  }
  User(const User&) = delete;
  User& operator=(const User&) = delete;

  // The looks that showed a progress window. Nobody looks any more.
  const std::vector<Seen>& Leave() {
    m_leaves = true;
    m_thread.join();
    return m_looks;
  }

  // The dialogs of this process.
  static Seen Now() {
    Seen seen;
    EnumWindows(Find, reinterpret_cast<LPARAM>(&seen));
    return seen;
  }

  static void Click(HWND button) { PostMessage(button, BM_CLICK, 0, 0); }
  static void Press(HWND button, WPARAM key) { PostMessage(button, WM_KEYDOWN, key, 1); }
  // As if the window's second was over.
  static void Tick(HWND window) { PostMessage(window, WM_TIMER, kTimerId, 0); }

 private:
  static BOOL CALLBACK Find(HWND window, LPARAM parameter) {
    Seen& seen = *reinterpret_cast<Seen*>(parameter);
    char name[16] = "";
    DWORD process = 0;
    GetWindowThreadProcessId(window, &process);
    if (process != GetCurrentProcessId()) return TRUE;
    GetClassName(window, name, sizeof name);
    if (strcmp(name, "#32770") != 0) return TRUE;
    const HWND bar = GetDlgItem(window, kBarId);
    if (!IsWindowVisible(window)) return (bar != nullptr ? seen.hidden = window : nullptr), TRUE;
    if (bar == nullptr) return seen.prompt = window, TRUE;
    if (seen.window != nullptr) return TRUE;  // the topmost
    // The bar, the caption, and the bar again: they are of one moment when the bar has not moved.
    char caption[300] = "";
    const int position = Ask(bar, PBM_GETPOS);
    Ask(window, WM_GETTEXT, sizeof caption, reinterpret_cast<LPARAM>(caption));
    if (position != Ask(bar, PBM_GETPOS) || !IsWindowVisible(window)) return TRUE;
    seen.window = window;
    seen.percent = position;
    seen.caption = caption;
    return TRUE;
  }

  static int Ask(HWND window, UINT message, WPARAM wParam = 0, LPARAM lParam = 0) {
    DWORD_PTR result = 0;
    SendMessageTimeout(window, message, wParam, lParam, SMTO_NORMAL, 500, &result);
    return static_cast<int>(result);
  }

  void Look() {
    const DWORD start = GetTickCount();
    while (!m_leaves) {
      Seen seen = Now();
      seen.sinceStart = GetTickCount() - start;
      if (seen.window != nullptr) m_looks.push_back(seen);
      if (seen.window != nullptr || seen.prompt != nullptr) m_act(seen);
      ::Sleep(5);
    }
  }

  watchdog::ExpectWindows m_windows;
  Act m_act;
  std::vector<Seen> m_looks;
  std::atomic<bool> m_leaves = false;
  std::thread m_thread;
};
