// What the difference window remembers for its user, in the product's registry.
#pragma once

#include <afxwin.h>

#include "dircmp/ContentCompare.h"

struct DiffSettings {
  // What was saved, or the defaults: values that make no sense, or no product registry.
  static DiffSettings Load();
  void Save() const;

  int whiteSpaceMode = kWhiteSpaceRuns;
  bool ignoreCase = false;
  int tabSize = 4;         // columns: 4 or 8
  int splitter = 500;      // thousandths of the width that the left pane takes
  bool matchCase = false;  // of the find bar
  bool findOnBothSides = true;
  // Of the window as it is when it is not maximised, on the screen's work area; empty: the system
  // chooses.
  CRect place = CRect(0, 0, 0, 0);
  bool isMaximised = false;

  CompareOptions Options() const {
    return {.ignoreCase = ignoreCase, .whiteSpaceMode = whiteSpaceMode};
  }
};
