#include "foldercmp/diff/DiffViewState.h"

DiffMark::DiffMark(const DiffDocument& document, const DiffPlace& place, DiffSide active)
    : m_caret(LineAt(document, place.caret(), active)),
      m_anchor(LineAt(document, place.anchor(), active)),
      m_caretOnPage(place.caret() - place.first()) {}

DiffMark::Line DiffMark::LineAt(const DiffDocument& document, int row, DiffSide preferred) {
  if (row >= document.rowCount()) return {preferred, 0};
  const DiffRow found = document.RowAt(row);
  const DiffSide side = found.LineOf(preferred) >= 0 ? preferred : OtherSide(preferred);
  return {side, found.LineOf(side)};
}

void DiffMark::Swap() {
  m_caret.side = OtherSide(m_caret.side);
  m_anchor.side = OtherSide(m_anchor.side);
}

void DiffMark::Restore(const DiffDocument& document, DiffPlace& place) const {
  place.SetRows(document.rowCount());
  place.MoveTo(document.RowOfLine(m_anchor.side, m_anchor.number), false);
  place.MoveTo(document.RowOfLine(m_caret.side, m_caret.number), true);
  place.ScrollTo(place.caret() - m_caretOnPage);
}
