#include "foldercmp/diff/DiffSettings.h"

#include <cstdio>

#include "settings/RegistryUtil.h"

namespace {

constexpr char kWhiteSpace[] = "DiffWhiteSpace";
constexpr char kIgnoreCase[] = "DiffIgnoreCase";
constexpr char kTabSize[] = "DiffTabSize";
constexpr char kSplitter[] = "DiffSplitter";
constexpr char kMatchCase[] = "DiffMatchCase";
constexpr char kBothSides[] = "DiffFindOnBothSides";
constexpr char kMaximised[] = "DiffMaximised";
constexpr char kPlace[] = "DiffPlace";  // left, top, right, bottom

// A number from first to last, or what it is already.
void Read(const char* name, int& value, int first, int last) {
  int stored = 0;
  MRegistry::GetProductRegistry().GetUserKey(name, stored, value);
  if (stored >= first && stored <= last) value = stored;
}

void Read(const char* name, bool& value) {
  int number = value;
  Read(name, number, 0, 1);
  value = number != 0;
}

// A window that is on none of today's screens would not be found again.
bool IsOnScreen(const CRect& place) {
  return place.Width() > 0 && place.Height() > 0 &&
         MonitorFromRect(&place, MONITOR_DEFAULTTONULL) != nullptr;
}

}  // namespace

DiffSettings DiffSettings::Load() {
  DiffSettings settings;
  if (!MRegistry::HasProductRegistry()) return settings;
  Read(kWhiteSpace, settings.whiteSpaceMode, kWhiteSpaceExact, kWhiteSpaceIgnored);
  Read(kIgnoreCase, settings.ignoreCase);
  Read(kTabSize, settings.tabSize, 4, 8);
  if (settings.tabSize != 8) settings.tabSize = 4;
  Read(kSplitter, settings.splitter, 0, 1000);
  Read(kMatchCase, settings.matchCase);
  Read(kBothSides, settings.findOnBothSides);
  Read(kMaximised, settings.isMaximised);
  CString text;
  CRect place;
  if (MRegistry::GetProductRegistry().GetUserKey(kPlace, text) &&
      sscanf(text, "%ld,%ld,%ld,%ld", &place.left, &place.top, &place.right, &place.bottom) == 4 &&
      IsOnScreen(place)) {
    settings.place = place;
  }
  return settings;
}

void DiffSettings::Save() const {
  if (!MRegistry::HasProductRegistry()) return;
  const MRegistry& registry = MRegistry::GetProductRegistry();
  const auto write = [&](const char* name, int value) {
    registry.SetUserKey(name, static_cast<unsigned long>(value));
  };
  write(kWhiteSpace, whiteSpaceMode);
  write(kIgnoreCase, ignoreCase);
  write(kTabSize, tabSize);
  write(kSplitter, splitter);
  write(kMatchCase, matchCase);
  write(kBothSides, findOnBothSides);
  write(kMaximised, isMaximised);
  CString text;
  text.Format("%ld,%ld,%ld,%ld", place.left, place.top, place.right, place.bottom);
  if (!place.IsRectEmpty()) registry.SetUserKey(kPlace, text);
}
