#include "ops/SysWaitCursor.h"

#include "entry/Handles.h"

namespace {

unique_cursor copyOf(HCURSOR cursor) {
  return unique_cursor(static_cast<HCURSOR>(CopyIcon(static_cast<HICON>(cursor))));
}

// Taken at load: later the system's own arrow may be somebody's busy cursor.
const unique_cursor standardArrow = copyOf(LoadCursorA(nullptr, IDC_ARROW));

// The system destroys the cursor that it is given; Wine 8 neither shows it nor destroys it. To
// destroy it once more does no harm, because the values of handles are not used again at once.
void setArrow(const unique_cursor& cursor) {
  constexpr DWORD kNormal = 32512;  // OCR_NORMAL
  if (cursor) SetSystemCursor(cursor.get(), kNormal);
}

}  // namespace

SysWaitCursor::SysWaitCursor(int wait) {
  setArrow(copyOf(LoadCursorA(nullptr, wait != 0 ? IDC_WAIT : IDC_APPSTARTING)));
}

SysWaitCursor::~SysWaitCursor() { setArrow(copyOf(standardArrow.get())); }
