#include "entry/SetGetCurrentDir.h"

#include "diag/trace.h"
#include "ops/DirOp.h"

SetGetCurrentDir::SetGetCurrentDir(const char* folder) {
  const DWORD length = GetCurrentDirectoryA(sizeof m_previous, m_previous);
  const bool remembered = length > 0 && length < sizeof m_previous;
  ASSERT(remembered);
  if (!remembered) m_previous[0] = 0;

  if (folder == nullptr || *folder == 0) return;
  CreateDirectoryA(folder);
  const bool isDrive = folder[1] == ':' && folder[2] == 0;
  const char root[] = {folder[0], ':', '\\', 0};
  const bool entered = SetCurrentDirectoryA(isDrive ? root : folder) != FALSE;
  ASSERT(entered);
  static_cast<void>(entered);
}

SetGetCurrentDir::~SetGetCurrentDir() {
  const bool restored = SetCurrentDirectoryA(m_previous) != FALSE;
  ASSERT(restored);
  static_cast<void>(restored);
}
