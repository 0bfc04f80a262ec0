// Loading files.
#include <new>

#include "entry/Handles.h"
#include "entry/PathUtils.h"
#include "entry/strutils.h"
#include "markup/NoException.h"
#include "markup/OXParser.h"
#include "markup/TextScan.h"

namespace {

using Contents = std::unique_ptr<char[]>;

constexpr DWORD kPause = 1000;  // ms
constexpr DWORD kMaxSize = 0x7FFFFFFE;

bool ReadWhole(HANDLE file, char* to, DWORD size) {
  DWORD read = 0;
  return SetFilePointer(file, 0, nullptr, FILE_BEGIN) == 0 &&
         ReadFile(file, to, size, &read, nullptr) && read == size;
}

// Reads a file into a block with a zero behind it: kLoaded, or what went wrong.
COXParser::ParseError Load(const char* path, Contents& contents) {
  const unique_file file(CreateFileA(path, GENERIC_READ, FILE_SHARE_READ, nullptr, OPEN_EXISTING,
                                     FILE_FLAG_SEQUENTIAL_SCAN, nullptr));
  if (!file) return COXParser::kFileNotOpened;
  LARGE_INTEGER size;
  if (!GetFileSizeEx(file.get(), &size)) return COXParser::kSizeUnknown;
  if (size.QuadPart > kMaxSize) return COXParser::kNoMemory;
  const DWORD length = size.LowPart;
  contents.reset(new (std::nothrow) char[length + 1]);
  if (contents == nullptr) return COXParser::kNoMemory;
  contents[length] = 0;
  if (ReadWhole(file.get(), contents.get(), length) ||
      ReadWhole(file.get(), contents.get(), length)) {
    return COXParser::kLoaded;
  }
  contents.reset();
  return COXParser::kFileNotRead;
}

// The same through a copy, where the file itself can be opened but not read.
COXParser::ParseError LoadCopy(const char* path, Contents& contents) {
  char folder[MAX_PATH + 1];
  char copy[MAX_PATH + 1];
  const DWORD length = GetTempPathA(sizeof folder, folder);
  if (length == 0 || length > MAX_PATH || GetTempFileNameA(folder, "orv", 0, copy) == 0) {
    return COXParser::kFileNotRead;
  }
  const bool copied = CopyFileA(path, copy, FALSE);
  const bool loaded = copied && Load(copy, contents) == COXParser::kLoaded;
  ForceDeleteFile(copy);
  return loaded ? COXParser::kLoaded : COXParser::kFileNotRead;
}

COXParser::ParseError LoadSomehow(const char* path, Contents& contents) {
  const COXParser::ParseError loaded = Load(path, contents);
  return loaded == COXParser::kFileNotRead ? LoadCopy(path, contents) : loaded;
}

// Whether the folder of a path can be made the current directory.
int FolderExists(const char* path) {
  const CString whole = WithBackslashes(path);
  CString folder;
  CString name;
  SplitAtLastBackslash(whole, folder, name);
  if (folder == whole) return 1;  // a name alone: the current directory
  char previous[MAX_PATH + 1];
  const DWORD length = GetCurrentDirectoryA(sizeof previous, previous);
  const int exists = SetCurrentDirectoryA(folder + "\\");
  if (length > 0 && length <= MAX_PATH) SetCurrentDirectoryA(previous);
  return exists;
}

}  // namespace

std::unique_ptr<char[]> COXParser::LoadFile(const char* path) {
  Contents contents;
  if (path != nullptr) Load(path, contents);
  return contents;
}

int COXParser::ParseFile(const char* path) {
  const Contents contents = LoadFile(path);
  return contents == nullptr ? 0 : Parse(contents.get());
}

int COXParser::ParseFileEx(const char* path) {
  ParseError status;
  return ParseFileEx(path, FALSE, status);
}

int COXParser::ParseFileEx(const char* path, int requirePrefix, ParseError& status) {
  status = kLooking;
  if (path == nullptr || *path == 0) {
    status = kFileMissing;
    return 0;
  }
  if (GetFileAttributesA(path) == INVALID_FILE_ATTRIBUTES) {
    const int exists = WithoutException([path] { return FolderExists(path); });
    status = exists ? kFileMissing : kFolderMissing;
    return 0;
  }

  status = kLoading;
  Contents contents;
  ParseError loaded = LoadSomehow(path, contents);
  if (loaded != kLoaded) {
    Sleep(kPause);
    status = kLoadingAgain;
    loaded = LoadSomehow(path, contents);
  }
  status = loaded;
  if (loaded != kLoaded) return 0;

  const Text text(contents.get());
  if (text.empty()) {
    status = kParseFailed;
    return 0;
  }
  constexpr Text kPrefix = "<xml";
  if (requirePrefix &&
      _strnicmp(SkipByteOrderMark(text.data()), kPrefix.data(), kPrefix.size()) != 0) {
    status = kPrefixMissing;
    return 0;
  }
  status = kParsing;
  const int parsed = Parse(text.data());
  status = kParseReturned;
  status = parsed ? kParsed : kParseFailed;
  return parsed;
}

int COXParser::IsPermanentError(ParseError status) {
  return status == kFileMissing || status == kPrefixMissing || status == kParseFailed;
}
