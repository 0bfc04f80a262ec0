// Files that come into being whole or not at all.
#pragma once

#include <string>

#include <windows.h>

// Calls write with a name beside the wanted one and, when it gives true, puts the file in place of
// what stands there: that is kept until then, and may be what was read. False: nothing is changed.
template <class Write>
bool WriteWholeFile(const std::string& name, Write write) {
  const std::string part = name + ".part";
  if (write(part.c_str()) && MoveFileExA(part.c_str(), name.c_str(), MOVEFILE_REPLACE_EXISTING)) {
    return true;
  }
  DeleteFileA(part.c_str());
  return false;
}
