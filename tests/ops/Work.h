// Operations that tests make of a few functions, and what was called of them.
#pragma once

#include <atomic>
#include <functional>
#include <string>

#include "controls/MDialog.h"
#include "ops/MultiOp.h"

class Work : public MMultiOperation {
 public:
  using Item = std::function<OperationReturnState(unsigned index)>;

  Work(unsigned first, unsigned end, Item item)
      : MMultiOperation(first, end), m_item(std::move(item)) {}

  // What was called, a letter each: P before, a digit for an item (its last one), S stop, C cancel,
  // E after.
  std::string Calls() const { return m_calls; }
  unsigned Started() const { return m_started; }
  unsigned DoneCount() const { return m_doneCount; }
  DWORD ThreadId() const { return m_threadId; }
  void SetEnd(unsigned end) { m_end = end; }
  HANDLE StopEvent() {
    if (m_stopEvent == nullptr) m_stopEvent = CreateEvent(nullptr, TRUE, FALSE, nullptr);
    return m_stopEvent;
  }

  std::function<int()> before = [] { return 1; };
  std::function<int()> after = [] { return 1; };
  std::function<int()> onCancel = [] { return 0; };

 protected:
  OperationReturnState Operation(unsigned index) override {
    ++m_started;
    m_threadId = GetCurrentThreadId();
    if (m_calls.size() < 100) m_calls += static_cast<char>('0' + index % 10);
    return m_item(index);
  }
  int CancelOperation() override { return m_calls += 'C', onCancel(); }
  void StopLoopOperation() override { ++stops; }
  int PreOperationLoop() override { return m_calls = 'P', m_started = 0, before(); }
  void PostOperationLoop() override { m_calls += 'E', after(); }

 private:
  Item m_item;
  std::string m_calls;
  std::atomic<unsigned> m_started = 0;
  DWORD m_threadId = 0;

 public:
  std::atomic<int> stops = 0;
};

inline OperationReturnState done(unsigned) { return MMultiOperation::OperationDone; }

// Items that take their time, so many milliseconds.
inline Work::Item takes(DWORD milliseconds) {
  return [milliseconds](unsigned) {
    ::Sleep(milliseconds);
    return OperationDone;
  };
}

// Asks the user something from within an item.
inline int ask(Work& work) {
  MDialog dialog;
  dialog.SetDialog(-1, -1, 100, 40, "Question", 1, 1);
  dialog.SetOkButton(10, 20, 40, 14, "OK");
  return work.GetUserInput(dialog);
}
