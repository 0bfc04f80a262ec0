// A host that shows a message; it knows of the library what the headers and import libraries say.
//   message_host ask PATH ID     displays the note with an id under the product registry PATH
// The exit status is the message's answer, or 50 when a window was shown, which is closed; 99 is
// wrong usage.
#include <afxwin.h>

#include <cstdlib>
#include <cstring>

#include "messages/message.h"

namespace {

bool shown = false;

BOOL CALLBACK closeWindow(HWND window, LPARAM) {
  if (!IsWindowVisible(window)) return TRUE;
  shown = true;
  PostMessage(window, WM_COMMAND, IDCANCEL, 0);
  return TRUE;
}

void CALLBACK closeShown(HWND, UINT, UINT_PTR, DWORD) {
  EnumThreadWindows(GetCurrentThreadId(), closeWindow, 0);
}

int ask(const char* path, UINT id) {
  MRegistry::InitProductRegistry(path, 1);
  SetTimer(nullptr, 0, 50, closeShown);
  Message message(Message::MSG_NOTE, id);
  message.SetAllowSelectiveCancel(TRUE);
  const int answer = message.DoModal();
  MRegistry::FreeProductRegistry();
  return shown ? 50 : answer;
}

}  // namespace

int main(int argc, char** argv) {
  if (argc == 4 && strcmp(argv[1], "ask") == 0) return ask(argv[2], atoi(argv[3]));
  return 99;
}
