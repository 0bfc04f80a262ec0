#include "net/FormBody.h"

#include <cstring>
#include <new>
#include <string>

#include "entry/Handles.h"

namespace {

constexpr char kBoundary[] = "--AaB03x";

// A name that cannot end its place in the header, as browsers write it.
std::string quoted(const char* name) {
  std::string text;
  if (name == nullptr) return text;
  for (; *name != 0; ++name) {
    switch (*name) {
      case '"':
        text += "%22";
        break;
      case '\r':
        text += "%0D";
        break;
      case '\n':
        text += "%0A";
        break;
      default:
        text += *name;
    }
  }
  return text;
}

bool isReadOnly(const char* path) {
  const DWORD attributes = GetFileAttributesA(path);
  return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_READONLY) != 0;
}

bool readExactly(HANDLE file, char* bytes, DWORD size) {
  while (size > 0) {
    DWORD got = 0;
    if (!ReadFile(file, bytes, size, &got, nullptr)) return false;
    if (got == 0) {
      SetLastError(ERROR_HANDLE_EOF);
      return false;
    }
    bytes += got;
    size -= got;
  }
  return true;
}

}  // namespace

FormResult FormBody::Read(const char* path, const char* fileName) {
  const std::string boundary = kBoundary;
  const std::string head =
      boundary + "\r\nContent-Disposition: form-data; name=\"attach1\"; filename=\"" +
      quoted(fileName) + "\"\r\nContent-Type: application/octet-stream\r\n\r\n";
  const std::string tail = "\r\n" + boundary + "--\r\n";

  // Opened for update: what must not be written is not sent either, by design. It may be open
  // elsewhere, as the log is that its own program sends: what was there at the start is sent.
  if (isReadOnly(path)) {
    SetLastError(ERROR_ACCESS_DENIED);
    return FormResult::NoFile;
  }
  const unique_file file(CreateFileA(path, GENERIC_READ | GENERIC_WRITE,
                                     FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr, OPEN_EXISTING,
                                     FILE_FLAG_SEQUENTIAL_SCAN, nullptr));
  LARGE_INTEGER length;
  if (!file || !GetFileSizeEx(file.get(), &length)) return FormResult::NoFile;
  const ULONGLONG size = head.size() + static_cast<ULONGLONG>(length.QuadPart) + tail.size();
  if (size > MAXLONG) return FormResult::TooLarge;
  m_bytes.reset(new (std::nothrow) char[static_cast<size_t>(size)]);
  if (m_bytes == nullptr) return FormResult::TooLarge;

  const DWORD fileSize = length.LowPart;
  char* place = m_bytes.get();
  memcpy(place, head.data(), head.size());
  place += head.size();
  if (!readExactly(file.get(), place, fileSize)) return FormResult::NoFile;
  memcpy(place + fileSize, tail.data(), tail.size());
  m_size = static_cast<DWORD>(size);
  return FormResult::Done;
}
