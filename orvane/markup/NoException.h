// Keeps exceptions inside the library.
#pragma once

#include <afxwin.h>

// Runs something that may call a host's code or allocate; an exception ends it with the failure 0.
template <class Run>
int WithoutException(Run run) {
  try {
    return run();
  } catch (CException* exception) {
    exception->Delete();
  } catch (...) {
  }
  return 0;
}
