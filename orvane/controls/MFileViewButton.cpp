#include "controls/MFileViewButton.h"

#include <shellapi.h>

BEGIN_MESSAGE_MAP(MFileViewButton, CButton)
ON_CONTROL_REFLECT(BN_CLICKED, OnClicked)
END_MESSAGE_MAP()

namespace {

// ShellExecute answers with a number above this when it has started something.
constexpr INT_PTR kLastError = 32;

int launch(HWND owner, const char* file, const char* arguments) {
  const HINSTANCE result = ShellExecute(owner, "open", file, arguments, nullptr, SW_SHOWNORMAL);
  return reinterpret_cast<INT_PTR>(result) > kLastError;
}

}  // namespace

int MFileViewButton::Open() {
  if (m_path.IsEmpty()) return 0;
  return launch(GetSafeHwnd(), m_path, nullptr);
}

int MFileViewButton::View() {
  if (m_path.IsEmpty()) return 0;
  return launch(GetSafeHwnd(), m_viewer.IsEmpty() ? "notepad.exe" : static_cast<LPCTSTR>(m_viewer),
                "\"" + m_path + "\"");
}
