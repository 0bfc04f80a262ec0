// The collections of common types.
#pragma once

#include "afxarray_.h"
#include "afxlist_.h"

class CStringArray : public CArray<CString, LPCTSTR> {};
class CStringList : public CList<CString, LPCTSTR> {
 public:
  using CList::CList;
};
class CPtrArray : public CArray<void*, void*> {};
