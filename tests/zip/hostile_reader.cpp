#include "hostile_reader.h"

#include <windows.h>
#include <zlib.h>

#include <algorithm>
#include <climits>
#include <cstring>
#include <initializer_list>
#include <memory>

#include "entry/Handles.h"
#include "support/Allocations.h"

namespace hostile {
namespace {

constexpr int kVisited = 100;            // entries looked at; an end record can announce 65,535
constexpr unsigned kMaxStep = 4099;      // bytes asked for at a time: odd, above a page
constexpr uint64_t kMostPerByte = 1032;  // what one byte of deflate data can hold
constexpr uint64_t kSlack = 1024;
constexpr size_t kMemoryPerByte = 4;         // allocated per byte of the archive,
constexpr size_t kMemoryFixed = 512 * 1024;  // and whatever the archive is
constexpr ULONGLONG kMilliseconds = 20000;

bool IsOneOf(unsigned long code, std::initializer_list<unsigned long> codes) {
  return std::find(codes.begin(), codes.end(), code) != codes.end();
}

std::string LastMessage() {
  char text[100] = "";
  FormatZipMessageU(kZipRecent, text, sizeof text);
  return text;
}

void Add(Digest* digest, const unsigned char* bytes, uint32_t size) {
  digest->crc = crc32(digest->crc, bytes, size);
  digest->size += size;
}

class Reading {
 public:
  Reading(const std::string& archive, ZipKind source, const TempFolder& folder)
      : m_size(archive.size()),
        m_path(folder / "archive.zip"),
        m_output(folder / "output"),
        m_buffer(std::string(kMaxStep, '\xEE').data(), kMaxStep) {
    switch (source) {
      case kZipFileName:
        Write(archive);
        break;
      case kZipHandle:
        Write(kInFront + archive);
        m_source.reset(CreateFileA(m_path.c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr,
                                   OPEN_EXISTING, 0, nullptr));
        SetFilePointer(m_source.get(), static_cast<LONG>(kInFront.size()), nullptr, FILE_BEGIN);
        break;
      default:
        m_block = std::make_unique<allocations::GuardedBytes>(archive.data(), archive.size());
    }
    m_sink.reset(CreateFileA((folder / "sink").c_str(), GENERIC_READ | GENERIC_WRITE, 0, nullptr,
                             CREATE_ALWAYS, 0, nullptr));
    m_outcome.entries.reserve(kVisited);
  }

  Outcome Run() {
    const size_t before = allocations::Count().bytes;
    const ULONGLONG start = GetTickCount64();
    allocations::ResetPeak();
    m_zip = Open();
    m_outcome.opened = m_zip != nullptr;
    if (m_zip != nullptr) {
      VisitAll();
      Check(CloseZipU(m_zip) == kZipOk, "the archive can't be closed");
    } else {
      m_outcome.message = LastMessage();
    }
    const size_t peak = allocations::Peak() - before;
    Check(peak <= kMemoryPerByte * m_size + kMemoryFixed, "more memory than the archive warrants",
          -1, static_cast<unsigned long>(peak));
    Check(GetTickCount64() - start < kMilliseconds, "more time than any archive warrants");
    return std::move(m_outcome);
  }

 private:
  void Check(bool holds, const char* rule, int index = -1, unsigned long code = 0) {
    if (holds || !m_outcome.problem.empty()) return;
    m_outcome.problem = rule;
    if (index >= 0) m_outcome.problem += ", entry " + std::to_string(index);
    char text[32] = "";
    snprintf(text, sizeof text, ", code 0x%lX", code);
    if (code != 0) m_outcome.problem += text;
  }

  void Write(const std::string& bytes) {
    const unique_file file(
        CreateFileA(m_path.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, 0, nullptr));
    DWORD written = 0;
    WriteFile(file.get(), bytes.data(), static_cast<DWORD>(bytes.size()), &written, nullptr);
  }

