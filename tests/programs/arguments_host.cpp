// arguments_host ...: writes its arguments, one a line, into the file that the environment variable
// ORVANE_ARGUMENTS names, which is there only once it is whole.
#include <windows.h>

#include <cstdio>
#include <cstdlib>
#include <string>

int main(int count, char** arguments) {
  const char* const path = std::getenv("ORVANE_ARGUMENTS");
  if (path == nullptr) return 1;
  const std::string unfinished = std::string(path) + ".new";
  FILE* const file = std::fopen(unfinished.c_str(), "wb");
  if (file == nullptr) return 1;
  for (int i = 1; i < count; ++i) std::fprintf(file, "%s\n", arguments[i]);
  std::fclose(file);
  return MoveFileA(unfinished.c_str(), path) ? 0 : 1;
}
