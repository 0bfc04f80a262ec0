// The desktop host as a user has it: a program of its own, driven by messages.
#pragma once

#include <functional>
#include <map>
#include <string>
#include <vector>

#include <windows.h>

class HostProgram {
 public:
  // Starts it and waits for its first window. arguments: as they stand behind the program's name.
  explicit HostProgram(const std::string& arguments = "");
  // Closes the window and waits for the program's end.
  ~HostProgram();
  HostProgram(const HostProgram&) = delete;
  HostProgram& operator=(const HostProgram&) = delete;

  HWND Main() const { return m_main; }
  HWND Control(int id) const { return GetDlgItem(m_main, id); }
  HWND List() const;
  std::string Title() const { return TextOf(m_main); }
  static std::string TextOf(HWND window);
  // The id of the control with the focus, or of the box that it belongs to.
  int FocusId() const;

  // Does a command to its end; Post: it may open a dialog.
  void Do(UINT command) const;
  void Post(UINT command) const { PostMessageA(m_main, WM_COMMAND, command, 0); }
  void Click(int id) const { SendMessageA(Control(id), BM_CLICK, 0, 0); }
  void Type(int id, const std::string& text) const;
  // To the window with the focus.
  void Key(UINT key) const;
  // A letter together with Alt.
  void Letter(char letter) const;
  void Drop(const std::vector<std::string>& paths) const;

  // --- The list ---

  int RowCount() const;
  // "Name.Type", in the order of the rows; those that are selected; the one with the focus.
  std::vector<std::string> Documents() const;
  std::vector<std::string> Selected() const;
  std::string Focused() const;
  // State by document.
  std::map<std::string, std::string> States() const;
  void Select(const std::vector<std::string>& documents) const;
  std::string StatusText(int pane) const;

  // Waits for a dialog or message box of the program; null: none came.
  HWND Dialog() const;
  // All texts in a window, each on a line.
  static std::string TextsIn(HWND window);
  // Closes a message box and gives its texts.
  std::string DismissMessage() const;

  // Waits until something is so, or a time that is more than enough. Gives what is so in the end.
  static bool Wait(const std::function<bool()>& condition);
  // Waits for the end. The exit status; STILL_ACTIVE: it goes on.
  DWORD ExitStatus() const;

 private:
  class Memory;

  HWND FocusWindow() const;

  std::string CellText(int row, int column) const;
  std::string Document(int row) const;

  PROCESS_INFORMATION m_process = {};
  HWND m_main = nullptr;
};