  HZIP Open() {
    if (m_block != nullptr) {
      return OpenZipU(m_block->data(), static_cast<unsigned>(m_size), kZipMemory, nullptr);
    }
    if (m_source) return OpenZipU(m_source.get(), 0, kZipHandle, nullptr);
    return OpenZipU(const_cast<char*>(m_path.c_str()), 0, kZipFileName, nullptr);
  }

  void VisitAll() {
    ZIPENTRY record = {};
    const unsigned long result = GetZipItemA(m_zip, -1, &record);
    Check(result == kZipOk, "the number of entries can't be had", -1, result);
    m_outcome.count = record.index;
    Check(record.index >= 0 && record.index <= 65535, "a wild number of entries", record.index);
    for (int index : {-2, record.index, INT_MAX}) CheckRefused(index);
    const int visited = std::min(record.index, kVisited);
    for (int index = 0; index < visited; ++index) Visit(index);
    JumpAbout(visited);
    Check(m_handedOut <= kMostPerByte * m_size + kSlack, "more bytes than the archive can hold");
  }

  void CheckRefused(int index) {
    ZIPENTRY record = {};
    unsigned long result = GetZipItemA(m_zip, index, &record);
    Check(result == kZipBadArguments, "a wrong index is looked up", -1, result);
    result = UnzipItem(m_zip, index, m_buffer.data(), kMaxStep, kZipMemory);
    Check(result == kZipBadArguments, "a wrong index is extracted", -1, result);
  }

  void Visit(int index) {
    EntryOutcome& entry = m_outcome.entries.emplace_back();
    ZIPENTRY record = {};
    entry.look = GetZipItemA(m_zip, index, &record);
    Check(IsOneOf(entry.look, {kZipOk, kZipCorrupt, kZipReadError}), "looking up", index,
          entry.look);
    if (entry.look == kZipOk) {
      Check(record.index == index, "the record of another entry", index);
      Check(memchr(record.name, 0, sizeof record.name) != nullptr, "a name without end", index);
      entry.folder = (record.attr & FILE_ATTRIBUTE_DIRECTORY) != 0;
      Find(index, record.name, &entry);
    }
    UnzipToMemory(index, static_cast<uint32_t>(record.unc_size), &entry);
    Digest written;
    UnzipToFile(index, &entry, &written);
    CompareWays(index, entry, written);
  }

  void Find(int index, const char* name, EntryOutcome* entry) {
    for (bool ignoreCase : {true, false}) {
      int found = INT_MIN;
      ZIPENTRY record = {};
      const unsigned long result = FindZipItemA(m_zip, name, ignoreCase, &found, &record);
      Check(IsOneOf(result, {kZipOk, kZipNotFound, kZipCorrupt, kZipReadError}), "finding", index,
            result);
      if (result == kZipOk) {
        Check(found == record.index, "a found index that is not the record's", index);
        Check((ignoreCase ? _stricmp : strcmp)(record.name, name) == 0, "another name found",
              index);
      }
      if (result == kZipNotFound) {
        Check(found == -1 && record.index == -1, "not found, but with an index", index);
      }
      entry->found = result == kZipOk && found == index;
    }
  }

  // Every call that gives kZipMore filled its step, or held the entry's last bytes.
  void UnzipToMemory(int index, uint32_t announced, EntryOutcome* entry) {
    constexpr unsigned kSteps[] = {1, 7, 61, kMaxStep};
    for (unsigned call = 0;; ++call) {
      const unsigned step = kSteps[std::min(call, 3u)];
      unsigned char* const destination = m_buffer.data() + kMaxStep - step;
      entry->memory = UnzipItem(m_zip, index, destination, step, kZipMemory);
      if (entry->memory != kZipMore) break;
      const uint32_t filled = std::min(step, announced - entry->bytes.size);
      if (filled == 0) {
        Check(false, "more bytes than announced", index);
        break;
      }
      Add(&entry->bytes, destination, filled);
    }
    m_handedOut += entry->bytes.size;
    Check(IsOneOf(entry->memory, {kZipOk, kZipCorrupt, kZipReadError, kZipFlateError}),
          "extracting into memory", index, entry->memory);
  }

