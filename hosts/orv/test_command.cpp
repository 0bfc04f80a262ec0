#include <afxwin.h>

#include <cstdio>
#include <vector>

#include "archive_reader.h"
#include "commands.h"

namespace {

constexpr unsigned kBlock = 256 * 1024;

// Reads an entry to its end, which checks its size and CRC.
unsigned long ReadEntry(HZIP archive, const ZIPENTRY& entry, std::vector<char>& block) {
  unsigned long result;
  do {
    result = UnzipItem(archive, entry.index, block.data(), kBlock, kZipMemory);
  } while (result == kZipMore);
  return result;
}

}  // namespace

int TestCommand(int, char** arguments) {
  std::vector<char> block(kBlock);
  int tested = 0;
  const bool good = ArchiveReader(arguments[0]).ForEach([&](HZIP archive, const ZIPENTRY& entry) {
    ++tested;
    return ReadEntry(archive, entry, block);
  });
  printf("%d entries tested, %s\n", tested, good ? "no errors" : "errors found");
  return good ? kDone : kFailed;
}
