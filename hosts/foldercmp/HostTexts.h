// Texts of the string tables, the program's and the library's, with inserts.
#pragma once

#include "settings/MString.h"

template <class... Inserts>
MString FilledText(UINT id, const Inserts&... inserts) {
  MString text;
  text.FormatMessage(id, inserts...);
  return text;
}
