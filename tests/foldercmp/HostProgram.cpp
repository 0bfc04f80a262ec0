#include "foldercmp/HostProgram.h"

#include <commctrl.h>
#include <shlobj.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>

#include "foldercmp/resource.h"

namespace {

constexpr DWORD kWaitMilliseconds = 20'000, kPollMilliseconds = 20;
constexpr int kListId = 0xE900, kStatusBarId = 0xE801;
constexpr int kTextRoom = 512;

struct Search {
  DWORD process;
  HWND other;  // a window that is not meant; null: windows that others own are not meant
  HWND found;
};

BOOL CALLBACK findWindow(HWND window, LPARAM parameter) {
  auto& search = *reinterpret_cast<Search*>(parameter);
  DWORD process = 0;
  GetWindowThreadProcessId(window, &process);
  if (process != search.process || !IsWindowVisible(window)) return TRUE;
  if (search.other == nullptr ? GetWindow(window, GW_OWNER) != nullptr : window == search.other)
    return TRUE;
  search.found = window;
  return FALSE;
}

HWND visibleWindow(DWORD process, HWND other) {
  Search search = {process, other, nullptr};
  EnumWindows(findWindow, reinterpret_cast<LPARAM>(&search));
  return search.found;
}

BOOL CALLBACK addText(HWND child, LPARAM texts) {
  *reinterpret_cast<std::string*>(texts) += "\n" + HostProgram::TextOf(child);
  return TRUE;
}

LRESULT send(HWND window, UINT message, WPARAM wParam = 0, LPARAM lParam = 0) {
  DWORD_PTR result = 0;
  SendMessageTimeoutA(window, message, wParam, lParam, SMTO_NORMAL, kWaitMilliseconds, &result);
  return static_cast<LRESULT>(result);
}

}  // namespace

// Memory of the program, for messages that take addresses.
class HostProgram::Memory {
 public:
  Memory(HANDLE process, size_t size)
      : m_process(process),
        m_address(VirtualAllocEx(process, nullptr, size, MEM_COMMIT, PAGE_READWRITE)) {}
  ~Memory() {
    if (m_address != nullptr) VirtualFreeEx(m_process, m_address, 0, MEM_RELEASE);
  }
  Memory(const Memory&) = delete;
  Memory& operator=(const Memory&) = delete;

  char* At(size_t offset = 0) const { return static_cast<char*>(m_address) + offset; }
  void Write(size_t offset, const void* data, size_t size) const {
    WriteProcessMemory(m_process, At(offset), data, size, nullptr);
  }
  std::string Text(size_t offset) const {
    char text[kTextRoom] = "";
    ReadProcessMemory(m_process, At(offset), text, sizeof text - 1, nullptr);
    return text;
  }
  // The program frees it.
  void Release() { m_address = nullptr; }

 private:
  const HANDLE m_process;
  void* m_address;
};

HostProgram::HostProgram(const std::string& arguments) {
  std::string command = "foldercmp.exe " + arguments;
  STARTUPINFOA startup = {};
  startup.cb = sizeof startup;
  if (!CreateProcessA(nullptr, command.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr,
                      &startup, &m_process)) {
    ADD_FAILURE() << "foldercmp.exe was not started";
    return;
  }
  Wait([&] { return (m_main = visibleWindow(m_process.dwProcessId, nullptr)) != nullptr; });
  EXPECT_NE(m_main, nullptr) << "no window came";
}

HostProgram::~HostProgram() {
  if (IsWindow(m_main)) PostMessageA(m_main, WM_CLOSE, 0, 0);
  if (WaitForSingleObject(m_process.hProcess, kWaitMilliseconds) != WAIT_OBJECT_0) {
    ADD_FAILURE() << "the program did not end; it shows\n"
                  << TextsIn(visibleWindow(m_process.dwProcessId, nullptr));
    TerminateProcess(m_process.hProcess, 99);
  }
  CloseHandle(m_process.hThread);
  CloseHandle(m_process.hProcess);
}

bool HostProgram::Wait(const std::function<bool()>& condition) {
  const DWORD start = GetTickCount();
  while (!condition()) {
    if (GetTickCount() - start > kWaitMilliseconds) return false;
    Sleep(kPollMilliseconds);
  }
  return true;
}

DWORD HostProgram::ExitStatus() const {
  WaitForSingleObject(m_process.hProcess, kWaitMilliseconds);
  DWORD status = STILL_ACTIVE;
  GetExitCodeProcess(m_process.hProcess, &status);
  return status;
}

// --- Windows ---

std::string HostProgram::TextOf(HWND window) {
  char text[kTextRoom] = "";
  DWORD_PTR ignored = 0;
  SendMessageTimeoutA(window, WM_GETTEXT, sizeof text, reinterpret_cast<LPARAM>(text), SMTO_NORMAL,
                      kWaitMilliseconds, &ignored);
  return text;
}

HWND HostProgram::List() const { return Control(kListId); }

HWND HostProgram::FocusWindow() const {
  GUITHREADINFO info = {};
  info.cbSize = sizeof info;
  GetGUIThreadInfo(m_process.dwThreadId, &info);
  return info.hwndFocus != nullptr ? info.hwndFocus : m_main;
}

