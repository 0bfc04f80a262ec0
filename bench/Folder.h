// Where benchmarks keep their files.
#pragma once

#include <windows.h>

#include <filesystem>
#include <string>

namespace bench {

// A folder for the length of the program, empty when it starts.
class Folder {
 public:
  Folder() {
    char base[MAX_PATH] = "";
    GetTempPathA(MAX_PATH, base);
    m_path = std::string(base) + "orvane-bench-" + std::to_string(GetCurrentProcessId());
    std::filesystem::remove_all(m_path);
    std::filesystem::create_directories(m_path);
  }
  ~Folder() {
    std::error_code ignored;
    std::filesystem::remove_all(m_path, ignored);
  }
  Folder(const Folder&) = delete;
  Folder& operator=(const Folder&) = delete;

  std::string operator/(const std::string& name) const { return m_path + "\\" + name; }

 private:
  std::string m_path;
};

}  // namespace bench
