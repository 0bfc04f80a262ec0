// What the program was asked for when it was started.
//
//   foldercmp [BASE REVISED]        compares two folders
//   foldercmp Diff [OPTIONS] LEFT RIGHT ["LEFT TITLE" "RIGHT TITLE"]
//                                   shows the differences of two documents
//
// OPTIONS are one argument, such as /compare:1i: the white-space mode, and i where letters are
// equal regardless of case. Without it the documents are compared as they were the last time.
#pragma once

#include <afxwin.h>

#include <vector>

#include "foldercmp/diff/DiffWindow.h"

struct CommandLine {
  enum Kind { kFolders, kDiff, kWrong };
  Kind kind = kFolders;
  CString base, revised;  // absolute; both empty: none were given
  DiffArguments diff;
};

// The arguments of a text: separated by blanks, which don't separate within quotation marks. A
// backslash is a backslash wherever it stands, so that "C:\folder\" is one.
std::vector<CString> SplitArguments(const char* text);

// text: without the program's name.
CommandLine ReadCommandLine(const char* text);

// OPTIONS.
CString CompareArgument(const CompareOptions& options);
