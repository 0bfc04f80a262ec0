// Folder trees for the benchmarks.
#pragma once

#include <afxwin.h>

#include <string>

#include "Folder.h"
#include "Measure.h"
#include "entry/Handles.h"

namespace bench {

class TempTree : public Folder {
 public:
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
};

}  // namespace bench
