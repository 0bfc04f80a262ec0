// What the difference window remembers for its user, in the product's registry.
#pragma once

#include <afxwin.h>

#include "dircmp/ContentCompare.h"

struct DiffSettings {
  // What was saved; the defaults where nothing, or nothing that makes sense.
  static DiffSettings Load();
  void Save() const;

  int whiteSpaceMode = kWhiteSpaceRuns;
  bool ignoreCase = false;
  int tabSize = 4;         // columns: 4 or 8
  int splitter = 500;      // thousandths of the width that the left pane takes
  bool matchCase = false;  // of the find bar
  bool findOnBothSides = true;

  CompareOptions Options() const {
    return {.ignoreCase = ignoreCase, .whiteSpaceMode = whiteSpaceMode};
  }
};
