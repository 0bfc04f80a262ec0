#include "util/MFile.h"

#include <fcntl.h>
#include <io.h>

#include <climits>
#include <cstring>
#include <string>

#include "diag/trace.h"
#include "entry/DestinationFile.h"
#include "markup/NoException.h"
#include "messages/message.h"
#include "resources/resource.h"
#include "util/SystemErrorWords.h"
#include "util/Utf8File.h"

namespace {

constexpr int kMarkSize = 2;
constexpr uint8_t kAtEnd = 0xFF;
constexpr wchar_t kUnitAtEnd = 0xFFFF;

// What becomes of a UTF-16 code unit in 8-bit text.
struct Folded {
  uint8_t character;
  bool isHeld;   // false: the character is a stand-in
  bool isKnown;  // false: it is not even of the ranges that are looked at
};

Folded Fold(wchar_t unit) {
  const unsigned low = unit & 0xFF;
  switch (unit >> 8) {
    case 0:
      return {static_cast<uint8_t>(low), true, true};
    case 0x20:  // General Punctuation
      if (low >= 0x10 && low <= 0x15) return {'-', true, true};
      if (low >= 0x18 && low <= 0x1B) return {'\'', true, true};
      if (low >= 0x1C && low <= 0x1F) return {'"', true, true};
      return {'?', false, true};
    default:
      return {'?', false, false};
  }
}

wchar_t UnitOf(uint8_t first, uint8_t second, bool littleEndian) {
  return static_cast<wchar_t>(littleEndian ? first | second << 8 : first << 8 | second);
}

bool IsMark(uint8_t first, uint8_t second) {
  return (first == 0xFF && second == 0xFE) || (first == 0xFE && second == 0xFF);
}

bool IsLead(uint8_t byte) { return (byte & 0xC0) == 0xC0; }
bool IsContinuation(uint8_t byte) { return (byte & 0xC0) == 0x80; }

// 8-bit text, made of UTF-16 where it begins with a mark; lost: how many stand-ins there are.
std::string FoldText(const CString& text, int& lost) {
  const auto* const bytes = reinterpret_cast<const uint8_t*>(static_cast<const char*>(text));
  const int length = text.GetLength();
  if (length < kMarkSize || !IsMark(bytes[0], bytes[1]))
    return std::string(static_cast<const char*>(text), length);
  std::string folded;
  for (int i = kMarkSize; i + 1 < length; i += 2) {
    const Folded unit = Fold(UnitOf(bytes[i], bytes[i + 1], bytes[0] == 0xFF));
    folded += static_cast<char>(unit.character);
    if (!unit.isHeld) ++lost;
  }
  return folded;
}

// As the runtime writes text.
std::string WithLineEnds(const std::string& text) {
  std::string result;
  for (const char c : text) {
    if (c == '\n') result += '\r';
    result += c;
  }
  return result;
}

bool Replace(const char* name, const std::string& text, const char* mode, int& written) {
  const bool isBinary = strchr(mode, 'b') != nullptr;
  const std::string& bytes = isBinary ? text : WithLineEnds(text);
  DestinationFile file;
  if (!file.Open(name) || !file.Write(bytes.data(), static_cast<DWORD>(bytes.size())) ||
      !file.Commit())
    return false;
  written = static_cast<int>(text.size());
  return true;
}

bool WriteInMode(const char* name, const std::string& text, const char* mode, int& written) {
  FILE* const file = fopen(name, mode);
  if (file == nullptr) return false;
  written = static_cast<int>(fwrite(text.data(), 1, text.size(), file));
  const bool good = fflush(file) == 0 && ferror(file) == 0;
  const bool closed = fclose(file) == 0;
  return good && closed && static_cast<size_t>(written) == text.size();
}

}  // namespace

MFile::MFile()
    : m_next(m_buffer),
      m_end(m_buffer),
      m_blockStart(0),
      m_blockEnd(0),
      m_unicode(0),
      m_littleEndian(1),
      m_allowNonLatin(1),
      m_failed(0) {}

MFile::~MFile() = default;

int MFile::Open(const char* name, unsigned flags, CFileException* error, int quiet) {
  if (name == nullptr) name = "";
  CFileException ownError;
  if (error == nullptr) error = &ownError;
  if (WithoutException([&] { return CFile::Open(name, flags, error); })) {
    Reset();
    return 1;
  }
  if (error->m_cause == CFileException::none) {
    error->m_cause = CFileException::generic;
    error->m_lOsError = ERROR_NOT_ENOUGH_MEMORY;
  }
  if (quiet) return 0;
  return WithoutException([&] {
    const CString reason = SystemErrorWords(static_cast<DWORD>(error->m_lOsError));
    Message::DisplayErrorMessage(IDS_FILE_NOT_OPENED, name, reason);
    return 0;
  });
}

int MFile::OpenStdFile(FILE* stream) {
  const int descriptor = stream == nullptr ? -1 : _fileno(stream);
  const intptr_t handle = descriptor < 0 ? -1 : _get_osfhandle(descriptor);
  if (handle == -1) return 0;
  // What the stream has read ahead is given back to the file; of a pipe there is none yet.
  fseek(stream, 0, SEEK_CUR);
  VERIFY(_setmode(descriptor, _O_BINARY) != -1);

  CFile::Abort();
  m_hFile = static_cast<UINT>(handle);  // not closed by CFile, which did not open it
  Reset();
  return 1;
}

