#include <afxwin.h>

#include <fcntl.h>
#include <io.h>

#include <cstdio>
#include <cstring>
#include <functional>

#include "commands.h"
#include "entry/DestinationFile.h"
#include "util/MFile.h"

namespace {

struct Options {
  const char* file = nullptr;
  const char* out = nullptr;
};

bool ReadOptions(int count, char** arguments, Options& options) {
  for (int i = 0; i < count; ++i) {
    const char* const argument = arguments[i];
    if (strcmp(argument, "-o") == 0 && options.out == nullptr && i + 1 < count) {
      options.out = arguments[++i];
    } else if ((*argument != '-' || argument[1] == 0) && options.file == nullptr) {
      options.file = argument;
    } else {
      return false;
    }
  }
  return options.file != nullptr;
}

bool OpenText(MFile& text, const char* name) {
  if (strcmp(name, "-") == 0) return text.OpenStdFile(stdin);
  CFileException error;
  if (text.Open(name, CFile::modeRead | CFile::shareDenyWrite, &error, 1)) return true;
  char reason[512] = "";
  error.GetErrorMessage(reason, sizeof reason);
  fprintf(stderr, "orv: %s\n", reason);
  return false;
}

// The text in large pieces, as ReadByte gives it, from where it is read. False when the file cannot
// be read to its end, or a piece is refused.
bool ReadPieces(MFile& text, const std::function<bool(const char* piece, size_t size)>& take) {
  char piece[16 * 1024];
  for (int ok = 1; ok;) {
    size_t size = 0;
    while (size < sizeof piece) {
      piece[size] = static_cast<char>(text.ReadByte(ok));
      if (!ok) break;
      ++size;
    }
    if (!take(piece, size)) return false;
  }
  return !text.HasFailed();
}

bool Print(MFile& text) {
  _setmode(_fileno(stdout), _O_BINARY);
  const auto print = [](const char* piece, size_t size) {
    return fwrite(piece, 1, size, stdout) == size;
  };
  return ReadPieces(text, print) && fflush(stdout) == 0;
}

// The bytes as they are.
bool Copy(MFile& text, const char* target) {
  DestinationFile out;
  const auto write = [&out](const char* piece, size_t size) {
    return out.Write(piece, static_cast<DWORD>(size));
  };
  return out.Open(target) && ReadPieces(text, write) && out.Commit();
}

// What the text was, to be told from what was written: a pipe cannot be read again.
const char* EncodingOf(const MFile& text, const char* target) {
  if (text.IsUnicode()) {
    return text.IsLittleEndian() ? "UTF-16, little-endian" : "UTF-16, big-endian";
  }
  MFile copy;
  const bool isUtf8 = copy.Open(target, CFile::modeRead | CFile::shareDenyNone, nullptr, 1) &&
                      MFile::IsFileUtf8(copy, LONG_MAX);
  return isUtf8 ? "UTF-8" : "8-bit";
}

bool Convert(MFile& text, const char* target) {
  int nonAscii, wasUnicode;
  const bool converted =
      text.UnicodeToTextFile(target, nonAscii, wasUnicode) || (!wasUnicode && Copy(text, target));
  if (converted) puts(EncodingOf(text, target));
  return converted;
}

}  // namespace

int TextCommand(int count, char** arguments) {
  Options options;
  if (!ReadOptions(count, arguments, options)) return kWrongUsage;
  MFile text;
  if (!OpenText(text, options.file)) return kFailed;
  const bool done = options.out == nullptr ? Print(text) : Convert(text, options.out);
  if (done) return kDone;
  if (text.HasFailed()) {
    fprintf(stderr, "orv: %s: can't be read to its end\n", options.file);
  } else {
    fprintf(stderr, "orv: %s: can't be written\n", options.out == nullptr ? "-" : options.out);
  }
  return kFailed;
}
