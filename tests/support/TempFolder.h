// A folder of a test's own, empty when it starts and removed with all that is in it at its end.
#pragma once

#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>

#include <windows.h>

class TempFolder {
 public:
  TempFolder() {
    static int count = 0;
    char base[MAX_PATH] = "";
    GetTempPathA(MAX_PATH, base);
    m_path = std::string(base) + "orvane-test-" + std::to_string(GetCurrentProcessId()) + "-" +
             std::to_string(++count);
    Remove();
    std::filesystem::create_directories(m_path);
  }
  ~TempFolder() { Remove(); }
  TempFolder(const TempFolder&) = delete;
  TempFolder& operator=(const TempFolder&) = delete;

  // The folder's full path, without a backslash at its end.
  const std::string& path() const { return m_path; }

  // The full path of something in it.
  std::string operator/(const std::string& name) const { return m_path + "\\" + name; }

  // Writes a file in it, with its folders, and returns its full path.
  std::string Write(const std::string& name, const std::string& bytes) const {
    const std::string path = *this / name;
    std::filesystem::create_directories(std::filesystem::path(path).parent_path());
    std::ofstream(path, std::ios::binary) << bytes;
    return path;
  }

  // The bytes of a file in it; empty when there is none.
  std::string Read(const std::string& name) const { return ReadFile(*this / name); }
  static std::string ReadFile(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    std::ostringstream bytes;
    bytes << file.rdbuf();
    return bytes.str();
  }

  bool Has(const std::string& name) const {
    return GetFileAttributesA((*this / name).c_str()) != INVALID_FILE_ATTRIBUTES;
  }

 private:
  void Remove() const {
    std::error_code ignored;
    if (!std::filesystem::exists(m_path, ignored)) return;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(m_path, ignored)) {
      SetFileAttributesW(entry.path().c_str(), FILE_ATTRIBUTE_NORMAL);
    }
    std::filesystem::remove_all(m_path, ignored);
  }

  std::string m_path;
};
