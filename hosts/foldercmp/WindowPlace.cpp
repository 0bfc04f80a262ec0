#include "foldercmp/WindowPlace.h"

#include <algorithm>

#include "foldercmp/HostSettings.h"
#include "settings/RegistryUtil.h"

namespace {

constexpr char kLeft[] = "WindowLeft", kTop[] = "WindowTop", kWidth[] = "WindowWidth",
               kHeight[] = "WindowHeight", kMaximized[] = "WindowMaximized";
constexpr int kFarthest = 100'000;  // no screen reaches that far
constexpr SIZE kSmallest = {320, 240};

// Coordinates may be below 0, on a screen left of the first one.
bool loadCoordinate(const char* name, int least, int& value) {
  unsigned long bits = 0;
  if (MRegistry::GetProductRegistry().GetUserKey(name, bits, 0) == 0) return false;
  value = static_cast<int>(bits);
  return value >= least && value <= kFarthest;
}

// The screen that holds most of a place, or is nearest to it.
MONITORINFO screenAt(const CRect& place) {
  MONITORINFO info = {};
  info.cbSize = sizeof info;
  GetMonitorInfo(MonitorFromRect(place, MONITOR_DEFAULTTONEAREST), &info);
  return info;
}

}  // namespace

int RestoreWindowPlace(CWnd& window, int cmdShow) {
  int left = 0, top = 0, width = 0, height = 0;
  if (!loadCoordinate(kLeft, -kFarthest, left) || !loadCoordinate(kTop, -kFarthest, top) ||
      !loadCoordinate(kWidth, kSmallest.cx, width) ||
      !loadCoordinate(kHeight, kSmallest.cy, height))
    return cmdShow;
  const CRect kept(left, top, left + width, top + height);
  const CRect area = screenAt(kept).rcWork;
  width = std::min(width, area.Width());
  height = std::min(height, area.Height());
  left = std::clamp<int>(left, area.left, area.right - width);
  top = std::clamp<int>(top, area.top, area.bottom - height);
  window.SetWindowPos(nullptr, left, top, width, height, SWP_NOZORDER | SWP_NOACTIVATE);
  const bool isUsual = cmdShow == SW_SHOWNORMAL || cmdShow == SW_SHOWDEFAULT || cmdShow == SW_SHOW;
  return isUsual && LoadNumber(kMaximized, 1, 0) != 0 ? SW_SHOWMAXIMIZED : cmdShow;
}

void StoreWindowPlace(const CWnd& window) {
  WINDOWPLACEMENT placement = {};
  if (!window.GetWindowPlacement(&placement)) return;
  CRect place(placement.rcNormalPosition);
  // The normal place counts from the work area's corner.
  const MONITORINFO screen = screenAt(place);
  place.OffsetRect(screen.rcWork.left - screen.rcMonitor.left,
                   screen.rcWork.top - screen.rcMonitor.top);
  StoreNumber(kLeft, place.left);
  StoreNumber(kTop, place.top);
  StoreNumber(kWidth, place.Width());
  StoreNumber(kHeight, place.Height());
  const bool wasMaximized =
      window.IsZoomed() || (window.IsIconic() && (placement.flags & WPF_RESTORETOMAXIMIZED) != 0);
  StoreNumber(kMaximized, wasMaximized);
}
