// A list in a window, for tests.
#pragma once

#include <afxcmn.h>

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "lists/MListCtrl.h"
#include "support/Watchdog.h"

// So that messages of GoogleTest show the text.
inline std::string str(const CString& text) {
  return std::string(text, static_cast<size_t>(text.GetLength()));
}

// A number in the place of a text.
inline const char* number(uint32_t value) {
  return reinterpret_cast<const char*>(static_cast<uintptr_t>(value));
}

inline void pumpMessages() {
  MSG message;
  while (PeekMessage(&message, nullptr, 0, 0, PM_REMOVE)) {
    TranslateMessage(&message);
    DispatchMessage(&message);
  }
}

// The files of a made-up folder: name, state, time, size.
class Files : public MListCtrl {
 public:
  enum { kName, kState, kTime, kSize };

  explicit Files(int store = 0) {
    StoreMultiLine(store);
    AddColumn("Name", MListCtrl::CompareStr);
    AddEnumColumn("State", 3, "Same\tModified\tNew");
    AddTimeColumn("Time", 1);
    AddNumericColumn("Size");
  }

  unsigned long Add(unsigned long id, const char* name, uint32_t state = 0, uint32_t time = 0,
                    uint32_t size = 0) {
    const char* const values[] = {name, number(state), number(time), number(size)};
    return AddItem(id, values);
  }
  // The identifiers of the rows.
  std::vector<unsigned long> Ids() const {
    std::vector<unsigned long> ids;
    for (int row = 0; row < GetItemCount(); ++row) ids.push_back(GetItemData(row));
    return ids;
  }
  std::vector<unsigned long> Selected() const {
    IdArray ids;
    InitSelectedArray(ids);
    return {ids.GetData(), ids.GetData() + ids.GetSize()};
  }
  unsigned long Focused() const { return GetSelectedItem(1); }
};

using Ids = std::vector<unsigned long>;

// Temporary objects, which live until their thread is idle, end with the test.
class ListWindowTest : public testing::Test {
 protected:
  void SetUp() override {
    m_parent.CreateEx(0, AfxRegisterWndClass(0), "Lists", WS_POPUP, 0, 0, 500, 400, nullptr,
                      nullptr);
    m_parent.ShowWindow(SW_SHOW);
  }
  void TearDown() override {
    m_parent.DestroyWindow();
    CWnd::DeleteTempMap();
    CGdiObject::DeleteTempMap();
    CDC::DeleteTempMap();
    CMenu::DeleteTempMap();
  }
  void Show(MListCtrl& list) {
    ASSERT_TRUE(list.Create(WS_CHILD | WS_VISIBLE, CRect(0, 0, 480, 300), &m_parent, 1000));
    pumpMessages();
  }

  CWnd m_parent;

 private:
  watchdog::ExpectWindows m_windows;
};
