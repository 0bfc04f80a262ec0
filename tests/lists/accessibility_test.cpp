// What programs for people who cannot see the list read of it: they ask its window, from their own
// process.
#include <afxcmn.h>

#include <gtest/gtest.h>

#include <string>

#include "support/RunProgram.h"

namespace {

constexpr char kTitle[] = "List that is read";

HWND listInWindow(const char* title) {
  for (int i = 0; i < 500; ++i, Sleep(10)) {
    const HWND list = FindWindowEx(FindWindow(nullptr, title), nullptr, WC_LISTVIEW, nullptr);
    if (list != nullptr && SendMessage(list, LVM_GETITEMCOUNT, 0, 0) > 0) return list;
  }
  return nullptr;
}

// By way of memory in the list's process.
std::string cellText(HANDLE process, HWND list, int row, int column) {
  struct Request {
    LVITEMA cell;
    char text[100];
  } request = {};
  auto* const there = static_cast<Request*>(
      VirtualAllocEx(process, nullptr, sizeof request, MEM_COMMIT, PAGE_READWRITE));
  request.cell.iSubItem = column;
  request.cell.pszText = there->text;
  request.cell.cchTextMax = sizeof request.text;
  WriteProcessMemory(process, there, &request, sizeof request, nullptr);
  SendMessage(list, LVM_GETITEMTEXTA, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(there));
  ReadProcessMemory(process, there, &request, sizeof request, nullptr);
  VirtualFreeEx(process, there, 0, MEM_RELEASE);
  return request.text;
}

}  // namespace

// The list has a hidden column, and the others were dragged.
TEST(Accessibility, EveryCellIsReadFromAnotherProcess) {
  StartedProgram host(std::string("list_host.exe read \"") + kTitle + "\"");
  const HWND list = listInWindow(kTitle);
  ASSERT_NE(list, nullptr);
  const auto text = [&](int row, int column) {
    return cellText(host.Process(), list, row, column);
  };
  EXPECT_EQ(text(0, 0) + "; " + text(0, 1) + "; " + text(0, 3), "authors.txt; Same; 517)");
  EXPECT_EQ(text(7, 0) + "; " + text(7, 1) + "; " + text(7, 3),
            "map of the harbour.png; Modified; 180330)");
  PostMessage(GetParent(list), WM_CLOSE, 0, 0);
  EXPECT_EQ(host.Wait(), 0u);
}
