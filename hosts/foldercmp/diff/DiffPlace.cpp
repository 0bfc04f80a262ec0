#include "foldercmp/diff/DiffPlace.h"

#include <algorithm>

void DiffPlace::MoveTo(int row, bool extend) {
  m_caret = row;
  Clamp();
  if (!extend) m_anchor = m_caret;
  if (m_caret < m_first) m_first = m_caret;
  if (m_caret >= m_first + m_page) m_first = m_caret - m_page + 1;
}

void DiffPlace::Show(int row, int rows) {
  const int first = m_first;
  MoveTo(row, false);
  m_first = first;
  const int context = std::min(3, m_page / 4);
  if (row - context < m_first || row + rows + context > m_first + m_page) {
    m_first = row - std::max(context, (m_page - rows) / 3);
  }
  Clamp();
}

void DiffPlace::SelectAll() {
  m_anchor = 0;
  m_caret = m_rows;
  Clamp();
}

void DiffPlace::Clamp() {
  const int last = std::max(m_rows - 1, 0);
  m_caret = std::clamp(m_caret, 0, last);
  m_anchor = std::clamp(m_anchor, 0, last);
  m_first = std::clamp(m_first, 0, lastFirst());
}
