// The library's own resources, as a host finds them that links with its import library.
#include <afxwin.h>

#include <gtest/gtest.h>

#include "dialogs/Driver.h"
#include "resources/resource.h"
#include "support/Watchdog.h"

namespace {

TEST(Resources, IconsAndDialogsAreFoundFromAHost) {
  const watchdog::ExpectWindows windows;
  const HMODULE library = ::GetModuleHandle("orvane.dll");
  ASSERT_NE(library, AfxGetResourceHandle());
  EXPECT_EQ(AfxFindResourceHandle(MAKEINTRESOURCE(IDI_ORVANE), RT_GROUP_ICON), library);
  EXPECT_EQ(AfxFindResourceHandle(MAKEINTRESOURCE(IDD_ABOUT_LIBRARY), RT_DIALOG), library);

  HICON shown = nullptr;
  Driver driver({[&](HWND window) {
                   EXPECT_EQ(Driver::TextOf(window), "About Orvane");
                   const HWND icon = ::FindWindowEx(window, nullptr, "Static", nullptr);
                   shown = reinterpret_cast<HICON>(::SendMessage(icon, STM_GETICON, 0, 0));
                 },
                 Driver::Press(VK_RETURN)});
  EXPECT_EQ(CDialog(IDD_ABOUT_LIBRARY).DoModal(), IDOK);
  EXPECT_NE(shown, nullptr) << "the dialog's icon is looked for in the library, too";
}

}  // namespace
