// Exceptions of the framework. They are thrown and caught by pointer; who catches one and does not
// throw it again calls its Delete.
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
