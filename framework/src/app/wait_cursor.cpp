// The hourglass.

#include <afxwin.h>

namespace {

// One for the program: the cursor is the user's, not the thread's.
class Hourglass {
 public:
  void Begin() {
    if (InterlockedIncrement(&m_depth) == 1)
      m_before = SetCursor(Cursor());
    else
      SetCursor(Cursor());
  }
  void End() {
    const LONG depth = InterlockedDecrement(&m_depth);
    if (depth == 0) SetCursor(m_before);
    if (depth < 0) InterlockedIncrement(&m_depth);  // one End too many
  }
  void Restore() {
    if (m_depth > 0) SetCursor(Cursor());
  }

 private:
  static HCURSOR Cursor() { return LoadCursor(nullptr, IDC_WAIT); }

  volatile LONG m_depth = 0;
  HCURSOR m_before = nullptr;
};

constinit Hourglass hourglass;

void change(int nCode) {
  if (nCode > 0) hourglass.Begin();
  if (nCode < 0) hourglass.End();
  if (nCode == 0) hourglass.Restore();
}

void ask(int nCode) {
  if (CWinApp* const app = AfxGetApp())
    app->DoWaitCursor(nCode);
  else
    change(nCode);
}

}  // namespace

void CWinApp::DoWaitCursor(int nCode) { change(nCode); }

void CCmdTarget::BeginWaitCursor() { ask(1); }
void CCmdTarget::EndWaitCursor() { ask(-1); }
void CCmdTarget::RestoreWaitCursor() { ask(0); }

CWaitCursor::CWaitCursor() { ask(1); }
CWaitCursor::~CWaitCursor() { ask(-1); }
void CWaitCursor::Restore() { ask(0); }
