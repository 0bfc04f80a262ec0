// What the program keeps per user from one run to the next: user values of the product registry.
// A value that is missing, of another kind or out of its range counts as what the program starts
// with.
#pragma once

#include <afxwin.h>

#include "dircmp/DirCmpPrm.h"

// The product's registry key, and the one below it for the list's layout and reports.
extern const char kProductKey[];
extern const char kListKey[];

// From the start: documents of all types, sub-folders too.
DirCmpPrm LoadComparisonOptions();
void StoreComparisonOptions(const DirCmpPrm& prm);

// Whether the states are marked with colours; the library's lists look at the same value.
bool LoadColourMarking();
void StoreColourMarking(bool isOn);

// Which states are shown, bit i for the state i, and which column the filter's text is looked for
// in (its number in the filter bar).
struct ShownDocuments {
  unsigned states;
  int column;
};
ShownDocuments LoadShownDocuments(const ShownDocuments& fromTheStart, int columns);
void StoreShownDocuments(const ShownDocuments& shown);
