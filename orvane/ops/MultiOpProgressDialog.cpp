#include "ops/MultiOpProgressDialog.h"

#include <algorithm>
#include <cstdint>

#include "controls/DialogMetrics.h"
#include "diag/trace.h"
#include "markup/NoException.h"
#include "ops/MultiOp.h"
#include "ops/mthread.h"
#include "resources/resource.h"
#include "settings/MString.h"

namespace {

constexpr UINT kBarId = 1234;
constexpr UINT_PTR kTimerId = 55;
constexpr UINT kTimerMilliseconds = 1000;
constexpr int kPollMilliseconds = 50;

// In dialog units.
constexpr int kWidth = 200, kHeight = 80;
constexpr int kMargin = 10;
constexpr int kMessageTop = 5, kMessageHeight = 33;
const CRect kBarPlace(10, 40, 200, 55);
const CRect kStopPlace(80, 60, 125, 75);

// The window is a piece of the operation, and its failures are reported as the operation's.
void verify(bool holds, int line = __builtin_LINE()) {
  if (!holds) AssertVerifyTrace::FailedLine("MultiOp", line);
}

CString textOf(UINT id, const char* fallback) {
  MString text;
  verify(text.LoadString(id));
  return text.IsEmpty() ? CString(fallback) : text;
}

}  // namespace

BEGIN_MESSAGE_MAP(MultiOpProgressDialog, MDialog)
ON_WM_TIMER()
END_MESSAGE_MAP()

MultiOpProgressDialog::MultiOpProgressDialog(MMultiOperation& operation, const char* title,
                                             const char* message, int interactive)
    : m_operation(operation),
      m_arrow(LoadCursorA(nullptr, IDC_ARROW)),
      m_busy(LoadCursorA(nullptr, IDC_WAIT)),
      m_cursor(m_arrow),
      m_interactive(interactive) {
  LayOut(title, message);
  m_owner = PreModal();
  m_prepared = true;
  verify(Create(CWnd::FromHandle(m_owner)));
}

MultiOpProgressDialog::~MultiOpProgressDialog() { Close(); }

void MultiOpProgressDialog::LayOut(const char* title, const char* message) {
  CString name = *title != 0 ? CString(title) : textOf(IDS_PROGRESS, "Progress");
  name.Replace("%", "%%");
  m_captionFormat = textOf(IDS_PERCENT_COMPLETED, "%d%% Completed - ") + name;
  CString caption;
  caption.Format(m_captionFormat, 0);
  SetDialog(kCentred, kCentred, kWidth, kHeight, caption, m_interactive, 1);
  m_stopButton = &SetCancelButton(kStopPlace.left, kStopPlace.top, kStopPlace.Width(),
                                  kStopPlace.Height(), textOf(IDS_BUTTON_STOP, " Stop "));
  if (*message == 0) return;
  const CSize size = GetTextSize(message, MControlKind::TextBox, kBarPlace.Width());
  SetTextBox(kMargin, kMessageTop, size.cx, std::min<int>(size.cy, kMessageHeight), message);
}

