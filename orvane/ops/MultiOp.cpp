#include "ops/MultiOp.h"

#include "diag/trace.h"
#include "entry/Handles.h"

MMultiOperation::MMultiOperation() { Reset(); }

MMultiOperation::MMultiOperation(unsigned first, unsigned end) {
  Reset();
  SetRange(first, end);
}

MMultiOperation::MMultiOperation(const MMultiOperation& other) { *this = other; }

MMultiOperation& MMultiOperation::operator=(const MMultiOperation& other) {
  if (this == &other) return *this;
  if (m_stopEvent != m_copiedStopEvent) unique_kernel_handle own(m_stopEvent);
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

MMultiOperation::~MMultiOperation() {
  if (m_stopEvent != m_copiedStopEvent) unique_kernel_handle own(m_stopEvent);
}

void MMultiOperation::Reset() {
  m_showProgress = 1;
  m_noGui = 0;
  m_displayProgressOnSingle = 0;
  m_preOperationCanceled = 0;
  m_stopEvent = nullptr;
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

int MMultiOperation::DoOperation(int) {
  if (m_end == m_first) return 1;
  m_current = static_cast<unsigned>(m_first);
  m_progressWindow = nullptr;
  m_aborted = 0;
  m_doneCount = 0;
  m_failed = 0;
  if (m_stopEvent != nullptr) ResetEvent(m_stopEvent);
  m_preOperationCanceled = PreOperationLoop() == 0;
  if (m_preOperationCanceled) return 0;
  RunLoop();
  PostOperationLoop();
  return m_failed == 0;
}

void MMultiOperation::RunLoop() {
  try {
    DoLoopOperation();
  } catch (...) {
    ASSERT(!"exception in an operation");
    m_failed = 1;
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
  StopLoopOperation();
  if (m_stopEvent != nullptr) SetEvent(m_stopEvent);
}

int MMultiOperation::GetUserInput(CDialog& dialog) { return static_cast<int>(dialog.DoModal()); }
