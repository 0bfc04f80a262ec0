// Text files read character by character, 8-bit and UTF-16 alike.
#pragma once

#include <afxwin.h>

#include <cstdint>
#include <cstdio>

#include "entry/export.h"

// A file of the framework whose reading is replaced: an 8-bit file gives its bytes as they are, a
// UTF-16 file (known by its byte-order mark, FF FE or FE FF) gives 8-bit characters. Of those,
// U+0000 to U+00FF are themselves, typographic dashes and quotation marks are folded to ASCII, and
// everything else, each half of a surrogate pair too, reads as "?".
//
// Nothing but ReadByte throws, and ReadByte only when it is asked to (AllowNonLatin).
class ORVANE_API MFile : public CFile {
 public:
  MFile();
  ~MFile() override;

  // Opens as CFile::Open does and looks for a byte-order mark: 1 opened, 0 not. error, when given,
  // receives the reason. Unless quiet, the user is told: message 23240 with the name and the
  // system's words for the reason.
  int Open(const char* name, unsigned flags, CFileException* error, int quiet);
  BOOL Open(const char* name, UINT flags, CFileException* error = nullptr) override {
    return Open(name, flags, error, 0);
  }
  // Reads an open stream of the runtime from where it stands, in binary mode from now on: 1, or 0
  // when the stream has no file. The stream stays its owner's, who does not read from it meanwhile
  // and closes it afterwards.
  int OpenStdFile(FILE* stream);

  // 1 when the file began with a UTF-16 byte-order mark.
  int IsUnicode() const { return m_unicode; }
  // For a UTF-16 file: 1 when the mark was FF FE.
  int IsLittleEndian() const { return m_littleEndian; }
  // 1 when the file could not be read on: what looked like its end was none.
  int HasFailed() const { return m_failed; }

  // 0: ReadByte throws the integer 1 for a character outside of Latin-1 and General Punctuation
  // (U+2000 to U+20FF by its count), instead of giving "?". At first 1.
  void AllowNonLatin(int allow) { m_allowNonLatin = allow; }

  // The next character; at the end 0xFF, and ok is 0. Bytes may be 0xFF too: ok tells. Of a UTF-16
  // file a single byte at the end is no character.
  uint8_t ReadByte(int& ok) { return m_unicode ? ReadFolded(ok) : GetByte(ok); }
  uint8_t ReadByte() {
    int ok;
    return ReadByte(ok);
  }
  // The next code unit of a UTF-16 file; at the end 0xFFFF, and ok is 0.
  wchar_t ReadUnicodeByte(int& ok);

  // For an 8-bit file its bytes. For a UTF-16 file half its bytes less two, by design: one less
  // than it has characters, and 4,294,967,295 for a file that is a mark alone. 0: not known.
  DWORD GetLength() const override;
  // offset: in bytes, of a UTF-16 file in characters after the mark. From CFile::current and
  // CFile::end it counts from GetPosition and from the end of the file, in a UTF-16 file with the
  // mark's two bytes added all the same. The new position in bytes; -1, and nothing has changed,
  // when it lies before the beginning or past 2 GB.
  LONG Seek(LONG offset, UINT from) override;
  // Where the last block read from the file ends, in bytes, and not where reading is.
  DWORD GetPosition() const override;
  // Not supported: 0, with an ASSERT.
  UINT Read(void* buffer, UINT count) override;

  // Writes a UTF-16 file, from its first character, into an 8-bit file as UTF-8 with CR LF at the
  // ends of lines. Surrogates are encoded one by one, so that what a broken file holds comes
  // through. 1; or 0 for an 8-bit file (wasUnicode is 0 then) and when something cannot be read or
  // written: the target is as it was then. nonAscii: whether any character is beyond ASCII.
  int UnicodeToTextFile(const char* target, int& nonAscii, int& wasUnicode);

  // Whether an 8-bit file holds UTF-8 beyond ASCII: 1 when a lead byte with bytes that continue it
  // was found, 0 when none was, or one without such bytes. A byte that continues nothing ends the
  // look with what was found before it, and so do maxChars characters. Reading starts at the
  // beginning again afterwards.
  static int IsFileUtf8(MFile& file, long maxChars);

  // Writes text in a mode of the runtime ("wb", "a", ...): 1, or 0 when not all of it arrived; a
  // file that was to be replaced is as it was then. A text that holds UTF-16 behind a byte-order
  // mark is folded to 8-bit characters as ReadByte does; any other is written as it is. written:
  // how many 8-bit characters that made; lost: how many of them stand for a character that 8-bit
  // text cannot hold.
  static int SaveFileAscii(const char* name, CString& text, int& written, int& lost,
                           const char* mode);

 protected:
  // The next byte of the file; 0xFF and an ok of 0 at the end.
  uint8_t GetByte(int& ok) {
    if (m_next == m_end) return NextBlock(ok);
    ok = 1;
    return *m_next++;
  }
  // Takes back so many bytes: 1, or 0 when they are not in the buffer.
  int UngetBytes(int count);
  // Starts reading where the file stands: looks for a byte-order mark.
  void Reset();

 private:
  uint8_t ReadFolded(int& ok);
  wchar_t GetUnit(int& ok);
  uint8_t NextBlock(int& ok);
  UINT ReadInto(uint8_t* place, UINT room);
  bool SkipToMark();

  uint8_t m_buffer[4098];
  const uint8_t* m_next;  // what GetByte gives next
  const uint8_t* m_end;   // behind the last byte of the block
  LONGLONG m_blockStart;  // the block's place in the file
  LONGLONG m_blockEnd;
  int m_unicode;
  int m_littleEndian;
  int m_allowNonLatin;
  int m_failed;
};
