// Guards the lists of classes and extension modules. It is taken inside the system's lock for
// loading libraries, so nothing that may wait for that one is called while it is held.
#pragma once

#include <afxver_.h>

class ModuleLock {
 public:
  ModuleLock() { EnterCriticalSection(Section()); }
  ~ModuleLock() { LeaveCriticalSection(Section()); }
  ModuleLock(const ModuleLock&) = delete;
  ModuleLock& operator=(const ModuleLock&) = delete;

 private:
  static CRITICAL_SECTION* Section();
};
