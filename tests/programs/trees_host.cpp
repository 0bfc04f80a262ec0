// Calls a function for whole trees: trees_host FUNCTION FOLDER [FOLDER]. Its status is 0 when the
// function reports success.
#include <afxwin.h>

#include <cstring>

#include "ops/DirOp.h"

int main(int argc, char** argv) {
  if (argc < 3) return 2;
  const struct {
    const char* name;
    int (*run)(char** folders);
  } kFunctions[] = {
      {"remove", [](char** folders) { return RemoveDirectoryA(folders[0], 1); }},
      {"rename", [](char** folders) { return DirectoryRename(folders[0], folders[1]); }},
      {"read-only", [](char** folders) { return SetReadOnlyDir(folders[0], 1, 1); }},
  };
  for (const auto& function : kFunctions) {
    if (strcmp(function.name, argv[1]) == 0) return function.run(argv + 2) != 0 ? 0 : 1;
  }
  return 2;
}
