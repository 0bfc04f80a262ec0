#include "dircmp/DirCmpPrm.h"

int DirCmpPrm::PassesTypeFilter(const char* extension) const {
  const bool isExcluding = m_excludeListedTypes != 0;
  if (m_typeList.IsEmpty() || m_typeList == "*.*") return !isExcluding;
  CString list = m_typeList + ";";
  list.MakeLower();
  const bool isListed = list.Find("*." + CString(extension) + ";") >= 0;
  return isListed != isExcluding;
}
