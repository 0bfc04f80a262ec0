#include "foldercmp/common/WindowPlace.h"

#include <algorithm>

#include "foldercmp/common/UserNumbers.h"

namespace {

constexpr char kLeft[] = "Left", kTop[] = "Top", kWidth[] = "Width", kHeight[] = "Height",
               kMaximized[] = "Maximized";
constexpr int kFarthest = 100'000;  // no screen reaches that far
constexpr SIZE kSmallest = {320, 240};

// The screen that holds most of a place, or is nearest to it.
MONITORINFO screenAt(const CRect& place) {
  MONITORINFO info = {};
  info.cbSize = sizeof info;
  GetMonitorInfo(MonitorFromRect(place, MONITOR_DEFAULTTONEAREST), &info);
  return info;
}

}  // namespace

int WindowPlace::Restore(CWnd& window, int cmdShow) const {
  const auto load = [this](const char* what, int least, int fromTheStart) {
    return LoadNumber(name + CString(what), least, kFarthest, fromTheStart);
  };
  CRect own;
  window.GetWindowRect(own);
  // Coordinates are below 0 on a screen left of the first one.
  int left = load(kLeft, -kFarthest, own.left), top = load(kTop, -kFarthest, own.top);
  int width = load(kWidth, kSmallest.cx, own.Width());
  int height = load(kHeight, kSmallest.cy, own.Height());
  const CRect area = screenAt(CRect(left, top, left + width, top + height)).rcWork;
  width = std::min(width, area.Width());
  height = std::min(height, area.Height());
  left = std::clamp<int>(left, area.left, area.right - width);
  top = std::clamp<int>(top, area.top, area.bottom - height);
  window.SetWindowPos(nullptr, left, top, width, height, SWP_NOZORDER | SWP_NOACTIVATE);
  const bool isUsual = cmdShow == SW_SHOWNORMAL || cmdShow == SW_SHOWDEFAULT || cmdShow == SW_SHOW;
  return isUsual && LoadFlag(name + CString(kMaximized), false) ? SW_SHOWMAXIMIZED : cmdShow;
}

void WindowPlace::Store(const CWnd& window) const {
  WINDOWPLACEMENT placement = {};
  if (!window.GetWindowPlacement(&placement)) return;
  CRect place(placement.rcNormalPosition);
  // The normal place counts from the work area's corner.
  const MONITORINFO screen = screenAt(place);
  place.OffsetRect(screen.rcWork.left - screen.rcMonitor.left,
                   screen.rcWork.top - screen.rcMonitor.top);
  const bool wasMaximized =
      window.IsZoomed() || (window.IsIconic() && (placement.flags & WPF_RESTORETOMAXIMIZED) != 0);
  const auto store = [this](const char* what, int value) {
    StoreNumber(name + CString(what), value);
  };
  store(kLeft, place.left);
  store(kTop, place.top);
  store(kWidth, place.Width());
  store(kHeight, place.Height());
  store(kMaximized, wasMaximized);
}
