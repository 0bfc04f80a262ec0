#include <afxinet.h>

#include "exceptions/exception_texts.h"

IMPLEMENT_DYNAMIC(CInternetException, CException)

CInternetException::CInternetException(DWORD dwError) : m_dwError(dwError), m_dwContext(0) {}

BOOL CInternetException::GetErrorMessage(LPTSTR lpszError, UINT nMaxError, UINT* pnHelpContext) {
  if (pnHelpContext != nullptr) *pnHelpContext = 0;
  char text[512];
  const DWORD length = FormatMessageA(
      FORMAT_MESSAGE_FROM_HMODULE | FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS,
      GetModuleHandleA("wininet.dll"), m_dwError, 0, text, sizeof text, nullptr);
  CopyText(length != 0 ? text : "", lpszError, nMaxError);
  return length != 0;
}

void AFXAPI AfxThrowInternetException(DWORD dwContext, DWORD dwError) {
  auto* const exception = new CInternetException(dwError != 0 ? dwError : GetLastError());
  exception->m_dwContext = dwContext;
  throw exception;
}
