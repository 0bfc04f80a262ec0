// What programs for people who cannot see the list read of it: they ask its window, from their own
// process.
#include <afxcmn.h>

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "support/RunProgram.h"

namespace {

constexpr char kTitle[] = "List that is read";
constexpr int kMostText = 200;

// Memory in the list's process, for the answers.
class ForeignMemory {
 public:
  explicit ForeignMemory(HANDLE process)
      : m_process(process),
        m_address(VirtualAllocEx(process, nullptr, kSize, MEM_COMMIT, PAGE_READWRITE)) {}
  ~ForeignMemory() { VirtualFreeEx(m_process, m_address, 0, MEM_RELEASE); }
  ForeignMemory(const ForeignMemory&) = delete;
  ForeignMemory& operator=(const ForeignMemory&) = delete;

  // Sends a message with a request that is followed by room for a text.
  template <class Request>
  std::string AskText(HWND window, UINT message, WPARAM wParam, Request request,
                      char* Request::*text, int Request::*size) const {
    request.*text = static_cast<char*>(m_address) + sizeof request;
    request.*size = kMostText;
    WriteProcessMemory(m_process, m_address, &request, sizeof request, nullptr);
    SendMessage(window, message, wParam, reinterpret_cast<LPARAM>(m_address));
    char answer[kMostText] = "";
    ReadProcessMemory(m_process, request.*text, answer, sizeof answer, nullptr);
    return answer;
  }
  std::vector<int> AskNumbers(HWND window, UINT message, size_t count) const {
    SendMessage(window, message, count, reinterpret_cast<LPARAM>(m_address));
    std::vector<int> numbers(count);
    ReadProcessMemory(m_process, m_address, numbers.data(), count * sizeof(int), nullptr);
    return numbers;
  }

 private:
  static constexpr SIZE_T kSize = 4096;

  HANDLE m_process;
  void* m_address;
};

HWND listInWindow(const char* title) {
  for (int i = 0; i < 500; ++i, Sleep(10)) {
    const HWND list = FindWindowEx(FindWindow(nullptr, title), nullptr, WC_LISTVIEW, nullptr);
    if (list != nullptr && SendMessage(list, LVM_GETITEMCOUNT, 0, 0) > 0) return list;
  }
  return nullptr;
}

}  // namespace

// The list has a hidden column, and the others were dragged: from left to right they are status,
// name, size and time.
TEST(Accessibility, EveryCellIsReadUnderItsHeaderFromAnotherProcess) {
  StartedProgram host(std::string("list_host.exe read \"") + kTitle + "\"");
  const HWND list = listInWindow(kTitle);
  ASSERT_NE(list, nullptr);
  const auto header = reinterpret_cast<HWND>(SendMessage(list, LVM_GETHEADER, 0, 0));
  const ForeignMemory memory(host.Process());
  const int columns = static_cast<int>(SendMessage(header, HDM_GETITEMCOUNT, 0, 0));
  const auto row = [&](int number) {
    std::string cells;
    for (const int column :
         memory.AskNumbers(list, LVM_GETCOLUMNORDERARRAY, static_cast<size_t>(columns))) {
      HDITEMA item = {};
      item.mask = HDI_TEXT;
      LVITEMA cell = {};
      cell.iSubItem = column;
      cells += memory.AskText(header, HDM_GETITEMA, static_cast<WPARAM>(column), item,
                              &HDITEMA::pszText, &HDITEMA::cchTextMax) +
               ": " +
               memory.AskText(list, LVM_GETITEMTEXTA, static_cast<WPARAM>(number), cell,
                              &LVITEMA::pszText, &LVITEMA::cchTextMax) +
               "; ";
    }
    return cells;
  };
  EXPECT_EQ(SendMessage(list, LVM_GETITEMCOUNT, 0, 0), 8);
  EXPECT_EQ(row(0).substr(0, row(0).rfind("Modified: ")),
            "Status: Same; Document Name: authors.txt; Size: 517); ");
  EXPECT_EQ(row(7).substr(0, row(7).rfind("Modified: ")),
            "Status: Modified; Document Name: map of the harbour.png; Size: 180330); ");

  // The user drags the first header behind the second one.
  const auto mouse = [&](UINT message, int x) {
    SendMessage(header, message, message == WM_LBUTTONUP ? 0 : MK_LBUTTON, MAKELPARAM(x, 8));
  };
  mouse(WM_LBUTTONDOWN, 10);
  for (int x = 20; x <= 150; x += 10) mouse(WM_MOUSEMOVE, x);
  mouse(WM_LBUTTONUP, 150);
  EXPECT_EQ(row(0).substr(0, row(0).rfind("Modified: ")),
            "Document Name: authors.txt; Status: Same; Size: 517); ");

  PostMessage(GetParent(list), WM_CLOSE, 0, 0);
  EXPECT_EQ(host.Wait(), 0u);
}