void MFile::Reset() {
  m_unicode = 0;
  m_littleEndian = 1;
  m_failed = 0;
  m_next = m_end = m_buffer;
  m_blockStart = 0;
  try {
    m_blockStart = CFile::GetPosition();
  } catch (CFileException* error) {  // a pipe has none
    error->Delete();
  }
  m_blockEnd = m_blockStart;

  int ok;
  const uint8_t first = GetByte(ok);
  if (!ok) return;
  if (m_next == m_end) {  // a pipe may give single bytes, and both must be in the buffer
    const UINT count = ReadInto(m_buffer + 1, sizeof m_buffer - 1);
    m_end += count;
    m_blockEnd += count;
  }
  const uint8_t second = GetByte(ok);
  m_unicode = ok && IsMark(first, second);
  if (m_unicode) {
    m_littleEndian = first == 0xFF;
  } else {
    VERIFY(UngetBytes(ok ? 2 : 1));
  }
}

// At the end of the file the last block stays, so that its bytes can be taken back.
uint8_t MFile::NextBlock(int& ok) {
  const UINT count = ReadInto(m_buffer, sizeof m_buffer);
  ok = count > 0;
  if (!ok) return kAtEnd;
  m_blockStart = m_blockEnd;
  m_blockEnd += count;
  m_next = m_buffer;
  m_end = m_buffer + count;
  return *m_next++;
}

UINT MFile::ReadInto(uint8_t* place, UINT room) {
  try {
    return CFile::Read(place, room);
  } catch (CFileException* error) {
    // When whoever writes into a pipe has closed it, that is the end.
    m_failed = error->m_lOsError != ERROR_BROKEN_PIPE;
    error->Delete();
  }
  ASSERT(!m_failed);
  return 0;
}

int MFile::UngetBytes(int count) {
  if (count < 0 || count > m_next - m_buffer) return 0;
  m_next -= count;
  return 1;
}

uint8_t MFile::ReadFolded(int& ok) {
  const wchar_t unit = GetUnit(ok);
  if (!ok) return kAtEnd;
  const Folded folded = Fold(unit);
  if (!folded.isKnown && !m_allowNonLatin) throw 1;
  return folded.character;
}

wchar_t MFile::ReadUnicodeByte(int& ok) {
  ASSERT(m_unicode);
  return GetUnit(ok);
}

wchar_t MFile::GetUnit(int& ok) {
  const uint8_t first = GetByte(ok);
  if (!ok) return kUnitAtEnd;
  const uint8_t second = GetByte(ok);
  return ok ? UnitOf(first, second, m_littleEndian) : kUnitAtEnd;
}

DWORD MFile::GetLength() const {
  try {
    const DWORD size = CFile::GetLength();
    return m_unicode ? size / 2 - 2 : size;
  } catch (CFileException* error) {
    error->Delete();
    return 0;
  }
}

LONG MFile::Seek(LONG offset, UINT from) {
  const LONGLONG target = m_unicode ? LONGLONG{offset} * 2 + kMarkSize : offset;
  if (target < LONG_MIN || target > LONG_MAX) return -1;
  if (from == begin && target >= m_blockStart && target < m_blockEnd) {
    m_next = m_buffer + (target - m_blockStart);
    return static_cast<LONG>(target);
  }
  try {
    m_blockEnd = static_cast<DWORD>(CFile::Seek(static_cast<LONG>(target), from));
  } catch (CFileException* error) {
    error->Delete();
    return -1;
  }
  m_blockStart = m_blockEnd;
  m_next = m_end = m_buffer;
  return static_cast<LONG>(m_blockEnd);
}

DWORD MFile::GetPosition() const { return static_cast<DWORD>(m_blockEnd); }

UINT MFile::Read(void*, UINT) {
  ASSERT(false);  // it would give bytes where ReadByte gives characters
  return 0;
}

int MFile::UnicodeToTextFile(const char* target, int& nonAscii, int& wasUnicode) {
  const bool isNamed = target != nullptr && *target != 0;
  ASSERT(isNamed);
  nonAscii = 0;
  wasUnicode = m_unicode;
  if (!m_unicode || !isNamed || Seek(0, begin) == -1) return 0;
  Utf8File file;
  if (!file.Create(target)) return 0;
  m_failed = 0;
  int ok;
  for (wchar_t unit = GetUnit(ok); ok; unit = GetUnit(ok)) file.Write(unit);
  nonAscii = file.HasNonAscii();
  return !m_failed && file.Close();
}

int MFile::IsFileUtf8(MFile& file, long maxChars) {
  if (file.IsUnicode()) return 0;
  file.Seek(0, begin);
  int result = 0;
  // Always one byte ahead: a byte belongs to what stands before it.
  int ok;
  uint8_t byte = file.GetByte(ok);
  if (ok && IsContinuation(byte)) ok = 0;
  for (long steps = 0; ok && steps < maxChars; ++steps) {
    const bool isLead = IsLead(byte);
    int following = 0;
    for (byte = file.GetByte(ok); ok && IsContinuation(byte); byte = file.GetByte(ok)) ++following;
    if (isLead) result = following > 0;
    if (isLead != (following > 0)) break;
  }
  file.Seek(0, begin);
  return result;
}

int MFile::SaveFileAscii(const char* name, CString& text, int& written, int& lost,
                         const char* mode) {
  written = lost = 0;
  // The runtime's own answer to a mode that is none can be to end the program.
  if (name == nullptr || mode == nullptr || *mode == 0 || strchr("rwa", *mode) == nullptr) return 0;
  return WithoutException([&] {
    const std::string characters = FoldText(text, lost);
    return *mode == 'w' ? Replace(name, characters, mode, written)
                        : WriteInMode(name, characters, mode, written);
  });
}
