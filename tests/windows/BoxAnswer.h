// Answers the message boxes of its thread while it lives, and keeps what they say.
#pragma once

#include <afxwin.h>

#include <string>

class BoxAnswer {
 public:
  explicit BoxAnswer(int button) : m_before(s_current), m_button(button) {
    s_current = this;
    m_timer = ::SetTimer(nullptr, 0, 10, &Look);
  }
  ~BoxAnswer() {
    ::KillTimer(nullptr, m_timer);
    s_current = m_before;
  }
  BoxAnswer(const BoxAnswer&) = delete;
  BoxAnswer& operator=(const BoxAnswer&) = delete;

  int count = 0;
  std::string title, text;
  HWND owner = nullptr;
  bool hasIcon = false;

 private:
  static void CALLBACK Look(HWND, UINT, UINT_PTR, DWORD) {
    ::EnumThreadWindows(GetCurrentThreadId(), &Answer, reinterpret_cast<LPARAM>(s_current));
  }

  // The system's boxes have their text in a static control of this number.
  static BOOL CALLBACK Answer(HWND window, LPARAM self) {
    const HWND text = ::GetDlgItem(window, 0xFFFF);
    const HWND button = ::GetDlgItem(window, reinterpret_cast<BoxAnswer*>(self)->m_button);
    if (text == nullptr || button == nullptr || !::IsWindowVisible(window)) return TRUE;
    reinterpret_cast<BoxAnswer*>(self)->Take(window, text);
    ::PostMessage(button, BM_CLICK, 0, 0);
    return FALSE;
  }

  void Take(HWND window, HWND control) {
    char buffer[512] = "";
    ::GetWindowText(window, buffer, sizeof buffer);
    title = buffer;
    ::GetWindowText(control, buffer, sizeof buffer);
    text = buffer;
    owner = ::GetWindow(window, GW_OWNER);
    hasIcon = ::SendMessage(::GetDlgItem(window, 1088), STM_GETICON, 0, 0) != 0;
    ++count;
    ::KillTimer(nullptr, m_timer);
    m_timer = 0;
  }

  static inline thread_local BoxAnswer* s_current = nullptr;
  BoxAnswer* m_before;
  int m_button;
  UINT_PTR m_timer;
};
