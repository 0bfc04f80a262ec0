#include "windows/handler_exceptions.h"

#include <exception>

namespace {

// An exception of a foreign kind, with what it has to say.
class ForeignException : public CException {
 public:
  explicit ForeignException(LPCSTR text) : CException(FALSE), m_text(text) {}
  BOOL GetErrorMessage(LPTSTR lpszError, UINT nMaxError, UINT* pnHelpContext) override {
    if (pnHelpContext != nullptr) *pnHelpContext = 0;
    if (lpszError != nullptr && nMaxError > 0)
      lstrcpyn(lpszError, m_text, static_cast<int>(nMaxError));
    return TRUE;
  }

 private:
  LPCSTR m_text;
};

LRESULT process(CException* e, const MSG& message) {
  if (CWinThread* const thread = AfxGetThread())
    return thread->ProcessWndProcException(e, &message);
  return ReportHandlerException(e, message);
}

LRESULT processForeign(LPCSTR text, const MSG& message) {
  ForeignException exception(text);
  return process(&exception, message);
}

}  // namespace

LRESULT ResultOfException(const MSG& message) {
  try {
    throw;
  } catch (CException* e) {
    const LRESULT result = process(e, message);
    e->Delete();
    return result;
  } catch (const std::exception& e) {
    return processForeign(e.what(), message);
  } catch (const char* text) {
    return processForeign(text, message);
  } catch (...) {
    return processForeign("An unknown error occurred.", message);
  }
}

LRESULT ReportHandlerException(CException* e, const MSG& message) {
  switch (message.message) {
    case WM_CREATE:
      return -1;  // the window is not created
    case WM_PAINT:
      // Or the message would come again for ever.
      ::ValidateRect(message.hwnd, nullptr);
      return 0;
    default:
      // A user exception says that the user knows already.
      if (!e->IsKindOf(RUNTIME_CLASS(CUserException))) e->ReportError(MB_ICONSTOP);
      return 0;
  }
}
