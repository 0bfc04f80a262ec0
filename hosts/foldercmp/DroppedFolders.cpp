#include "foldercmp/DroppedFolders.h"

#include <shellapi.h>

DroppedFolders::DroppedFolders(HDROP drop) : point(0, 0) {
  DragQueryPoint(drop, &point);
  const UINT count = DragQueryFileA(drop, 0xFFFFFFFF, nullptr, 0);
  for (UINT i = 0; i < count; ++i) {
    char path[MAX_PATH] = "";
    if (DragQueryFileA(drop, i, path, MAX_PATH) != 0) paths.push_back(path);
  }
  DragFinish(drop);
}
