// Texts of the string tables: the program's and the library's.
#pragma once

#include "settings/MString.h"

inline MString LoadedText(UINT id) {
  MString text;
  text.LoadString(id);
  return text;
}

template <class... Inserts>
MString FilledText(UINT id, const Inserts&... inserts) {
  MString text;
  text.FormatMessage(id, inserts...);
  return text;
}
