#include "threads/temporary_objects.h"

#include <atomic>

#include "gdi/temporary_handles.h"
#include "windows/thread_state.h"

static std::atomic<unsigned> made{1};

unsigned NewTemporary() {
  const unsigned number = made.fetch_add(1);
  return number != 0 ? number : made.fetch_add(1);
}

unsigned TemporaryMark() {
  const unsigned next = made.load();
  return next != 0 ? next : 1;
}

void DeleteTemporaryObjects(unsigned since) {
  State().windows.DeleteTemporary(since);
  DeleteTemporaryGdiObjects(since);
  DeleteTemporaryDCs(since);
  DeleteTemporaryMenus(since);
  DeleteTemporaryImageLists(since);
}
