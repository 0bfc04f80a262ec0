#include "markup/NoException.h"
#include "ops/DirOp.h"

int DirectoryCopy(const char* source, const char* destination, int subfoldersOnly, int noGui,
                  int recurse) {
  return WithoutException([&] {
    DirectoryCopyOp copy(source, destination, subfoldersOnly, recurse);
    copy.SetNoGui(noGui);
    return copy.DoOperation(0);
  });
}
