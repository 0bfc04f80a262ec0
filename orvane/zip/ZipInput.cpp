#include "zip/ZipInput.h"

#include <algorithm>
#include <bit>
#include <cstring>

namespace {

constexpr size_t kPageSize = 4 * 1024;
constexpr size_t kMostPages = 2048;  // 8 MB: all headers of an archive of small entries

constexpr size_t kWindowSize = 256 * 1024;

}  // namespace

struct ZipInput::Page {
  uint64_t number;
  uint8_t bytes[kPageSize];
};

ZipInput::ZipInput() = default;
ZipInput::~ZipInput() = default;

ZipResult ZipInput::OpenHandle(HANDLE handle) {
  HANDLE copy;
  // INVALID_HANDLE_VALUE would be duplicated as the process's own pseudo handle.
  if (handle == INVALID_HANDLE_VALUE ||
      !DuplicateHandle(GetCurrentProcess(), handle, GetCurrentProcess(), &copy, 0, FALSE,
                       DUPLICATE_SAME_ACCESS))
    return kZipNoDuplicate;
  m_file.reset(copy);
  LARGE_INTEGER start;
  if (GetFileType(copy) != FILE_TYPE_DISK || !SetFilePointerEx(copy, {}, &start, FILE_CURRENT))
    return kZipNoSeek;
  m_archiveStart = start.QuadPart;
  return UseFile();
}

ZipResult ZipInput::OpenFile(const char* path) {
  m_file.reset(CreateFileA(path, GENERIC_READ, FILE_SHARE_READ, nullptr, OPEN_EXISTING,
                           FILE_ATTRIBUTE_NORMAL, nullptr));
  if (!m_file) return kZipNoFile;
  // A path can name a device too.
  return GetFileType(m_file.get()) == FILE_TYPE_DISK ? UseFile() : kZipNoSeek;
}

ZipResult ZipInput::OpenMemory(const void* block, unsigned int size) {
  m_memory = static_cast<const uint8_t*>(block);
  m_size = size;
  return kZipOk;
}

ZipResult ZipInput::UseFile() {
  LARGE_INTEGER end;
  if (!GetFileSizeEx(m_file.get(), &end)) return kZipReadError;
  const auto fileSize = static_cast<uint64_t>(end.QuadPart);
  m_size = fileSize > m_archiveStart ? fileSize - m_archiveStart : 0;
  const uint64_t pages = std::min<uint64_t>(m_size / kPageSize + 1, kMostPages);
  m_pages.resize(std::bit_ceil(static_cast<size_t>(pages)));
  return kZipOk;
}

ZipResult ZipInput::ReadHeader(uint64_t position, void* to, size_t size) {
  if (!Holds(position, size)) return kZipCorrupt;
  if (m_memory != nullptr) return ReadData(position, to, size);
  auto out = static_cast<uint8_t*>(to);
  while (size > 0) {
    const Page* page;
    if (const ZipResult result = GetPage(position / kPageSize, page); result != kZipOk)
      return result;
    const auto offset = static_cast<size_t>(position % kPageSize);
    const size_t piece = std::min(size, kPageSize - offset);
    std::memcpy(out, page->bytes + offset, piece);
    out += piece;
    position += piece;
    size -= piece;
  }
  return kZipOk;
}

ZipResult ZipInput::ReadData(uint64_t position, void* to, size_t size) {
  if (!Holds(position, size)) return kZipCorrupt;
  if (m_memory == nullptr) return ReadFileAt(position, static_cast<uint8_t*>(to), size);
  std::memcpy(to, m_memory + position, size);
  return kZipOk;
}

ZipResult ZipInput::ShowData(uint64_t position, uint64_t wanted, const uint8_t*& bytes,
                             size_t& size) {
  if (!Holds(position, wanted)) return kZipCorrupt;
  if (m_memory != nullptr) {
    bytes = m_memory + position;
    size = static_cast<size_t>(wanted);
    return kZipOk;
  }
  // Small entries often lie in the page of their header.
  const auto inPage = static_cast<size_t>(position % kPageSize);
  const Page* const page = FindPage(position / kPageSize);
  if (page != nullptr && wanted <= kPageSize - inPage) {
    bytes = page->bytes + inPage;
    size = static_cast<size_t>(wanted);
    return kZipOk;
  }
  if (position < m_windowStart || position >= m_windowStart + m_windowFill) {
    const auto piece = static_cast<size_t>(std::min<uint64_t>(wanted, kWindowSize));
    m_windowFill = 0;
    if (m_window.size() < piece) m_window.resize(piece);
    if (const ZipResult result = ReadFileAt(position, m_window.data(), piece); result != kZipOk)
      return result;
    m_windowStart = position;
    m_windowFill = piece;
  }
  const auto offset = static_cast<size_t>(position - m_windowStart);
  bytes = m_window.data() + offset;
  size = static_cast<size_t>(std::min<uint64_t>(m_windowFill - offset, wanted));
  return kZipOk;
}

const ZipInput::Page* ZipInput::FindPage(uint64_t number) const {
  const Page* page = m_pages[PlaceOf(number)].get();
  return page != nullptr && page->number == number ? page : nullptr;
}

ZipResult ZipInput::GetPage(uint64_t number, const Page*& page) {
  page = FindPage(number);
  if (page != nullptr) return kZipOk;
  auto& place = m_pages[PlaceOf(number)];
  std::unique_ptr<Page> loaded = std::move(place);
  if (!loaded) loaded.reset(new Page);
  loaded->number = number;
  const uint64_t start = number * kPageSize;
  const auto size = static_cast<size_t>(std::min<uint64_t>(kPageSize, m_size - start));
  if (const ZipResult result = ReadFileAt(start, loaded->bytes, size); result != kZipOk)
    return result;
  place = std::move(loaded);
  page = place.get();
  return kZipOk;
}

ZipResult ZipInput::ReadFileAt(uint64_t position, uint8_t* to, size_t size) {
  LARGE_INTEGER place;
  place.QuadPart = static_cast<LONGLONG>(m_archiveStart + position);
  if (!SetFilePointerEx(m_file.get(), place, nullptr, FILE_BEGIN)) return kZipReadError;
  while (size > 0) {
    DWORD got = 0;
    if (!ReadFile(m_file.get(), to, static_cast<DWORD>(size), &got, nullptr) || got == 0)
      return kZipReadError;
    to += got;
    size -= got;
  }
  return kZipOk;
}
