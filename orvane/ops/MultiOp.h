// Long-running work: a loop over numbered items with a progress window, a Stop button, questions to
// the user, and a thread for the loop.
//
// A class derived from MMultiOperation supplies the work of one item (Operation), or the whole loop
// (DoLoopOperation). Whoever wants the work done creates an object, sets it up, calls DoOperation,
// as often as needed, and destroys it.
//
//   class CountLines : public MMultiOperation {
//     OperationReturnState Operation(unsigned int index) override { ... }
//   };
//   CountLines work(files);
//   work.SetRange(0, files.GetSize());
//   work.SetTitle("Counting lines", "Please wait.");
//   if (!work.DoOperation(1)) ...
//
// Without a window (SetNoGui, or AssertVerifyTrace::BlockGui) the loop runs on the calling thread.
// With one it runs on a thread of its own while the calling thread serves the window.
#pragma once

#include <afxwin.h>

#include "entry/export.h"
#include "ops/SharedWord.h"
#include "ops/SysWaitCursor.h"
#include "ops/mthread.h"

class Message;
class MultiOpProgressDialog;

// What came of one item.
enum OperationReturnState : int {
  OperationDone = 0,        // counted; the loop goes on
  OperationFailed = 1,      // the operation has failed; the loop goes on
  OperationFailedStop = 2,  // the operation has failed; the loop ends
  // As OperationFailedStop; CancelOperation is asked first whether what was done still counts.
  OperationCancelled = 3
  // Any other value: neither counted nor failed; the loop goes on.
};

class ORVANE_API MMultiOperation {
 public:
  // The states by the name of the class, too.
  using OperationReturnState = ::OperationReturnState;
  using enum ::OperationReturnState;

  // A range of no items.
  MMultiOperation();
  MMultiOperation(unsigned first, unsigned end);
  // Copies every field as it is. The stop event stays the original's, which closes it: a copy is
  // not to outlive it.
  MMultiOperation(const MMultiOperation& other);
  MMultiOperation& operator=(const MMultiOperation& other);

  // The items from first up to the one before end. An end below first is an error (ASSERT); nothing
  // is run then.
  void SetRange(unsigned first, unsigned end);
  // title: what the window's caption shows behind the percentage; empty: a plain word for it.
  // message: shown above the progress bar.
  void SetTitle(const char* title, const char* message);
  void SetMessage(const char* message);
  // Not 0: no window and no thread.
  void SetNoGui(int noGui);
  // 0: the loop runs on the calling thread, under a busy cursor. From the start: 1.
  void SetShowProgress(int show);
  // Not 0: a range of a single item gets a window, too. From the start: 0.
  void SetDisplayProgressOnSingle(int display);
  // Makes the settings those of a new object, all but range, title and message; between runs only.
  void Reset();

  // Whether there are fewer than two items.
  int isSingle() const;
  // Whether StopLoop has been called in this run, or the last one.
  int wasAborted() const;
  // Whether PreOperationLoop has refused this run, or the last one.
  int PreOperationCanceled() const;

  // Does the work. Not 0: no item has failed; a stopped run may well succeed. 0: an item has failed
  // or thrown an exception, or PreOperationLoop has refused. No items: 1, and nothing is called.
  // interactive: not 0: the window comes up at once and the items may call GetUserInput; 0: only
  // when the work takes longer than two seconds. Messages of the calling thread's windows are
  // dispatched meanwhile; the owner of the window is disabled while it is up.
  int DoOperation(int interactive);

  // Ends the loop after the current item. From any thread; the Stop button calls it.
  void StopLoop();

  // For the work of an item: asks the user and gives what DoModal or display returned. The progress
  // window is out of sight meanwhile. Only in an operation that was started as interactive
  // (ASSERT).
  int GetUserInput(CDialog& dialog);
  int GetUserInput(Message& message);

 protected:
  // The loop. Who replaces it keeps m_current and m_failed and looks at m_aborted.
  virtual void DoLoopOperation();
  // The work of one item.
  virtual OperationReturnState Operation(unsigned int index) = 0;
  // An item was cancelled. Not 0: nothing of what was done counts.
  virtual int CancelOperation();
  // Called by StopLoop, on its thread: ends a wait of the work before its time.
  virtual void StopLoopOperation();
  // Before anything is shown, on the calling thread. 0: the run is cancelled.
  virtual int PreOperationLoop();
  // After the loop, on the calling thread, whatever came of it.
  virtual void PostOperationLoop();

  // Before and after a window of one's own on the worker's thread, as around those of GetUserInput;
  // without a progress window nothing happens.
  void preDisplayMesage();
  void postDisplayMesage();

 public:
  virtual ~MMultiOperation();

 protected:
  // The fields that the loop writes while the window reads them, and the other way round, are
  // shared words.
  SharedWord<unsigned> m_first;
  SharedWord<unsigned> m_end;  // one past the last item
  SharedWord<unsigned> m_doneCount;
  SharedWord<unsigned> m_current;  // the item that is worked on: the percentage follows from it
  SharedWord<int> m_failed;
  SharedWord<int> m_aborted;
  int m_noGui;
  int m_showProgress;
  int m_displayProgressOnSingle;
  int m_preOperationCanceled;
  // For a derived class that wants to sleep on it: created by it, signalled by StopLoop, closed by
  // the destructor. Look at m_aborted after creating it, a stop may have come before.
  SharedWord<HANDLE> m_stopEvent;
  MultiOpProgressDialog* m_progressWindow;  // only in a run with a window
  CString m_title;
  CString m_message;
  DWORD m_userThreadId = 0;            // that has called DoOperation
  SharedWord<DWORD> m_workerThreadId;  // that runs the loop

 private:
  friend class MultiOpProgressDialog;

  void CloseStopEvent();
  void RunLoop();
  void RunWithWindow(int interactive);
  static void RunInThread(void* operation);
  template <class Ask>
  int AskUser(Ask ask);

  HANDLE m_copiedStopEvent = nullptr;  // a stop event that another object closes
};
