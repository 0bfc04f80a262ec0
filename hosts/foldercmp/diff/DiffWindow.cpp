#include "foldercmp/diff/DiffWindow.h"

#include "foldercmp/diff/DiffFrame.h"

namespace {

bool IsMessageWaiting() {
  MSG message;
  return ::PeekMessage(&message, nullptr, 0, 0, PM_NOREMOVE) != FALSE;
}

}  // namespace

int RunDiffWindow(const DiffArguments& arguments) {
  auto* const frame = new DiffFrame(arguments);
  if (!frame->Create()) return 1;
  CWinThread* const thread = AfxGetThread();
  thread->m_pMainWnd = frame;  // its end is the end of the loop below
  frame->Show();
  frame->LoadDocuments();
  for (LONG idleCount = 0;;) {
    while (!IsMessageWaiting() && thread->OnIdle(idleCount)) ++idleCount;
    if (!thread->PumpMessage()) return 0;
    idleCount = 0;
  }
}
