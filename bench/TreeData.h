// Folder trees for the benchmarks.
#pragma once

#include <afxwin.h>

#include <string>
#include <vector>

#include "Measure.h"
#include "entry/Handles.h"
#include "ops/DirOp.h"

namespace bench {

// A tree in the temporary folder, removed at the end.
class TempTree {
 public:
  TempTree() {
    char base[MAX_PATH] = "";
    GetTempPathA(MAX_PATH, base);
    m_path = std::string(base) + "orvane-bench-" + std::to_string(GetCurrentProcessId());
    Require(CreateDirectoryA(m_path.c_str(), nullptr), "the folder can't be created");
  }
  ~TempTree() { RemoveDirectoryA(m_path.c_str(), 1); }
  TempTree(const TempTree&) = delete;
  TempTree& operator=(const TempTree&) = delete;

  std::string operator/(const std::string& name) const { return m_path + "\\" + name; }

  // Fills the new folder name with tops folders of 100 folders, each with a number of files of some
  // bytes.
  void Fill(const std::string& name, int tops, int files, const std::string& bytes) const {
    Make(name);
    for (int top = 0; top < tops; ++top) {
      const std::string topName = name + "\\folder " + std::to_string(top);
      Make(topName);
      for (int sub = 0; sub < 100; ++sub) {
        const std::string subName = topName + "\\sub-folder " + std::to_string(sub);
        Make(subName);
        for (int file = 0; file < files; ++file)
          Write(*this / (subName + "\\file " + std::to_string(file) + ".txt"), bytes);
      }
    }
  }

 private:
  void Make(const std::string& name) const {
    Require(CreateDirectoryA((*this / name).c_str(), nullptr), "a folder can't be created");
  }
  static void Write(const std::string& path, const std::string& bytes) {
    const unique_file file(
        CreateFileA(path.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_NEW, 0, nullptr));
    DWORD written = 0;
    Require(file && WriteFile(file.get(), bytes.data(), static_cast<DWORD>(bytes.size()), &written,
                              nullptr),
            "a file can't be written");
  }

  std::string m_path;
};

}  // namespace bench
