#include <afxwin.h>

#include <shlwapi.h>
#include <string.h>

#include "exceptions/exception_texts.h"

IMPLEMENT_DYNAMIC(CException, CObject)
IMPLEMENT_DYNAMIC(CSimpleException, CException)
IMPLEMENT_DYNAMIC(CMemoryException, CSimpleException)
IMPLEMENT_DYNAMIC(CNotSupportedException, CSimpleException)
IMPLEMENT_DYNAMIC(CResourceException, CSimpleException)
IMPLEMENT_DYNAMIC(CUserException, CSimpleException)

void CopyText(LPCSTR text, LPTSTR lpszError, UINT nMaxError) {
  if (lpszError == nullptr || nMaxError == 0) return;
  lstrcpyn(lpszError, text, static_cast<int>(nMaxError));
}

CException::CException() : CException(TRUE) {}
CException::CException(BOOL bAutoDelete) : m_bAutoDelete(bAutoDelete) {}

void CException::Delete() {
  if (m_bAutoDelete) delete this;
}

BOOL CException::GetErrorMessage(LPTSTR lpszError, UINT nMaxError, UINT* pnHelpContext) {
  if (pnHelpContext != nullptr) *pnHelpContext = 0;
  CopyText("", lpszError, nMaxError);
  return FALSE;
}

int CException::ReportError(UINT nType, UINT nMessageID) {
  char text[512];
  if (!GetErrorMessage(text, sizeof text) &&
      (nMessageID == 0 || AfxLoadString(nMessageID, text, sizeof text) == 0))
    strcpy(text, "No error message is available.");
  return AfxMessageBox(text, nType, nMessageID);
}

CSimpleException::CSimpleException() : CSimpleException(TRUE, nullptr) {}
CSimpleException::CSimpleException(BOOL bAutoDelete) : CSimpleException(bAutoDelete, nullptr) {}
CSimpleException::CSimpleException(BOOL bAutoDelete, LPCSTR lpszMessage)
    : CException(bAutoDelete), m_lpszMessage(lpszMessage) {}

BOOL CSimpleException::GetErrorMessage(LPTSTR lpszError, UINT nMaxError, UINT* pnHelpContext) {
  if (m_lpszMessage == nullptr)
    return CException::GetErrorMessage(lpszError, nMaxError, pnHelpContext);
  if (pnHelpContext != nullptr) *pnHelpContext = 0;
  CopyText(m_lpszMessage, lpszError, nMaxError);
  return TRUE;
}

CMemoryException::CMemoryException() : CMemoryException(TRUE) {}
CMemoryException::CMemoryException(BOOL bAutoDelete)
    : CSimpleException(bAutoDelete, "Out of memory.") {}

CNotSupportedException::CNotSupportedException() : CNotSupportedException(TRUE) {}
CNotSupportedException::CNotSupportedException(BOOL bAutoDelete)
    : CSimpleException(bAutoDelete, "An unsupported operation was attempted.") {}

CResourceException::CResourceException() : CResourceException(TRUE) {}
CResourceException::CResourceException(BOOL bAutoDelete)
    : CSimpleException(bAutoDelete, "A required resource was unavailable.") {}

CUserException::CUserException() : CUserException(TRUE) {}
CUserException::CUserException(BOOL bAutoDelete)
    : CSimpleException(bAutoDelete, "The operation was ended after a message to the user.") {}

// Those without a state are one object each, so that throwing needs no memory.
void AFXAPI AfxThrowMemoryException() {
  static CMemoryException exception(FALSE);
  throw &exception;
}

void AFXAPI AfxThrowNotSupportedException() {
  static CNotSupportedException exception(FALSE);
  throw &exception;
}

void AFXAPI AfxThrowResourceException() {
  static CResourceException exception(FALSE);
  throw &exception;
}

void AFXAPI AfxThrowUserException() {
  static CUserException exception(FALSE);
  throw &exception;
}

AFX_EXCEPTION_LINK::~AFX_EXCEPTION_LINK() {
  if (m_pException != nullptr) m_pException->Delete();
}
