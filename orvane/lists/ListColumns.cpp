#include "lists/ListColumns.h"

void ListColumns::Add(const ListColumn& column) {
  const int index = Count();
  m_visible.reserve(m_visible.size() + 1);
  m_columns.push_back(column);
  m_columns.back().position = -1;
  if (!IsEnabled(index)) return;
  m_columns.back().position = VisibleCount();
  m_visible.push_back(index);
}
