// Shows messages for pictures of them: message_views note|info|warning|error|many|wide
#include <afxwin.h>

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

}  // namespace

int main(int argc, char** argv) { return argc == 2 ? show(argv[1]) : 99; }
