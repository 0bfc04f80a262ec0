#include "windows/thread_state.h"

#include "threads/thread_object.h"

ThreadState::ThreadState() : windows([](CWnd& window) { window.m_hWnd = nullptr; }), message() {}

ThreadState& State() {
  static ThreadObject<ThreadState> states;
  return states.Get();
}
