// Files: CFile on the system's handles, CStdioFile on the runtime's streams.
#pragma once

#include "afxexc_.h"
#include "afxstr_.h"
#include "afxtime_.h"

#include <stdio.h>

// What went wrong with a file.
class AFX_CORE_DATA CFileException : public CException {
  DECLARE_DYNAMIC(CFileException)
 public:
  enum {
    none,
    genericException,
    fileNotFound,
    badPath,
    tooManyOpenFiles,
    accessDenied,
    invalidFile,
    removeCurrentDir,
    directoryFull,
    badSeek,
    hardIO,
    sharingViolation,
    lockViolation,
    diskFull,
    endOfFile,
    generic = genericException
  };

  explicit CFileException(int cause = none, LONG lOsError = -1, LPCTSTR lpszFileName = nullptr);

  // The cause for an error of the system, of the runtime (an errno value).
  static int PASCAL OsErrorToException(LONG lOsError);
  static int PASCAL ErrnoToException(int nErrno);
  [[noreturn]] static void PASCAL ThrowOsError(LONG lOsError, LPCTSTR lpszFileName = nullptr);
  [[noreturn]] static void PASCAL ThrowErrno(int nErrno, LPCTSTR lpszFileName = nullptr);

  // A sentence with the file's name.
  BOOL GetErrorMessage(LPTSTR lpszError, UINT nMaxError, UINT* pnHelpContext = nullptr) override;

  int m_cause;            // a value of the enumeration
  LONG m_lOsError;        // the system's error; -1: unknown
  CString m_strFileName;  // empty: unknown
};

[[noreturn]] AFX_CORE_DATA void AFXAPI AfxThrowFileException(int cause, LONG lOsError = -1,
                                                             LPCTSTR lpszFileName = nullptr);

// What the file system knows of a file.
struct CFileStatus {
  CTime m_ctime;     // made; as m_mtime where the file system does not keep it
  CTime m_mtime;     // last written
  CTime m_atime;     // last read; likewise
  LONG m_size;       // bytes; of a size past 2 GB the low 32 bits
  BYTE m_attribute;  // CFile::Attribute
  BYTE m_padding;
  TCHAR m_szFullName[MAX_PATH];  // the absolute path
};

// A file of the system. Members throw CFileException unless they say otherwise. Sizes and positions
// are in bytes; one past 4 GB, which the types here do not hold, is an error too.
class AFX_CORE_DATA CFile : public CObject {
  DECLARE_DYNAMIC(CFile)
 public:
  enum OpenFlags {
    modeRead = 0x0000,
    modeWrite = 0x0001,
    modeReadWrite = 0x0002,
    shareCompat = 0x0000,  // means shareExclusive
    shareExclusive = 0x0010,
    shareDenyWrite = 0x0020,
    shareDenyRead = 0x0030,
    shareDenyNone = 0x0040,
    modeNoInherit = 0x0080,   // child processes do not inherit the handle
    modeCreate = 0x1000,      // makes the file, and cuts one that exists to length 0
    modeNoTruncate = 0x2000,  // with modeCreate: leaves one that exists as it is
    typeText = 0x4000,        // for CStdioFile alone: line ends are translated
    typeBinary = 0x8000
  };

  enum Attribute {
    normal = 0x00,
    readOnly = 0x01,
    hidden = 0x02,
    system = 0x04,
    volume = 0x08,
    directory = 0x10,
    archive = 0x20
  };

  enum SeekPosition { begin = 0, current = 1, end = 2 };

  enum : UINT { hFileNull = static_cast<UINT>(-1) };

  CFile();
  // A handle of the system, which stays open when the object ends, unless Close is called.
  explicit CFile(int hFile);
  // Opens as Open does, and throws when it fails.
  CFile(LPCTSTR lpszFileName, UINT nOpenFlags);
  // Closes, without a word when that fails: who has written calls Close first.
  ~CFile() override;

  operator HFILE() const { return static_cast<HFILE>(m_hFile); }

  // nOpenFlags: one mode, one share and what else is wanted of OpenFlags. FALSE when the file
  // cannot be opened: *pError, when given, then says why. Does not throw for that.
  virtual BOOL Open(LPCTSTR lpszFileName, UINT nOpenFlags, CFileException* pError = nullptr);

  static void PASCAL Rename(LPCTSTR lpszOldName, LPCTSTR lpszNewName);
  static void PASCAL Remove(LPCTSTR lpszFileName);

  // FALSE when there is no such file. These do not throw.
  BOOL GetStatus(CFileStatus& rStatus) const;
  static BOOL PASCAL GetStatus(LPCTSTR lpszFileName, CFileStatus& rStatus);
  // Sets the attributes, and those times that are not 0, provided that m_mtime is not 0.
  static void PASCAL SetStatus(LPCTSTR lpszFileName, const CFileStatus& status);

  // The name with its extension, without it, the absolute path.
  virtual CString GetFileName() const;
  virtual CString GetFileTitle() const;
  virtual CString GetFilePath() const;
  virtual void SetFilePath(LPCTSTR lpszNewName);

  virtual DWORD GetPosition() const;
  // The new position, from the file's beginning. Past the end is allowed, before the beginning not.
  virtual LONG Seek(LONG lOff, UINT nFrom);
  virtual DWORD GetLength() const;
  // Sets the position to the new end, too.
  virtual void SetLength(DWORD dwNewLen);
  // The length.
  DWORD SeekToEnd() { return static_cast<DWORD>(Seek(0, end)); }
  void SeekToBegin() { Seek(0, begin); }

  // The bytes read: fewer than nCount only at the end of the file.
  virtual UINT Read(void* lpBuf, UINT nCount);
  virtual void Write(const void* lpBuf, UINT nCount);
  virtual void Flush();
  virtual void Close();
  // Closes, and never throws.
  virtual void Abort();

  UINT m_hFile;  // the system's handle; hFileNull: closed

 protected:
  BOOL m_bCloseOnDelete;
  CString m_strFileName;  // the absolute path
};

// A file read and written through a stream of the runtime, by default as text: CR LF in the file is
// "\n" in the program.
class AFX_CORE_DATA CStdioFile : public CFile {
  DECLARE_DYNAMIC(CStdioFile)
 public:
  CStdioFile();
  // A stream that is open already, and stays open when the object ends, unless Close is called.
  explicit CStdioFile(FILE* pOpenStream);
  CStdioFile(LPCTSTR lpszFileName, UINT nOpenFlags);
  ~CStdioFile() override;

  virtual void WriteString(LPCTSTR lpsz);
  // As fgets: up to nMax - 1 characters and the line end, if they hold it. Null at the file's end.
  virtual LPTSTR ReadString(LPTSTR lpsz, UINT nMax);
  // A line of any length without its end. FALSE at the file's end.
  virtual BOOL ReadString(CString& rString);

  BOOL Open(LPCTSTR lpszFileName, UINT nOpenFlags, CFileException* pError = nullptr) override;
  DWORD GetPosition() const override;
  LONG Seek(LONG lOff, UINT nFrom) override;
  DWORD GetLength() const override;
  void SetLength(DWORD dwNewLen) override;
  UINT Read(void* lpBuf, UINT nCount) override;
  void Write(const void* lpBuf, UINT nCount) override;
  void Flush() override;
  void Close() override;
  void Abort() override;

  FILE* m_pStream;  // null: closed
};
