// Exceptions of the framework. They are thrown and caught by pointer; who catches one and does not
// throw it again calls its Delete (the CATCH macros do so themselves).
#pragma once

#include "afxobj_.h"

class AFX_CORE_DATA CException : public CObject {
  DECLARE_DYNAMIC(CException)
 public:
  CException();
  // bAutoDelete: FALSE for an exception that is not on the heap, which Delete then leaves alone.
  explicit CException(BOOL bAutoDelete);

  // Frees the exception, whether it is on the heap or not.
  void Delete();

  // Writes what went wrong into lpszError, whose size in characters is nMaxError; a longer text is
  // cut. FALSE, and an empty text, when the class has none. *pnHelpContext is set to 0.
  virtual BOOL GetErrorMessage(LPTSTR lpszError, UINT nMaxError, UINT* pnHelpContext = nullptr);
  // Shows that text in a message box of the style nType and returns the button pressed; without a
  // text of its own, the string of the id nMessageID.
  virtual int ReportError(UINT nType = MB_OK, UINT nMessageID = 0);

 private:
  BOOL m_bAutoDelete;
};

// Exceptions whose texts need no memory to be found.
class AFX_CORE_DATA CSimpleException : public CException {
  DECLARE_DYNAMIC(CSimpleException)
 public:
  CSimpleException();
  explicit CSimpleException(BOOL bAutoDelete);
  BOOL GetErrorMessage(LPTSTR lpszError, UINT nMaxError, UINT* pnHelpContext = nullptr) override;

 protected:
  CSimpleException(BOOL bAutoDelete, LPCSTR lpszMessage);

 private:
  LPCSTR m_lpszMessage;
};

// Out of memory.
class AFX_CORE_DATA CMemoryException : public CSimpleException {
  DECLARE_DYNAMIC(CMemoryException)
 public:
  CMemoryException();
  explicit CMemoryException(BOOL bAutoDelete);
};

// A request that the class does not support.
class AFX_CORE_DATA CNotSupportedException : public CSimpleException {
  DECLARE_DYNAMIC(CNotSupportedException)
 public:
  CNotSupportedException();
  explicit CNotSupportedException(BOOL bAutoDelete);
};

// A resource of the system was not found or could not be made.
class AFX_CORE_DATA CResourceException : public CSimpleException {
  DECLARE_DYNAMIC(CResourceException)
 public:
  CResourceException();
  explicit CResourceException(BOOL bAutoDelete);
};

// Ends an operation of which the user has been told already.
class AFX_CORE_DATA CUserException : public CSimpleException {
  DECLARE_DYNAMIC(CUserException)
 public:
  CUserException();
  explicit CUserException(BOOL bAutoDelete);
};

[[noreturn]] AFX_CORE_DATA void AFXAPI AfxThrowMemoryException();
[[noreturn]] AFX_CORE_DATA void AFXAPI AfxThrowNotSupportedException();
[[noreturn]] AFX_CORE_DATA void AFXAPI AfxThrowResourceException();
[[noreturn]] AFX_CORE_DATA void AFXAPI AfxThrowUserException();

// Holds the exception of a CATCH block and deletes it at the block's end.
class AFX_CORE_DATA AFX_EXCEPTION_LINK {
 public:
  explicit AFX_EXCEPTION_LINK(CException* pException) : m_pException(pException) {}
  ~AFX_EXCEPTION_LINK();
  AFX_EXCEPTION_LINK(const AFX_EXCEPTION_LINK&) = delete;
  void operator=(const AFX_EXCEPTION_LINK&) = delete;

  // The block throws its exception again, so somebody else deletes it.
  void Release() { m_pException = nullptr; }

 private:
  CException* m_pException;
};

// TRY { } CATCH(CFileException, e) { } AND_CATCH(CMemoryException, e) { } END_CATCH
// TRY { } CATCH_ALL(e) { } END_CATCH_ALL
// The exception is deleted at the end of its block unless the block says THROW_LAST().
#define TRY \
  {         \
    try {
#define CATCH(class, e) \
  }                     \
  catch (class * e) {   \
    AFX_EXCEPTION_LINK _afxExceptionLink(e);
#define AND_CATCH(class, e) CATCH(class, e)
#define END_CATCH \
  }               \
  }
#define CATCH_ALL(e) CATCH(CException, e)
#define AND_CATCH_ALL(e) CATCH(CException, e)
#define END_CATCH_ALL END_CATCH
#define THROW(e) throw e
#define THROW_LAST() (_afxExceptionLink.Release(), throw)
