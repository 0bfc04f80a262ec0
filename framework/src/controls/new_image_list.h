#pragma once

#include <afximl_.h>

// The object for a list that a control has made for the caller; null for none.
inline CImageList* NewImageList(HIMAGELIST handle) {
  if (handle == nullptr) return nullptr;
  CImageList* const list = new CImageList;
  list->Attach(handle);
  return list;
}
