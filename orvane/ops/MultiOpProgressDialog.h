// The progress window of an operation.
#pragma once

#include <afxwin.h>
#include <afxcmn.h>

#include "controls/MDialog.h"
#include "entry/Handles.h"
#include "ops/SharedWord.h"

class MMultiOperation;

// Lives for one run, on the thread that has asked for it. It looks at the operation once a second;
// the worker never waits for it, except to ask the user something.
class MultiOpProgressDialog : public MDialog {
 public:
  // Makes the window, hidden. interactive: whether the worker may ask.
  MultiOpProgressDialog(MMultiOperation& operation, const char* title, const char* message,
                        int interactive);
  ~MultiOpProgressDialog() override;

  // Shows the progress until the worker has finished. When the window goes or the program ends
  // before that, the operation is stopped and waited for.
  int DoModal() override;

  // For the worker: at its start and at its end.
  void WorkerStarts();
  void WorkerEnds();
  bool IsDone() const { return m_done != 0; }
  // After IsDone: until no code of the worker's is left to run.
  void AwaitWorkerThread();

  // Around a question of the worker's, on its thread: takes this window and its owner out of sight,
  // and brings them back.
  void BeforeQuestion();
  void AfterQuestion();

  BOOL ContinueModal() override;

 protected:
  BOOL OnInitDialog() override;
  void OnCancel() override;
  afx_msg void OnTimer(UINT_PTR timer);
  DECLARE_MESSAGE_MAP()

 private:
  void LayOut(const char* title, const char* message);
  void ShowProgress();
  int Percent() const;
  void SetCurrentCursor(HCURSOR cursor);
  void DisableOwner();
  void EnableOwner();
  void Close();

  MMultiOperation& m_operation;
  CProgressCtrl m_bar;
  MPushButtonData* m_stopButton = nullptr;
  HWND m_owner = nullptr;
  bool m_disabledOwner = false;
  bool m_prepared = false;
  CString m_captionFormat;  // printf: the percentage
  HCURSOR m_arrow;
  HCURSOR m_busy;
  SharedWord<HCURSOR> m_cursor;  // now
  HCURSOR m_cursorBeforeQuestion = nullptr;
  int m_ownerBeforeQuestion = SW_HIDE;  // how it is shown again
  DWORD m_userThreadId = GetCurrentThreadId();
  int m_interactive;
  int m_shownPercent = -1;
  SharedWord<int> m_visible = 1;
  SharedWord<int> m_done = 0;
  unique_kernel_handle m_workerThread;  // set by the worker before its work
};
