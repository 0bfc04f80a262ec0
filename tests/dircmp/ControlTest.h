// A comparison's list over two folders of a test's own.
#pragma once

#include <afxcmn.h>

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

#include "dircmp/DirCmpCtrl.h"
#include "support/TempFolder.h"

// So that messages of GoogleTest show the text.
inline std::string str(const CString& text) {
  return std::string(text, static_cast<size_t>(text.GetLength()));
}

// Notes what it would start and open, and lets a test meddle before an operation runs.
class NotingList : public DirCmpCtrl {
 public:
  std::vector<std::string> started;  // command lines, from behind the program's name
  std::vector<std::string> opened;
  CString params;
  std::function<int(MMultiOperation& operation)> onOperation;

  int ViewFile(const char* path) override {
    opened.push_back(path);
    return 1;
  }
  CString GetNewWindowParams(const char*, const char*) override { return params; }

  // "S a\b.txt" and so on, in the order of the rows.
  std::vector<std::string> Rows() const {
    std::vector<std::string> rows;
    for (int row = 0; row < GetItemCount(); ++row) {
      const DocumentRecord& record = RecordOf(GetItemData(row));
      rows.push_back(std::string(1, "SMND?"[static_cast<int>(record.state)]) + " " +
                     str(record.relativePath));
    }
    return rows;
  }
  unsigned long IdOf(const std::string& relativePath) const {
    for (const DocumentRecord& record : Comparison()->records())
      if (str(record.relativePath) == relativePath) return reinterpret_cast<unsigned long>(&record);
    return 0;
  }
  int Sum() const {
    int sum = 0;
    for (int state = 0; state < kFileStates; ++state) sum += CountOf(static_cast<FileState>(state));
    return sum;
  }

 protected:
  int StartProgram(const char* program, const char* commandLine) override {
    const std::string begin = "\"" + std::string(program) + "\" ";
    EXPECT_EQ(std::string(commandLine).substr(0, begin.size()), begin);
    started.push_back(std::string(commandLine).substr(begin.size()));
    return 1;
  }
  int RunOperation(MMultiOperation& operation) override {
    return onOperation ? onOperation(operation) : DirCmpCtrl::RunOperation(operation);
  }
  int RunPagesOperation(MMultiOperation& operation) override {
    return onOperation ? onOperation(operation) : DirCmpCtrl::RunPagesOperation(operation);
  }
};

// Two folders of a test's own.
class TwoFolders : public testing::Test {
 protected:
  std::string base() const { return m_folder / "base"; }
  std::string revised() const { return m_folder / "revised"; }
  // Days from 2000 on.
  static FILETIME Day(unsigned day) {
    const ULONGLONG ticks = 125911584000000000ull + day * 864000000000ull;
    return {static_cast<DWORD>(ticks), static_cast<DWORD>(ticks >> 32)};
  }
  void SetTime(const std::string& name, unsigned day) const {
    const unique_file file(CreateFileA((m_folder / name).c_str(), FILE_WRITE_ATTRIBUTES, 0, nullptr,
                                       OPEN_EXISTING, 0, nullptr));
    const FILETIME time = Day(day);
    SetFileTime(file.get(), nullptr, nullptr, &time);
  }
  // A file that takes no room on the disk: holes, and what is written behind them.
  void WriteHoles(const std::string& name, int64_t size, const std::string& end = "") const {
    const unique_file file(CreateFileA(m_folder.Write(name, "").c_str(), GENERIC_WRITE, 0, nullptr,
                                       OPEN_EXISTING, 0, nullptr));
    SetFilePointerEx(file.get(), {.QuadPart = size}, nullptr, FILE_BEGIN);
    SetEndOfFile(file.get());
    DWORD written = 0;
    WriteFile(file.get(), end.data(), static_cast<DWORD>(end.size()), &written, nullptr);
  }

  TempFolder m_folder;
};

class ControlTest : public TwoFolders {
 protected:
  // Temporary objects, which live until their thread is idle, end with the test.
  void TearDown() override {
    CWnd::DeleteTempMap();
    CGdiObject::DeleteTempMap();
    CDC::DeleteTempMap();
    CMenu::DeleteTempMap();
  }

  static DirCmpPrm Prm(const char* types = "") {
    DirCmpPrm prm;
    prm.m_scanFlags = kScanSubFolders;
    prm.m_noGui = 1;
    prm.m_typeList = types;
    prm.m_excludeListedTypes = 0;
    return prm;
  }
  int Init(DirCmpCtrl& list, const DirCmpPrm& prm = Prm()) {
    return list.InitList(base().c_str(), revised().c_str(), prm, "old", "");
  }
  // A document of each state that an evaluation ends in.
  void WriteEach() {
    m_folder.Write("base\\same.txt", "x  y\n");
    m_folder.Write("revised\\SAME.txt", "x y");
    m_folder.Write("base\\sub\\Changed.CPP", "one\ntwo\n");
    m_folder.Write("revised\\sub\\changed.cpp", "one\nthree\n");
    m_folder.Write("base\\gone", "x");
    m_folder.Write("revised\\new & more.txt", "x");
  }
};
