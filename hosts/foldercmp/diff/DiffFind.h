// Looks for a text in the rows of two texts.
#pragma once

#include <afxwin.h>

#include <optional>
#include <string>

#include "foldercmp/diff/DiffDocument.h"

struct FindQuery {
  std::string text;  // UTF-8, not empty
  bool matchCase = false;
  std::optional<DiffSide> side =
      {};  // none: both sides, the left line of a row before the right one
  bool forward = true;
};

// Bytes of a line, from begin up to the one before end.
struct FoundText {
  DiffSide side;
  int row;
  int begin;
  int end;
  bool isWrapped;  // found beyond the document's end, or its beginning
};

// Where the search starts: the next find is behind or before it. A begin of -1 is before the line's
// first character.
struct FindPlace {
  DiffSide side;
  int row;
  int begin;
};

// The next place, from the start around the document and back to the start itself.
std::optional<FoundText> FindText(const DiffDocument& document, const FindQuery& query,
                                  const FindPlace& start);