  // To a file of its own, or to an open handle for every second entry.
  void UnzipToFile(int index, EntryOutcome* entry, Digest* written) {
    if (index % 2 != 0) {
      SetFilePointer(m_sink.get(), 0, nullptr, FILE_BEGIN);
      SetEndOfFile(m_sink.get());
      entry->file = UnzipItem(m_zip, index, m_sink.get(), 0, kZipHandle);
      *written = DigestOfFile(m_sink.get());
    } else {
      SetFileAttributesA(m_output.c_str(), FILE_ATTRIBUTE_NORMAL);
      DeleteFileA(m_output.c_str());
      entry->file = UnzipItem(m_zip, index, const_cast<char*>(m_output.c_str()), 0, kZipFileName);
      const unique_file file(CreateFileA(m_output.c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr,
                                         OPEN_EXISTING, 0, nullptr));
      if (file) *written = DigestOfFile(file.get());
      if (entry->folder) Check(!file, "a file for a folder", index);
    }
    Check(IsOneOf(entry->file, {kZipOk, kZipCorrupt, kZipReadError, kZipWriteError}),
          "extracting to a file", index, entry->file);
  }

  Digest DigestOfFile(HANDLE file) {
    Digest digest;
    DWORD size = 0;
    SetFilePointer(file, 0, nullptr, FILE_BEGIN);
    while (ReadFile(file, m_buffer.data(), kMaxStep, &size, nullptr) && size > 0) {
      Add(&digest, m_buffer.data(), size);
      if (digest.size > kMostPerByte * m_size + kSlack) break;
    }
    return digest;
  }

  // Memory and file are two ways to the same result; unreadable data have a code for each.
  void CompareWays(int index, const EntryOutcome& entry, const Digest& written) {
    if (entry.look == kZipOk && entry.folder) {
      Check(entry.file == kZipOk && written.size == 0, "a folder extracted", index, entry.file);
      return;
    }
    const unsigned long expected = entry.memory == kZipFlateError ? kZipWriteError : entry.memory;
    Check(entry.file == expected, "file and memory differ in result", index, entry.file);
    if (entry.file != kZipOk) return;
    Check(written == entry.bytes, "file and memory differ in bytes", index);
  }

  // Begins to extract every entry, backwards, and gives each up in another way.
  void JumpAbout(int visited) {
    for (int index = visited - 1; index >= 0; --index) {
      const EntryOutcome& entry = m_outcome.entries[index];
      const unsigned long result = UnzipItem(m_zip, index, m_buffer.data(), 3, kZipMemory);
      Check(result == entry.memory || (result == kZipMore && entry.bytes.size > 0),
            "another result the second time", index, result);
      ZIPENTRY record = {};
      if (index % 3 == 0) GetZipItemA(m_zip, visited / 2, &record);
      if (index % 3 == 1) FindZipItemA(m_zip, "empty", false, nullptr, nullptr);
    }
  }

  const std::string kInFront = "other bytes of the file";

  const size_t m_size;
  const std::string m_path;
  const std::string m_output;
  allocations::GuardedBytes m_buffer;
  std::unique_ptr<allocations::GuardedBytes> m_block;
  unique_file m_source;
  unique_file m_sink;
  HZIP m_zip = nullptr;
  uint64_t m_handedOut = 0;
  Outcome m_outcome;
};

}  // namespace

Digest DigestOf(const std::string& bytes) {
  Digest digest;
  Add(&digest, reinterpret_cast<const unsigned char*>(bytes.data()),
      static_cast<uint32_t>(bytes.size()));
  return digest;
}

Outcome ReadEverything(const std::string& archive, ZipKind source, const TempFolder& folder) {
  return Reading(archive, source, folder).Run();
}

}  // namespace hostile
