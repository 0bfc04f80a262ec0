// What is compared in a comparison of two folders, and how.
#pragma once

#include <afxwin.h>

#include "entry/export.h"

// What white space means for the comparison of two files.
enum WhiteSpaceMode {
  kWhiteSpaceExact = 0,    // it is significant
  kWhiteSpaceRuns = 1,     // a run of it equals any run of it; at a file's end it doesn't count
  kWhiteSpaceIgnored = 2,  // it doesn't count anywhere
};

// Sub-folders are walked, too; every other value but 0 says the same.
constexpr int kScanSubFolders = 1;

// The parameters of a comparison: a plain value.
class ORVANE_API DirCmpPrm {
 public:
  // Whether documents with this extension (without its dot, in lower case) are compared. A type
  // list that is empty or "*.*" names all types. By design the list is searched for "*.ext;" as it
  // stands: no pattern is evaluated, a document without an extension is named by "*.".
  int PassesTypeFilter(const char* extension) const;

  int m_scanFlags = 0;
  // Types as "*." and an extension, separated by ";": "*.c;*.h". Letter case doesn't count.
  CString m_typeList;
  // Not 0: the listed types are left out; 0: only they are compared. With all types listed and this
  // set, nothing is compared.
  int m_excludeListedTypes = 1;
  // Not 0: the older file of a pair that is analysed comes first, be it the base file or not.
  int m_olderOnLeft = 1;
  // Not 0: no progress windows.
  int m_noGui = 0;
  // Not 0: letters compare equal regardless of case.
  int m_ignoreCase = 0;
  int m_whiteSpaceMode = kWhiteSpaceRuns;
};
