// What the tests of the zip functions share.
#pragma once

#include <afxwin.h>
#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

#include "entry/Handles.h"
#include "hostile_builder.h"
#include "support/TempFolder.h"
#include "zip/XUnzip.h"
#include "zip/ZipWriter.h"

// Texts as the untyped targets of the zip functions.
inline void* Arg(const std::string& text) { return const_cast<char*>(text.c_str()); }

// The texts of result codes.
inline std::string MessageZ(unsigned long code) {
  char text[100] = "";
  FormatZipMessageZ(code, text, sizeof text);
  return text;
}
inline std::string MessageU(unsigned long code) {
  char text[100] = "";
  FormatZipMessageU(code, text, sizeof text);
  return text;
}

inline unsigned long AddText(HZIP zip, const std::string& name, const std::string& text) {
  return ZipAdd(zip, name.c_str(), text.data(), static_cast<unsigned>(text.size()), kZipMemory);
}

inline unsigned long AddFile(HZIP zip, const std::string& name, const std::string& path) {
  return ZipAdd(zip, name.c_str(), path.c_str(), 0, kZipFileName);
}

// An archive that the writer makes in memory.
class MemoryZip {
 public:
  explicit MemoryZip(unsigned size = 8 << 20) : m_zip(CreateZipZ(nullptr, size, kZipMemory)) {}
  ~MemoryZip() { CloseZipZ(m_zip); }
  MemoryZip(const MemoryZip&) = delete;
  MemoryZip& operator=(const MemoryZip&) = delete;

  operator HZIP() const { return m_zip; }

  // Ends the archive.
  std::string Bytes() const {
    void* memory = nullptr;
    unsigned long size = 0;
    EXPECT_EQ(ZipGetMemory(m_zip, &memory, &size), kZipOk);
    return std::string(static_cast<char*>(memory), size);
  }

 private:
  HZIP m_zip;
};

// An archive that the reader reads, with a copy of its bytes.
class OpenZip {
 public:
  explicit OpenZip(std::string bytes, const char* root = nullptr)
      : m_bytes(std::move(bytes)),
        m_zip(OpenZipU(m_bytes.data(), static_cast<unsigned>(m_bytes.size()), kZipMemory, root)) {}
  ~OpenZip() {
    if (m_zip != nullptr) CloseZipU(m_zip);
  }
  OpenZip(const OpenZip&) = delete;
  OpenZip& operator=(const OpenZip&) = delete;

  operator HZIP() const { return m_zip; }

 private:
  std::string m_bytes;
  HZIP m_zip;
};

// An entry's bytes, extracted into a block of step bytes again and again; and the last result.
inline std::string Extracted(HZIP zip, int index, unsigned step, unsigned long* result) {
  std::string all, piece(step, 0);
  ZIPENTRY entry = {};
  EXPECT_EQ(GetZipItemA(zip, index, &entry), kZipOk);
  while ((*result = UnzipItem(zip, index, piece.data(), step, kZipMemory)) == kZipMore)
    all.append(piece, 0, std::min<size_t>(step, entry.unc_size - all.size()));
  return all;
}

// The names and bytes of all entries, in their order.
using Contents = std::vector<std::pair<std::string, std::string>>;

inline Contents ContentsOf(const std::string& archive) {
  const OpenZip zip(archive);
  Contents contents;
  ZIPENTRY entry = {};
  EXPECT_EQ(GetZipItemA(zip, -1, &entry), kZipOk);
  for (int i = 0, count = entry.index; i < count; ++i) {
    unsigned long result;
    const std::string bytes = Extracted(zip, i, 1 << 20, &result);
    EXPECT_EQ(result, kZipOk);
    EXPECT_EQ(GetZipItemA(zip, i, &entry), kZipOk);
    contents.emplace_back(entry.name, bytes);
  }
  return contents;
}

// A pipe that holds a megabyte before its writer waits.
struct Pipe {
  Pipe() {
    HANDLE reads, writes;
    EXPECT_TRUE(CreatePipe(&reads, &writes, nullptr, 1 << 20));
    readEnd.reset(reads);
    writeEnd.reset(writes);
  }

  // All that there will be to read.
  explicit Pipe(const std::string& bytes) : Pipe() {
    DWORD written = 0;
    WriteFile(writeEnd.get(), bytes.data(), static_cast<DWORD>(bytes.size()), &written, nullptr);
    EXPECT_EQ(written, bytes.size());
    writeEnd.reset();
  }

  // All that was written, after closing the end that writes.
  std::string TakeAll() {
    writeEnd.reset();
    std::string all;
    char piece[4096];
    for (DWORD got; ReadFile(readEnd.get(), piece, sizeof piece, &got, nullptr) && got > 0;)
      all.append(piece, got);
    return all;
  }

  unique_kernel_handle readEnd;
  unique_kernel_handle writeEnd;
};

inline unique_file OpenForReading(const std::string& path) {
  return unique_file(CreateFileA(path.c_str(), GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE,
                                 nullptr, OPEN_EXISTING, 0, nullptr));
}

inline unique_file CreateForWriting(const std::string& path, DWORD access = GENERIC_WRITE) {
  return unique_file(
      CreateFileA(path.c_str(), access, FILE_SHARE_READ, nullptr, CREATE_ALWAYS, 0, nullptr));
}

inline FILETIME FileTimeOf(WORD year, WORD month, WORD day, WORD hour, WORD minute, WORD second) {
  const SYSTEMTIME time = {year, month, 0, day, hour, minute, second, 0};
  FILETIME result = {};
  SystemTimeToFileTime(&time, &result);
  return result;
}

// All but the time of creation, which Unix file systems don't keep.
inline void SetTimes(const std::string& path, const FILETIME& accessed, const FILETIME& modified) {
  const unique_file file(
      CreateFileA(path.c_str(), FILE_WRITE_ATTRIBUTES, 0, nullptr, OPEN_EXISTING, 0, nullptr));
  EXPECT_TRUE(SetFileTime(file.get(), nullptr, &accessed, &modified));
}

inline bool operator==(const FILETIME& left, const FILETIME& right) {
  return CompareFileTime(&left, &right) == 0;
}

// Of seconds since 1970.
inline FILETIME FileTimeOf(uint32_t seconds) {
  const int64_t units = (static_cast<int32_t>(seconds) + 11'644'473'600) * 10'000'000;
  return {static_cast<DWORD>(units), static_cast<DWORD>(units >> 32)};
}

// The local time that the system shows for a file time.
inline FILETIME LocalTimeOf(const FILETIME& time) {
  SYSTEMTIME utc, local;
  FILETIME result = {};
  FileTimeToSystemTime(&time, &utc);
  SystemTimeToTzSpecificLocalTime(nullptr, &utc, &local);
  SystemTimeToFileTime(&local, &result);
  return result;
}
