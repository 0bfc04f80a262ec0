// What the panes and the map show. Changed by the view that they are in.
#pragma once

#include <afxwin.h>

#include <memory>
#include <optional>

#include "foldercmp/diff/DiffFind.h"
#include "foldercmp/diff/DiffPlace.h"

struct DiffViewState {
  const CString& TitleOf(DiffSide side) const {
    return side == DiffSide::Left ? leftTitle : rightTitle;
  }
  // The difference with the focus, -1: none has it.
  int CurrentDifference() const { return document->DifferenceAt(place.caret()); }

  std::shared_ptr<const DiffDocument> document = std::make_shared<const DiffDocument>();
  DiffPlace place;
  int firstColumn = 0;
  int tabSize = 4;
  DiffSide active = DiffSide::Left;
  std::optional<FoundText> found;
  CString leftTitle;
  CString rightTitle;
};

// Where the user is in the lines of a document: finds the same lines in the rows of another one.
class DiffMark {
 public:
  DiffMark(const DiffDocument& document, const DiffPlace& place, DiffSide active);

  // After the sides have been swapped.
  void Swap();
  void Restore(const DiffDocument& document, DiffPlace& place) const;

 private:
  struct Line {
    DiffSide side;
    int number;
  };
  static Line LineAt(const DiffDocument& document, int row, DiffSide preferred);

  Line m_caret;
  Line m_anchor;
  int m_caretOnPage;  // rows below the uppermost visible one
};
