// The files that the zip benchmarks pack and unpack.
#pragma once

#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <random>
#include <string>
#include <vector>

#include "Folder.h"
#include "Measure.h"

namespace bench {

struct Files {
  std::string title;
  std::vector<std::string> paths;
  uint64_t bytes = 0;
};

inline std::string TitleOf(const std::string& kind, const Files& files) {
  char text[100];
  snprintf(text, sizeof text, "%s: %u files, %.1f MB", kind.c_str(),
           static_cast<unsigned>(files.paths.size()), static_cast<double>(files.bytes) / 1e6);
  return text;
}

// Text as programmers have it: the headers below a folder, copied, until they are so many bytes.
inline Files Text(const Folder& folder, const std::string& headers, uint64_t bytes) {
  Files files;
  for (const auto& entry : std::filesystem::recursive_directory_iterator(headers)) {
    if (!entry.is_regular_file() || files.bytes >= bytes) continue;
    files.paths.push_back(folder / ("text" + std::to_string(files.paths.size()) + ".h"));
    std::filesystem::copy_file(entry.path(), files.paths.back());
    files.bytes += entry.file_size();
  }
  Require(files.bytes > 0, "there are no headers to pack");
  files.title = TitleOf("text", files);
  return files;
}

// Files that don't compress, of one size.
inline Files Noise(const Folder& folder, const std::string& kind, int count, size_t size) {
  Files files;
  std::mt19937 random(1);
  std::string bytes(size, 0);
  for (int i = 0; i < count; ++i) {
    for (char& c : bytes) c = static_cast<char>(random());
    files.paths.push_back(folder / (kind + std::to_string(i) + ".bin"));
    std::ofstream(files.paths.back(), std::ios::binary) << bytes;
    files.bytes += size;
  }
  files.title = TitleOf(kind, files);
  return files;
}

inline Files Together(const std::string& kind, const Files& first, const Files& second) {
  Files files = first;
  files.paths.insert(files.paths.end(), second.paths.begin(), second.paths.end());
  files.bytes += second.bytes;
  files.title = TitleOf(kind, files);
  return files;
}

// The folder of headers: the program's argument, or that of the compiler that built it.
inline std::string HeaderFolder(int argc, char** argv) {
  return argc > 1 ? argv[1] : "Z:\\usr\\share\\mingw-w64\\include";
}

// The last part of a path.
inline std::string NameOf(const std::string& path) {
  return path.substr(path.find_last_of('\\') + 1);
}

}  // namespace bench
