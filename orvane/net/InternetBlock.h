// A piece of a server's answer.
#pragma once

#include <windows.h>

struct InternetBlock {
  const char* bytes;
  DWORD size;  // 0: the end of the answer
};
