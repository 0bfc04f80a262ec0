#include "foldercmp/diff/DiffSettings.h"

#include "foldercmp/common/UserNumbers.h"

namespace {

constexpr char kWhiteSpace[] = "DiffWhiteSpace";
constexpr char kIgnoreCase[] = "DiffIgnoreCase";
constexpr char kTabSize[] = "DiffTabSize";
constexpr char kSplitter[] = "DiffSplitter";
constexpr char kMatchCase[] = "DiffMatchCase";
constexpr char kBothSides[] = "DiffFindOnBothSides";

}  // namespace

DiffSettings DiffSettings::Load() {
  DiffSettings settings;
  settings.whiteSpaceMode =
      LoadNumber(kWhiteSpace, kWhiteSpaceExact, kWhiteSpaceIgnored, settings.whiteSpaceMode);
  settings.ignoreCase = LoadFlag(kIgnoreCase, settings.ignoreCase);
  settings.tabSize = LoadNumber(kTabSize, 8, 8, settings.tabSize);
  settings.splitter = LoadNumber(kSplitter, 0, 1000, settings.splitter);
  settings.matchCase = LoadFlag(kMatchCase, settings.matchCase);
  settings.findOnBothSides = LoadFlag(kBothSides, settings.findOnBothSides);
  return settings;
}

void DiffSettings::Save() const {
  StoreNumber(kWhiteSpace, whiteSpaceMode);
  StoreNumber(kIgnoreCase, ignoreCase);
  StoreNumber(kTabSize, tabSize);
  StoreNumber(kSplitter, splitter);
  StoreNumber(kMatchCase, matchCase);
  StoreNumber(kBothSides, findOnBothSides);
}
