// What a user does in the dialogs of filters and reports.
#pragma once

#include "dialogs/Driver.h"
#include "lists/ListTest.h"

// Temporary objects, which live until their thread is idle, end with the test.
class TestWithWindows : public testing::Test {
 protected:
  ~TestWithWindows() override {
    DeleteTemporaryObjects();
    CMenu::DeleteTempMap();
  }
};

inline Driver::Step choose(int id, int entry) {
  return [=](HWND window) {
    SendDlgItemMessage(window, id, CB_SETCURSEL, static_cast<WPARAM>(entry), 0);
    SendMessage(window, WM_COMMAND, MAKEWPARAM(id, CBN_SELCHANGE),
                reinterpret_cast<LPARAM>(GetDlgItem(window, id)));
  };
}
inline Driver::Step type(int id, const char* text) {
  return [=](HWND window) { SetDlgItemText(window, id, text); };
}

// Whether controls are enabled, a digit each.
inline Driver::Step expectEnabled(std::vector<int> ids, const char* expected) {
  return [=](HWND window) {
    std::string states;
    for (const int id : ids) states += IsWindowEnabled(GetDlgItem(window, id)) ? '1' : '0';
    EXPECT_EQ(states, expected);
  };
}
inline Driver::Step expectTitle(const char* title) {
  return [=](HWND window) { EXPECT_EQ(Driver::TextOf(window), title); };
}
