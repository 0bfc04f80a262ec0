// One object of a type for each thread that asks for it.
#pragma once

#include <afxexc_.h>

#include <memory>
#include <new>

// Made when a thread first asks, ended with the thread, or when this library leaves the process.
// The system calls back for that (thread_local of this compiler may end objects after their memory
// was freed), and the memory is the system's: it stays for the thread's whole life, and the
// program's own heap need not know of it.
template <class Type>
class ThreadObject {
 public:
  ThreadObject() : m_slot(FlsAlloc(&End)) {}
  ~ThreadObject() { FlsFree(m_slot); }  // ends the objects of all threads
  ThreadObject(const ThreadObject&) = delete;
  ThreadObject& operator=(const ThreadObject&) = delete;

  Type& Get() {
    if (void* const existing = FlsGetValue(m_slot)) return *static_cast<Type*>(existing);
    void* const memory = HeapAlloc(GetProcessHeap(), 0, sizeof(Type));
    if (memory == nullptr) AfxThrowMemoryException();
    Type* const made = ::new (memory) Type();
    if (FlsSetValue(m_slot, made)) return *made;
    End(made);
    AfxThrowMemoryException();
  }

 private:
  static void CALLBACK End(void* object) {
    if (object == nullptr) return;
    static_cast<Type*>(object)->~Type();
    HeapFree(GetProcessHeap(), 0, object);
  }

  DWORD m_slot;
};
