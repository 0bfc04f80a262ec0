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

void ListColumns::Cut(int count) {
  if (Count() > count) m_columns.resize(static_cast<size_t>(count));
  while (!m_visible.empty() && m_visible.back() >= count) m_visible.pop_back();
}
