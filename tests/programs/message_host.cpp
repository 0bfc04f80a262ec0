// A host that shows messages; it knows of the library what the headers and import libraries say.
//   message_host show note|info|warning|error|many|wide    one message, for the eye
//   message_host ask PATH ID     displays the note with an id under the product registry PATH
// The exit status is the message's answer; of "ask" it is 50 when a window was shown, which is
// closed; 99 is wrong usage.
#include <afxwin.h>

#include <cstdlib>
#include <cstring>

#include "messages/message.h"
#include "resources/resource.h"

namespace {

int showMany() {
  CString text;
  for (int i = 1; i <= 20; ++i) {
    CString line;
    line.Format("Line %d: the document \"chapter %d.txt\" has changed on the server\n", i, i);
    text += line;
  }
  Message message(Message::MSG_WARNING, text.Left(text.GetLength() - 1));
  message.SetButtons(Message::MB_STYLE_OK_CANCEL);
  message.SetCheckBox(0, "&Update my copies of these documents", 1);
  message.SetCheckBox(1, "&Keep a backup of my own changes in the folder \"before update\"", 0);
  message.SetCheckBox(2, "&Tell the others", 0);
  message.EnableCheckBox(2, FALSE);
  return message.DoModal();
}

int show(const char* kind) {
  Message::SetTitle("Document Comparison");
  const CString folder = "C:\\Documents\\Project\\base";
  if (strcmp(kind, "note") == 0) {
    MRegistry::InitProductRegistry("Software\\Orvane tests\\pictures", 1);
    const int answer = Message(Message::MSG_NOTE, IDS_FOLDER_MISSING, folder).DoModal();
    MRegistry::FreeProductRegistry();
    return answer;
  }
  if (strcmp(kind, "info") == 0) {
    return Message(Message::MSG_INFO, "The two folders are the same.").DoModal();
  }
  if (strcmp(kind, "warning") == 0) {
    Message message(Message::MSG_WARNING, IDS_CREATE_FOLDER, folder);
    message.SetButtons(Message::MB_STYLE_YES_NO);
    return message.DoModal();
  }
  if (strcmp(kind, "error") == 0) {
    Message message(Message::MSG_ERROR, IDS_FILE_NOT_OPENED, folder + "\\contents.doc",
                    "another program is using it");
    message.SetButtons(Message::MB_STYLE_OK_RETRY);
    return message.DoModal();
  }
  if (strcmp(kind, "many") == 0) return showMany();
  CString words;
  while (words.GetLength() < 600) words += "some more words ";
  return Message(Message::MSG_ERROR, words).DoModal();
}

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
  if (argc == 3 && strcmp(argv[1], "show") == 0) return show(argv[2]);
  if (argc == 4 && strcmp(argv[1], "ask") == 0) return ask(argv[2], atoi(argv[3]));
  return 99;
}
