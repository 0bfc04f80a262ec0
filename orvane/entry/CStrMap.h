// A hash map from a text to a value.
#pragma once

#include <afxtempl.h>

// The framework's map with texts as keys: one entry per key, keys compared byte for byte. For keys
// without regard to case, lower-case them before every insertion and look-up.
template <class T>
class CStrMap : public CMap<CString, const char*, T, T> {
 public:
  // Entries are allocated blockSize at a time.
  explicit CStrMap(int blockSize = 10) : CMap<CString, const char*, T, T>(blockSize) {}
};
