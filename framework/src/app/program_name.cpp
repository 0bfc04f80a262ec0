#include "app/program_name.h"

#include <shlwapi.h>

namespace {

struct Name {
  Name() {
    char path[MAX_PATH] = "";
    GetModuleFileName(nullptr, path, MAX_PATH);
    lstrcpyn(text, PathFindFileName(path), MAX_PATH);
    PathRemoveExtension(text);
  }
  char text[MAX_PATH] = "";
};

}  // namespace

LPCTSTR ProgramName() {
  static const Name name;
  return name.text;
}
