// Which documents of a comparison are shown.
#pragma once

#include <afxwin.h>

#include "dircmp/FileState.h"

// Same, Modified, New and Deleted; what was not compared is never hidden.
constexpr int kHideableStates = 4;

// Where the text of a filter is looked for.
enum class FilterColumn { Path, DocumentName, Type, FolderName, kCount };

struct DocumentFilter {
  static constexpr unsigned kAllStates = (1 << kHideableStates) - 1;

  unsigned states = kAllStates;  // bit i: the state i is shown
  FilterColumn column = FilterColumn::Path;
  CString text;  // in any letter case; empty: all texts pass

  bool ShowsState(FileState state) const {
    const int bit = static_cast<int>(state);
    return bit >= kHideableStates || (states >> bit & 1) != 0;
  }
  bool operator==(const DocumentFilter& other) const {
    return states == other.states && column == other.column && text == other.text;
  }
};