int HostProgram::FocusId() const {
  HWND focus = FocusWindow();
  if (focus != m_main && GetParent(focus) != m_main) focus = GetParent(focus);
  return GetDlgCtrlID(focus);
}

HWND HostProgram::Dialog() const {
  HWND dialog = nullptr;
  Wait([&] { return (dialog = visibleWindow(m_process.dwProcessId, m_main)) != nullptr; });
  return dialog;
}

std::string HostProgram::TextsIn(HWND window) {
  std::string texts = TextOf(window);
  EnumChildWindows(window, addText, reinterpret_cast<LPARAM>(&texts));
  return texts;
}

std::string HostProgram::DismissMessage() const {
  const HWND dialog = Dialog();
  const std::string texts = TextsIn(dialog);
  PostMessageA(dialog, WM_COMMAND, IDCANCEL, 0);
  EXPECT_TRUE(Wait([&] { return !IsWindow(dialog); })) << texts;
  return texts;
}

// --- Input ---

void HostProgram::Do(UINT command) const { send(m_main, WM_COMMAND, command); }

void HostProgram::Type(int id, const std::string& text) const {
  send(Control(id), WM_SETTEXT, 0, reinterpret_cast<LPARAM>(text.c_str()));
}

void HostProgram::Key(UINT key) const {
  const HWND focus = FocusWindow();
  PostMessageA(focus, WM_KEYDOWN, key, 1);
  PostMessageA(focus, WM_KEYUP, key, 0xC0000001);
}

void HostProgram::Letter(char letter) const {
  constexpr LPARAM kWithAlt = 1 << 29;
  PostMessageA(FocusWindow(), WM_SYSCHAR, letter, kWithAlt | 1);
}

void HostProgram::Drop(const std::vector<std::string>& paths) const {
  std::string bytes(sizeof(DROPFILES), 0);
  DROPFILES header = {};
  header.pFiles = sizeof header;
  header.pt = {5, 5000};  // on none of the boxes
  memcpy(bytes.data(), &header, sizeof header);
  for (const std::string& path : paths) bytes += path + '\0';
  bytes += '\0';
  Memory memory(m_process.hProcess, bytes.size());
  memory.Write(0, bytes.data(), bytes.size());
  PostMessageA(m_main, WM_DROPFILES, reinterpret_cast<WPARAM>(memory.At()), 0);
  memory.Release();
}

// --- The list ---

int HostProgram::RowCount() const {
  return List() == nullptr ? 0 : static_cast<int>(send(List(), LVM_GETITEMCOUNT));
}

std::string HostProgram::CellText(int row, int column) const {
  const Memory memory(m_process.hProcess, sizeof(LVITEMA) + kTextRoom);
  LVITEMA item = {};
  item.iSubItem = column;
  item.pszText = memory.At(sizeof item);
  item.cchTextMax = kTextRoom;
  memory.Write(0, &item, sizeof item);
  send(List(), LVM_GETITEMTEXTA, row, reinterpret_cast<LPARAM>(memory.At()));
  return memory.Text(sizeof item);
}

std::string HostProgram::Document(int row) const {
  return CellText(row, 0) + "." + CellText(row, 1);
}

std::vector<std::string> HostProgram::Documents() const {
  std::vector<std::string> documents;
  for (int row = 0, rows = RowCount(); row < rows; ++row) documents.push_back(Document(row));
  return documents;
}

std::vector<std::string> HostProgram::Selected() const {
  std::vector<std::string> documents;
  for (int row = -1; (row = send(List(), LVM_GETNEXTITEM, row, LVNI_SELECTED)) >= 0;)
    documents.push_back(Document(row));
  return documents;
}

std::string HostProgram::Focused() const {
  return Document(send(List(), LVM_GETNEXTITEM, -1, LVNI_FOCUSED));
}

std::map<std::string, std::string> HostProgram::States() const {
  std::map<std::string, std::string> states;
  for (int row = 0, rows = RowCount(); row < rows; ++row) states[Document(row)] = CellText(row, 3);
  return states;
}

void HostProgram::Select(const std::vector<std::string>& documents) const {
  const Memory memory(m_process.hProcess, sizeof(LVITEMA));
  const auto set = [&](int row, UINT state) {
    LVITEMA item = {};
    item.state = state;
    item.stateMask = LVIS_SELECTED | LVIS_FOCUSED;
    memory.Write(0, &item, sizeof item);
    send(List(), LVM_SETITEMSTATE, row, reinterpret_cast<LPARAM>(memory.At()));
  };
  set(-1, 0);
  for (int row = 0, rows = RowCount(); row < rows; ++row) {
    const bool isMeant =
        std::find(documents.begin(), documents.end(), Document(row)) != documents.end();
    if (isMeant) set(row, LVIS_SELECTED | LVIS_FOCUSED);
  }
}

std::string HostProgram::StatusText(int pane) const {
  const Memory memory(m_process.hProcess, kTextRoom);
  send(Control(kStatusBarId), SB_GETTEXTA, pane, reinterpret_cast<LPARAM>(memory.At()));
  return memory.Text(0);
}
