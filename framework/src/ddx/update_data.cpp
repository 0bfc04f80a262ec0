// CWnd: running an exchange.

#include <afxwin.h>

#include <utility>

#include "windows/thread_state.h"

namespace {

// Controls that are being filled do not notify the dialog.
class Exchanging {
 public:
  explicit Exchanging(HWND dialog) : m_before(std::exchange(State().exchanging, dialog)) {}
  ~Exchanging() { State().exchanging = m_before; }
  Exchanging(const Exchanging&) = delete;
  Exchanging& operator=(const Exchanging&) = delete;

 private:
  HWND m_before;
};

}  // namespace

BOOL CWnd::UpdateData(BOOL bSaveAndValidate) {
  const Exchanging exchanging(m_hWnd);
  try {
    CDataExchange exchange(this, bSaveAndValidate);
    DoDataExchange(&exchange);
    return TRUE;
  } catch (CUserException* e) {
    e->Delete();  // the user knows
  } catch (CException* e) {
    e->ReportError(MB_ICONEXCLAMATION);
    e->Delete();
  }
  return FALSE;
}

void CWnd::DoDataExchange(CDataExchange*) {}