BOOL MultiOpProgressDialog::OnInitDialog() {
  MDialog::OnInitDialog();
  const DialogMetrics metrics;
  const auto toPixels = [&](CSize size) { return metrics.ToPixels(size, MDialogUnits::OfDialog); };
  const CRect place(CPoint(toPixels(kBarPlace.TopLeft())), toPixels(kBarPlace.Size()));
  verify(m_bar.Create(WS_CHILD | WS_VISIBLE | WS_BORDER, place, this, kBarId));
  m_bar.SetRange(0, 100);
  // The bar reaches the end of what was laid out; behind it there is a margin like the one before.
  CRect window;
  GetWindowRect(window);
  SetWindowPos(nullptr, 0, 0, window.Width() + toPixels(CSize(kMargin, 0)).cx, window.Height(),
               SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
  CenterWindow();
  return FALSE;  // the focus stays where it is as long as the window is hidden
}

void MultiOpProgressDialog::Close() {
  if (!m_prepared) return;
  m_prepared = false;
  if (m_hWnd != nullptr) DestroyWindow();
  PostModal();
}

// --- The run ---

int MultiOpProgressDialog::DoModal() {
  const HCURSOR cursorBefore = ::SetCursor(m_cursor);
  DisableOwner();
  const bool ticks = m_hWnd != nullptr && SetTimer(kTimerId, kTimerMilliseconds, nullptr) != 0;
  verify(ticks);
  if (ticks) {
    WithoutException([this] {
      ShowProgress();
      // A question that the worker has asked already keeps the window hidden.
      return RunModalLoop(m_visible != 0 ? MLF_SHOWONIDLE : 0);
    });
    // The program ends, its own code has failed, or somebody has destroyed the window: nobody could
    // stop the work any more.
    if (!IsDone()) m_operation.StopLoop();
  }
  // Whatever has become of the window, the worker uses this object and the operation until its end.
  while (!IsDone()) MThread::Sleep(kPollMilliseconds);
  if (m_hWnd != nullptr && m_owner != nullptr)
    SetWindowPos(nullptr, 0, 0, 0, 0,
                 SWP_HIDEWINDOW | SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE | SWP_NOZORDER);
  EnableOwner();
  if (ticks && m_hWnd != nullptr) verify(KillTimer(kTimerId));
  Close();
  ::SetCursor(cursorBefore);
  return IDOK;
}

// An owner that is disabled already stays so: it waits for somebody else, too.
void MultiOpProgressDialog::DisableOwner() {
  if (m_owner != nullptr) m_disabledOwner = ::EnableWindow(m_owner, FALSE) == FALSE;
}

void MultiOpProgressDialog::EnableOwner() {
  if (!m_disabledOwner || !::IsWindow(m_owner)) return;
  ::EnableWindow(m_owner, TRUE);
  ::SetFocus(m_owner);
}

BOOL MultiOpProgressDialog::ContinueModal() {
  ::SetCursor(m_cursor);
  return !IsDone();
}

void MultiOpProgressDialog::OnTimer(UINT_PTR timer) {
  if (timer != kTimerId) return MDialog::OnTimer(timer);
  ShowProgress();
}

int MultiOpProgressDialog::Percent() const {
  const int64_t first = m_operation.m_first;
  const int64_t count = m_operation.m_end - first;
  const int64_t done = m_operation.m_current - first;
  if (count <= 0) return 0;
  return static_cast<int>(std::clamp<int64_t>(done * 100 / count, 0, 100));
}

void MultiOpProgressDialog::ShowProgress() {
  // The range may grow during the work; what was shown once is not taken back.
  const int percent = std::max(Percent(), m_shownPercent);
  if (percent != m_shownPercent) {
    m_shownPercent = percent;
    m_bar.SetPos(percent);
    m_bar.UpdateWindow();
    CString caption;
    caption.Format(m_captionFormat, percent);
    SetWindowText(caption);
  }
  if (m_visible == 0) {
    ShowWindow(SW_HIDE);
  } else if (IsWindowEnabled()) {  // else an operation inside this one has its window in front
    if (!IsWindowVisible()) ShowWindow(SW_SHOW);
    // Taking the focus from the button would break off a click.
    const HWND focus = ::GetFocus();
    if (focus != m_hWnd && !::IsChild(m_hWnd, focus)) SetFocus();
  }
  ::SetCursor(m_cursor);
}

void MultiOpProgressDialog::SetCurrentCursor(HCURSOR cursor) {
  m_cursor = cursor;
  ::SetCursor(cursor);
}

// The user sees that Stop was pressed before the operation is told, which may take its time.
void MultiOpProgressDialog::OnCancel() {
  SetCurrentCursor(m_busy);
  SetFocus();  // a disabled button that keeps the focus would take the keys with it
  m_stopButton->Enable(FALSE);
  RedrawWindow(nullptr, nullptr, RDW_UPDATENOW | RDW_ALLCHILDREN);
  m_operation.StopLoop();
}

// --- On the worker's thread ---

void MultiOpProgressDialog::WorkerStarts() {
  if (GetCurrentThreadId() == m_userThreadId) return;  // there was no thread to be had
  HANDLE thread = nullptr;
  const HANDLE process = GetCurrentProcess();
  DuplicateHandle(process, GetCurrentThread(), process, &thread, SYNCHRONIZE, FALSE, 0);
  m_workerThread.reset(thread);
}

// This object may be gone as soon as the flag is set. The message ends the wait for the next tick.
void MultiOpProgressDialog::WorkerEnds() {
  const DWORD userThreadId = m_userThreadId;
  m_done = 1;
  PostThreadMessage(userThreadId, WM_NULL, 0, 0);
}

void MultiOpProgressDialog::BeforeQuestion() {
  verify(m_interactive != 0);
  m_cursorBeforeQuestion = m_cursor;
  SetCurrentCursor(m_arrow);
  m_ownerBeforeQuestion = SW_HIDE;
  if (m_owner != nullptr && ::IsWindowVisible(m_owner)) {
    m_ownerBeforeQuestion = ::IsZoomed(m_owner) ? SW_SHOWMAXIMIZED : SW_SHOWNORMAL;
    ::ShowWindow(m_owner, SW_HIDE);
  }
  m_visible = 0;
  ::ShowWindow(m_hWnd, SW_HIDE);
}

void MultiOpProgressDialog::AfterQuestion() {
  SetCurrentCursor(m_cursorBeforeQuestion);
  if (m_ownerBeforeQuestion != SW_HIDE) ::ShowWindow(m_owner, m_ownerBeforeQuestion);
  m_visible = 1;
  ::ShowWindow(m_hWnd, SW_SHOW);
  ::SetFocus(m_hWnd);
}

// --- After the run ---

// The worker still has to leave the library's code. Messages that are sent meanwhile get their
// answers; posted ones are left to the program's own loop.
void MultiOpProgressDialog::AwaitWorkerThread() {
  constexpr DWORD kMilliseconds = 1000;
  HANDLE thread = m_workerThread.get();
  if (thread == nullptr) return;
  while (MsgWaitForMultipleObjects(1, &thread, FALSE, kMilliseconds, QS_SENDMESSAGE) ==
         WAIT_OBJECT_0 + 1) {
    MSG message;
    PeekMessageA(&message, nullptr, 0, 0, PM_NOREMOVE | PM_QS_SENDMESSAGE);
  }
}
