#include "ops/MultiOp.h"

#include "diag/trace.h"
#include "entry/Handles.h"
#include "messages/message.h"
#include "ops/MultiOpProgressDialog.h"

namespace {

constexpr int kSecondsWithoutWindow = 2;

// Calls a derived class' work. False: it has thrown an exception.
template <class Work>
bool runs(Work work) {
  try {
    work();
    return true;
  } catch (CException* exception) {
    exception->Delete();
  } catch (...) {
  }
  ASSERT(!"an exception");
  return false;
}

}  // namespace

MMultiOperation::MMultiOperation() { Reset(); }

MMultiOperation::MMultiOperation(unsigned first, unsigned end) {
  Reset();
  SetRange(first, end);
}

MMultiOperation::MMultiOperation(const MMultiOperation& other) {
  Reset();
  *this = other;
}

MMultiOperation& MMultiOperation::operator=(const MMultiOperation& other) {
  if (this == &other) return *this;
  CloseStopEvent();
  m_first = other.m_first;
  m_end = other.m_end;
  m_doneCount = other.m_doneCount;
  m_current = other.m_current;
  m_failed = other.m_failed;
  m_aborted = other.m_aborted;
  m_noGui = other.m_noGui;
  m_showProgress = other.m_showProgress;
  m_displayProgressOnSingle = other.m_displayProgressOnSingle;
  m_preOperationCanceled = other.m_preOperationCanceled;
  m_stopEvent = other.m_stopEvent;
  m_progressWindow = other.m_progressWindow;
  m_title = other.m_title;
  m_message = other.m_message;
  m_userThreadId = other.m_userThreadId;
  m_workerThreadId = other.m_workerThreadId;
  m_copiedStopEvent = m_stopEvent;
  return *this;
}

MMultiOperation::~MMultiOperation() { CloseStopEvent(); }

void MMultiOperation::CloseStopEvent() {
  if (m_stopEvent != m_copiedStopEvent) const unique_kernel_handle closed(m_stopEvent);
}

void MMultiOperation::Reset() {
  m_showProgress = 1;
  m_noGui = 0;
  m_displayProgressOnSingle = 0;
  m_preOperationCanceled = 0;
  CloseStopEvent();
  m_stopEvent = m_copiedStopEvent = nullptr;
  m_progressWindow = nullptr;
}

void MMultiOperation::SetRange(unsigned first, unsigned end) {
  ASSERT(end >= first);
  m_first = first;
  m_end = end;
}

void MMultiOperation::SetTitle(const char* title, const char* message) {
  m_title = title;
  m_message = message;
}

void MMultiOperation::SetMessage(const char* message) { m_message = message; }

void MMultiOperation::SetNoGui(int noGui) { m_noGui = noGui; }

void MMultiOperation::SetShowProgress(int show) { m_showProgress = show; }

void MMultiOperation::SetDisplayProgressOnSingle(int display) {
  m_displayProgressOnSingle = display;
}

int MMultiOperation::isSingle() const { return m_end - m_first < 2; }

int MMultiOperation::wasAborted() const { return m_aborted; }

int MMultiOperation::PreOperationCanceled() const { return m_preOperationCanceled; }

int MMultiOperation::DoOperation(int interactive) {
  if (m_end == m_first) return 1;
  m_current = static_cast<unsigned>(m_first);
  m_progressWindow = nullptr;
  m_aborted = 0;
  m_doneCount = 0;
  m_failed = 0;
  if (m_stopEvent != nullptr) ResetEvent(m_stopEvent);  // of an earlier run's stop
  int goesOn = 0;
  runs([&] { goesOn = PreOperationLoop(); });
  m_preOperationCanceled = goesOn == 0;
  if (m_preOperationCanceled != 0) return 0;

  bool ran;
  if (m_noGui != 0 || AssertVerifyTrace::BlockGui()) {
    ran = runs([this] { RunLoop(); });
  } else if (m_showProgress != 0 && (!isSingle() || m_displayProgressOnSingle != 0)) {
    ran = runs([&] { RunWithWindow(interactive); });
    m_progressWindow = nullptr;
  } else {
    const SysWaitCursor cursor(0);
    ran = runs([this] { RunLoop(); });
  }
  if (!ran) m_failed = 1;
  if (!runs([this] { PostOperationLoop(); })) m_failed = 1;
  return m_failed == 0;
}

void MMultiOperation::RunLoop() {
  m_workerThreadId = GetCurrentThreadId();
  DoLoopOperation();
}

void MMultiOperation::RunWithWindow(int interactive) {
  m_userThreadId = GetCurrentThreadId();
  MultiOpProgressDialog window(*this, m_title, m_message, interactive);
  m_progressWindow = &window;
  auto* const thread = new MThread(&RunInThread, this);
  if (interactive != 0)
    thread->Go();
  else
    thread->ActivateThreadAndWait(kSecondsWithoutWindow);
  if (!window.IsDone()) window.DoModal();
  window.AwaitWorkerThread();
}

void MMultiOperation::RunInThread(void* operation) {
  auto& self = *static_cast<MMultiOperation*>(operation);
  ASSERT(self.m_progressWindow != nullptr);
  if (self.m_progressWindow == nullptr) return;
  self.m_progressWindow->WorkerStarts();
  // Whatever comes of the loop, the window must learn that it is over.
  struct End {
    ~End() { window.WorkerEnds(); }
    MultiOpProgressDialog& window;
  } const end{*self.m_progressWindow};
  try {
    self.RunLoop();
  } catch (...) {
    self.m_failed = 1;
    throw;
  }
}

void MMultiOperation::DoLoopOperation() {
  m_workerThreadId = GetCurrentThreadId();
  for (unsigned index = m_current; index < m_end; index = m_current) {
    switch (Operation(index)) {
      case OperationDone:
        ++m_doneCount;
        break;
      case OperationFailed:
        m_failed = 1;
        break;
      case OperationFailedStop:
        m_failed = 1;
        return;
      case OperationCancelled:
        m_failed = 1;
        if (CancelOperation() != 0) m_doneCount = 0;
        return;
    }
    if (m_aborted != 0) return;
    ++m_current;
  }
}

int MMultiOperation::CancelOperation() { return 0; }

void MMultiOperation::StopLoopOperation() {}

int MMultiOperation::PreOperationLoop() { return 1; }

void MMultiOperation::PostOperationLoop() {}

void MMultiOperation::StopLoop() {
  m_aborted = 1;
  runs([this] { StopLoopOperation(); });
  if (m_stopEvent != nullptr) SetEvent(m_stopEvent);
}

// --- Questions to the user ---

// The two threads' input stays attached, by design, for as long as both of them live.
void MMultiOperation::preDisplayMesage() {
  if (m_progressWindow == nullptr) return;
  VERIFY(AttachThreadInput(m_userThreadId, m_workerThreadId, TRUE));
  m_progressWindow->BeforeQuestion();
}

void MMultiOperation::postDisplayMesage() {
  if (m_progressWindow != nullptr) m_progressWindow->AfterQuestion();
}

template <class Ask>
int MMultiOperation::AskUser(Ask ask) {
  struct Around {
    explicit Around(MMultiOperation& operation) : operation(operation) {
      operation.preDisplayMesage();
    }
    ~Around() { operation.postDisplayMesage(); }
    MMultiOperation& operation;
  } const around(*this);
  return ask();
}

int MMultiOperation::GetUserInput(CDialog& dialog) {
  return AskUser([&] { return static_cast<int>(dialog.DoModal()); });
}

int MMultiOperation::GetUserInput(Message& message) {
  return AskUser([&] { return message.display(); });
}
